#include "foundation/Binaer.h"

#include "foundation/ErrorReport.h"
#include "foundation/RegStore.h"

namespace vorelle {

namespace {

QString& errorField() {
    static QString text;
    return text;
}

const QString kWidthError = QStringLiteral("gewaehlte Bitlaenge ist zu hoch");

// The alphabet of a bit width, or "" for a width without one.
QString alphabet(int bitWidth) {
    static const QString kFull =
        QStringLiteral("0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz-_");
    switch (bitWidth) {
        case 1:
            return QStringLiteral("01");
        case 2:
            return QStringLiteral("0123");
        case 3:
            return QStringLiteral("01234567");
        case 4:
            return QStringLiteral("0123456789ABCDEF");
        case 5:
            return kFull.left(32);
        case 6:
            return kFull;
        default:
            return {};
    }
}

}  // namespace

QString DecToBin(int Byte) {
    if (Byte < 0 || Byte > 255) {
        ReportError(QStringLiteral("Binär.DecToBin"),
                    QStringLiteral("Übergebener Wert ist kein Bytewert im Bereich von 0 bis 255"),
                    99999, QString(), QString(), false, 48);
        return {};
    }
    QString bits(8, u'0');
    for (int i = 0; i < 8; ++i) {
        if (Byte & (0x80 >> i)) {
            bits[i] = u'1';
        }
    }
    return bits;
}

qint32 BinToDec(const QString& Bits) {
    quint32 value = 0;
    for (const QChar c : Bits) {
        value = (value << 1) | (c == u'1' ? 1U : 0U);
    }
    return static_cast<qint32>(value);
}

QString AsciiToBin(const QString& Text) {
    const QByteArray bytes = ToAnsi(Text);
    QString bits;
    bits.reserve(bytes.size() * 8);
    for (const char b : bytes) {
        bits += DecToBin(static_cast<unsigned char>(b));
    }
    return bits;
}

QString BinToAscii(const QString& Bits) {
    QByteArray bytes;
    bytes.reserve(Bits.size() / 8 + 1);
    for (qsizetype i = 0; i < Bits.size(); i += 8) {
        bytes += static_cast<char>(BinToDec(Bits.mid(i, 8)) & 0xFF);
    }
    return FromAnsi(bytes);
}

QString BinToRadix(const QString& Bits, int BitWidth, bool Compress) {
    errorField().clear();
    const QString digits = alphabet(BitWidth);
    if (digits.isEmpty()) {
        errorField() = kWidthError;
        return {};
    }
    for (const QChar c : Bits) {
        if (c != u'0' && c != u'1') {
            errorField() = QStringLiteral("Binaerstring enthaelt ungueltige Zeichen");
            return {};
        }
    }
    QString bits = Bits;
    const qsizetype rest = bits.size() % BitWidth;
    if (rest > 0) {
        bits.insert(bits.size() - rest, QString(BitWidth - rest, u'0'));
    }
    QString text;
    text.reserve(bits.size() / BitWidth);
    for (qsizetype i = 0; i < bits.size(); i += BitWidth) {
        text += digits.at(BinToDec(bits.mid(i, BitWidth)));
    }
    if (!Compress) {
        return text;
    }
    const qsizetype longest = qsizetype(1) << BitWidth;
    QString packed;
    for (qsizetype i = 0; i < text.size();) {
        if (text.at(i) != u'0') {
            packed += text.at(i++);
            continue;
        }
        qsizetype run = 0;
        while (i + run < text.size() && text.at(i + run) == u'0' && run < longest) {
            ++run;
        }
        if (run <= 2) {
            packed += QString(run, u'0');
        } else {
            packed += u'!';
            packed += digits.at(run - 1);
        }
        i += run;
    }
    return packed;
}

QString RadixToBin(const QString& Text, int BitWidth, QString& ErrorText) {
    ErrorText.clear();
    const QString digits = alphabet(BitWidth);
    if (digits.isEmpty()) {
        ErrorText = kWidthError;
        return {};
    }
    QString bits;
    bits.reserve(Text.size() * BitWidth + 8);
    for (qsizetype i = 0; i < Text.size(); ++i) {
        const qsizetype value = digits.indexOf(Text.at(i));
        if (value < 0) {
            ErrorText = QStringLiteral("AsciiString enthaelt ungueltige Zeichen");
            return {};
        }
        const QString byte = DecToBin(static_cast<int>(value));
        if (i + 1 < Text.size()) {
            bits += byte.right(BitWidth);
        } else {
            // The last character fills up to the next whole byte.
            bits += byte.right(8 - bits.size() % 8);
        }
    }
    return bits;
}

QString RadixToBin(const QString& Text, int BitWidth) {
    QString error;
    QString bits = RadixToBin(Text, BitWidth, error);
    errorField() = error;
    return bits;
}

QString BinaerErrorText() {
    return errorField();
}

void BinaerReset() {
    errorField().clear();
}

}  // namespace vorelle
