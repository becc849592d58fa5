#pragma once

// The process around a fuzz target: a QApplication on Qt's offscreen platform, the store
// and the library's folder in a fresh temporary folder of the run, Qt's messages silenced,
// and the platform's message box, beep and key state replaced by doubles.

#include <QByteArray>
#include <QString>

#include <cstddef>
#include <cstdint>

namespace vorelle::fuzz {

class FakeKeys;
class SilentBox;

// Sets up the process once; later calls do nothing. Returns the run's temporary folder.
const QString& StartHost();

// The key state and message box doubles in place for the whole run.
FakeKeys& Keys();
SilentBox& Box();

// Ends the process with a message on stderr: libFuzzer writes the input as a crash.
[[noreturn]] void Fail(const char* target, const QString& message);

// Reads the fuzzer's bytes in order; past the end every read gives zeros.
class ByteReader {
public:
    ByteReader(const uint8_t* data, size_t size) : data_(data), size_(size) {}

    bool atEnd() const { return pos_ >= size_; }
    size_t remaining() const { return atEnd() ? 0 : size_ - pos_; }
    uint8_t byte() { return atEnd() ? 0 : data_[pos_++]; }
    uint16_t word() { return static_cast<uint16_t>(byte() | (byte() << 8)); }
    uint32_t dword() {
        return static_cast<uint32_t>(word()) | (static_cast<uint32_t>(word()) << 16);
    }
    // Up to maxBytes raw bytes, their count given by the next byte.
    QByteArray bytes(size_t maxBytes);
    // A text of up to maxChars characters taken from `alphabet` by the following bytes.
    QString text(const QString& alphabet, int maxChars);
    // A text of arbitrary UTF-16 units (the length by the next byte).
    QString anyText(int maxChars);
    // The rest of the bytes.
    QByteArray rest();

private:
    const uint8_t* data_;
    size_t size_;
    size_t pos_ = 0;
};

}  // namespace vorelle::fuzz
