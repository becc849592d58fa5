#include "support/FuzzHost.h"

#include <QApplication>
#include <QDir>
#include <QFileInfo>
#include <QTemporaryDir>

#include <cstdio>
#include <cstdlib>
#include <memory>

#include "foundation/ServiceSlot.h"
#include "support/FuzzDoubles.h"

namespace vorelle::fuzz {

namespace {

void quiet(QtMsgType, const QMessageLogContext&, const QString&) {}

struct Host {
    std::unique_ptr<QTemporaryDir> sandbox;
    std::unique_ptr<QApplication> app;
    FakeKeys keys;
    SilentBox box;
    std::unique_ptr<ScopedService<KeyState>> keyScope;
    std::unique_ptr<ScopedService<MessageBox>> boxScope;
    QString folder;
};

Host& host() {
    static Host* h = new Host;  // lives to the end of the process, as libFuzzer does
    return *h;
}

}  // namespace

const QString& StartHost() {
    Host& h = host();
    if (h.app) {
        return h.folder;
    }
    qputenv("QT_QPA_PLATFORM", "offscreen");
    h.sandbox =
        std::make_unique<QTemporaryDir>(QDir::tempPath() + QStringLiteral("/vorelle-fuzz-XXXXXX"));
    h.folder = h.sandbox->path();
    qputenv("VORELLE_REGISTRY", (h.folder + QStringLiteral("/registry.db")).toLocal8Bit());
    const QString library = h.folder + QStringLiteral("/library");
    QDir().mkpath(library);
    qputenv("VORELLE_LIBRARY_DIR", library.toLocal8Bit());
    if (qEnvironmentVariableIsEmpty("VORELLE_FUZZ_VERBOSE")) {
        qInstallMessageHandler(quiet);
    }
    static int argc = 1;
    static char name[] = "vorelle-fuzz";
    static char* argv[] = {name, nullptr};
    h.app = std::make_unique<QApplication>(argc, argv);
    h.keyScope = std::make_unique<ScopedService<KeyState>>(h.keys);
    h.boxScope = std::make_unique<ScopedService<MessageBox>>(h.box);
    return h.folder;
}

FakeKeys& Keys() {
    return host().keys;
}

SilentBox& Box() {
    return host().box;
}

void Fail(const char* target, const QString& message) {
    std::fprintf(stderr, "\n== %s: invariant failed: %s\n", target,
                 message.toLocal8Bit().constData());
    std::fflush(stderr);
    std::abort();
}

QByteArray ByteReader::bytes(size_t maxBytes) {
    size_t n = byte();
    n = std::min({n, maxBytes, remaining()});
    QByteArray out(reinterpret_cast<const char*>(data_ + pos_), static_cast<qsizetype>(n));
    pos_ += n;
    return out;
}

QString ByteReader::text(const QString& alphabet, int maxChars) {
    const int n = std::min<int>(byte() % (maxChars + 1), static_cast<int>(remaining()));
    QString out;
    out.reserve(n);
    for (int i = 0; i < n; ++i) {
        out += alphabet.at(byte() % alphabet.size());
    }
    return out;
}

QString ByteReader::anyText(int maxChars) {
    const int n = std::min<int>(byte() % (maxChars + 1), static_cast<int>(remaining() / 2));
    QString out;
    out.reserve(n);
    for (int i = 0; i < n; ++i) {
        out += QChar(static_cast<char16_t>(word()));
    }
    return out;
}

QByteArray ByteReader::rest() {
    const size_t n = remaining();
    QByteArray out(reinterpret_cast<const char*>(data_ + pos_), static_cast<qsizetype>(n));
    pos_ = size_;
    return out;
}

}  // namespace vorelle::fuzz

// Leaks of the system libraries below Qt that LeakSanitizer reports and that are none of
// the library's doing: fontconfig keeps its caches in memory it no longer points to.
extern "C" const char* __lsan_default_suppressions() {
    return "leak:libfontconfig.so\n";
}

// Fuzzing makes millions of small allocations: a short allocation stack and a smaller
// quarantine keep the sanitizer's share of the time down. ASAN_OPTIONS overrides both when
// a crash is replayed (e.g. ASAN_OPTIONS=malloc_context_size=30).
extern "C" const char* __asan_default_options() {
    return "malloc_context_size=4:quarantine_size_mb=64";
}
