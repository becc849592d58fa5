#include "foundation/Locale.h"

#include "foundation/ServiceSlot.h"

namespace vorelle {

namespace {

// A QLocale format string with its quoted literals and field letters reduced to a
// sequence of fields and the literal text between them.
struct FormatField {
    QChar letter;    // 'd', 'M', 'y', 'h', 'H', 'm', 's', 'a', 'A', ...
    QString before;  // literal text between the previous field and this one
};

QList<FormatField> splitFormat(const QString& format) {
    QList<FormatField> fields;
    QString literal;
    for (qsizetype i = 0; i < format.size();) {
        const QChar c = format.at(i);
        if (c == u'\'') {
            // Quoted literal; '' stands for one quote.
            ++i;
            while (i < format.size()) {
                if (format.at(i) == u'\'') {
                    if (i + 1 < format.size() && format.at(i + 1) == u'\'') {
                        literal += u'\'';
                        i += 2;
                        continue;
                    }
                    ++i;
                    break;
                }
                literal += format.at(i++);
            }
            continue;
        }
        if (c.isLetter() && c.unicode() < 128) {
            qsizetype j = i;
            while (j < format.size() && format.at(j) == c) {
                ++j;
            }
            fields.append({c, literal});
            literal.clear();
            i = j;
            continue;
        }
        literal += c;
        ++i;
    }
    return fields;
}

// The literal text in front of the first field whose letter is one of `letters`, the
// first field excepted; trimmed, or one blank when it is blank only.
QString separatorBefore(const QList<FormatField>& fields, QStringView letters) {
    for (qsizetype i = 1; i < fields.size(); ++i) {
        if (!letters.contains(fields.at(i).letter)) {
            continue;
        }
        const QString text = fields.at(i).before;
        if (text.isEmpty()) {
            continue;
        }
        const QString trimmed = text.trimmed();
        return trimmed.isEmpty() ? QStringLiteral(" ") : trimmed;
    }
    return {};
}

}  // namespace

Locale::~Locale() = default;

namespace {

// The short date format; the C locale (a machine without a locale) writes dates as ISO 8601
// does, where Qt gives it a format with the month's name and blanks between the fields.
QString shortDateFormat(const QLocale& locale) {
    return locale.language() == QLocale::C ? QStringLiteral("yyyy-MM-dd")
                                           : locale.dateFormat(QLocale::ShortFormat);
}

}  // namespace

std::optional<QString> SystemLocale::dateOrder() const {
    const QList<FormatField> fields = splitFormat(shortDateFormat(current()));
    qsizetype day = -1;
    qsizetype month = -1;
    qsizetype year = -1;
    for (qsizetype i = 0; i < fields.size(); ++i) {
        const QChar c = fields.at(i).letter;
        if (c == u'd' && day < 0) {
            day = i;
        } else if ((c == u'M' || c == u'L') && month < 0) {
            month = i;
        } else if (c == u'y' && year < 0) {
            year = i;
        }
    }
    if (day < 0 || month < 0 || year < 0) {
        return std::nullopt;
    }
    if (year < day && year < month) {
        return QStringLiteral("2");
    }
    return month < day ? QStringLiteral("0") : QStringLiteral("1");
}

std::optional<QString> SystemLocale::dateSeparator() const {
    const QString sep = separatorBefore(splitFormat(shortDateFormat(current())), u"dMLy");
    return sep.isEmpty() ? QStringLiteral("/") : sep;
}

std::optional<QString> SystemLocale::clockFormat() const {
    const QString format = current().timeFormat(QLocale::ShortFormat);
    for (const FormatField& f : splitFormat(format)) {
        if (f.letter == u'a' || f.letter == u'A') {
            return QStringLiteral("0");
        }
    }
    return QStringLiteral("1");
}

std::optional<QString> SystemLocale::timeSeparator() const {
    const QLocale locale = current();
    QString sep = separatorBefore(splitFormat(locale.timeFormat(QLocale::ShortFormat)), u"ms");
    if (sep.isEmpty()) {
        sep = separatorBefore(splitFormat(locale.timeFormat(QLocale::LongFormat)), u"ms");
    }
    return sep.isEmpty() ? QStringLiteral(":") : sep;
}

bool SystemLocale::isGermanMachine() const {
    return current().language() == QLocale::German;
}

QString SystemLocale::monthName(int month, bool abbreviated) const {
    if (month < 1 || month > 12) {
        return {};
    }
    return current().monthName(month, abbreviated ? QLocale::ShortFormat : QLocale::LongFormat);
}

std::optional<QString> SystemLocale::decimalSeparator() const {
    return current().decimalPoint();
}

std::optional<QString> SystemLocale::thousandSeparator() const {
    return current().groupSeparator();
}

VORELLE_DEFINE_SERVICE(Locale, SystemLocale)

}  // namespace vorelle
