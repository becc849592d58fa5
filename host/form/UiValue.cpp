#include "host/form/UiValue.h"

#include <QColor>
#include <QDateTime>
#include <QFont>
#include <QMetaEnum>
#include <QPoint>
#include <QRect>
#include <QSize>

#include "host/form/UiFileError.h"

namespace vorelle {

namespace {

class Reader {
public:
    Reader(const UiNode& property, const QString& file)
        : file_(file), name_(property.attribute(QStringLiteral("name"))) {}

    [[noreturn]] void fail(const UiNode& at, const QString& what) const {
        throw UiFileError(
            QStringLiteral("%1:%2: property '%3': %4").arg(file_).arg(at.line).arg(name_, what),
            file_, at.line, name_);
    }

    qint64 integer(const UiNode& node, qint64 low, qint64 high) const {
        bool ok = false;
        const qint64 n = node.text.trimmed().toLongLong(&ok);
        if (!ok || n < low || n > high) {
            fail(node, QStringLiteral("<%1> holds '%2', which is not a whole number from %3 to %4")
                           .arg(node.tag, node.text)
                           .arg(low)
                           .arg(high));
        }
        return n;
    }

    // The value of the child element `tag`, or `fallback` when it is missing.
    qint64 field(const UiNode& parent, const char* tag, qint64 low, qint64 high,
                 std::optional<qint64> fallback = std::nullopt) const {
        const UiNode* c = parent.child(QString::fromLatin1(tag));
        if (!c) {
            if (fallback) {
                return *fallback;
            }
            fail(parent,
                 QStringLiteral("<%1> lacks <%2>").arg(parent.tag, QString::fromLatin1(tag)));
        }
        return integer(*c, low, high);
    }

    bool truth(const UiNode& node) const {
        const QString t = node.text.trimmed().toLower();
        if (t == u"true") {
            return true;
        }
        if (t == u"false") {
            return false;
        }
        fail(node, QStringLiteral("<%1> holds '%2', which is neither true nor false")
                       .arg(node.tag, node.text));
    }

    QVariant value(const UiNode& v, const QMetaProperty& target) const {
        const QString& tag = v.tag;
        if (tag == u"string" || tag == u"cstring") {
            return v.text;
        }
        if (tag == u"number") {
            const qint64 n = integer(v, INT64_MIN, INT64_MAX);
            return n >= INT32_MIN && n <= INT32_MAX ? QVariant(static_cast<int>(n)) : QVariant(n);
        }
        if (tag == u"uInt") {
            return static_cast<uint>(integer(v, 0, UINT32_MAX));
        }
        if (tag == u"longLong") {
            return integer(v, INT64_MIN, INT64_MAX);
        }
        if (tag == u"uLongLong") {
            bool ok = false;
            const qulonglong n = v.text.trimmed().toULongLong(&ok);
            if (!ok) {
                fail(v, QStringLiteral("<uLongLong> holds '%1', which is not a whole number")
                            .arg(v.text));
            }
            return n;
        }
        if (tag == u"bool") {
            return truth(v);
        }
        if (tag == u"double" || tag == u"float") {
            bool ok = false;
            const double d = v.text.trimmed().toDouble(&ok);
            if (!ok) {
                fail(v, QStringLiteral("<%1> holds '%2', which is not a number").arg(tag, v.text));
            }
            return d;
        }
        if (tag == u"enum" || tag == u"set") {
            return enumValue(v, target);
        }
        if (tag == u"color") {
            const int red = static_cast<int>(field(v, "red", 0, 255));
            const int green = static_cast<int>(field(v, "green", 0, 255));
            const int blue = static_cast<int>(field(v, "blue", 0, 255));
            if (target.isValid() && target.metaType().id() == QMetaType::QColor) {
                bool ok = true;
                const int alpha = v.hasAttribute(QStringLiteral("alpha"))
                                      ? v.attribute(QStringLiteral("alpha")).toInt(&ok)
                                      : 255;
                if (!ok || alpha < 0 || alpha > 255) {
                    fail(v, QStringLiteral("alpha '%1' is not from 0 to 255")
                                .arg(v.attribute(QStringLiteral("alpha"))));
                }
                return QColor(red, green, blue, alpha);
            }
            return UiValue::oleColor(red, green, blue);
        }
        if (tag == u"font") {
            return font(v);
        }
        if (tag == u"rect") {
            return QRect(static_cast<int>(field(v, "x", INT32_MIN, INT32_MAX)),
                         static_cast<int>(field(v, "y", INT32_MIN, INT32_MAX)),
                         static_cast<int>(field(v, "width", 0, INT32_MAX)),
                         static_cast<int>(field(v, "height", 0, INT32_MAX)));
        }
        if (tag == u"size") {
            return QSize(static_cast<int>(field(v, "width", INT32_MIN, INT32_MAX)),
                         static_cast<int>(field(v, "height", INT32_MIN, INT32_MAX)));
        }
        if (tag == u"point") {
            return QPoint(static_cast<int>(field(v, "x", INT32_MIN, INT32_MAX)),
                          static_cast<int>(field(v, "y", INT32_MIN, INT32_MAX)));
        }
        if (tag == u"stringlist") {
            QStringList list;
            for (const UiNode& c : v.children) {
                if (c.tag != u"string") {
                    fail(c,
                         QStringLiteral("<stringlist> holds <%1>, expected <string>").arg(c.tag));
                }
                list.append(c.text);
            }
            return list;
        }
        if (tag == u"date") {
            const QDate d = date(v);
            return d;
        }
        if (tag == u"time") {
            return time(v);
        }
        if (tag == u"datetime") {
            return QDateTime(date(v), time(v));
        }
        fail(v, QStringLiteral("values of the kind <%1> are not supported").arg(tag));
    }

private:
    QDate date(const UiNode& v) const {
        const QDate d(static_cast<int>(field(v, "year", 1, 9999)),
                      static_cast<int>(field(v, "month", 1, 12)),
                      static_cast<int>(field(v, "day", 1, 31)));
        if (!d.isValid()) {
            fail(v, QStringLiteral("<%1> is not a valid date").arg(v.tag));
        }
        return d;
    }

    QTime time(const UiNode& v) const {
        return QTime(static_cast<int>(field(v, "hour", 0, 23)),
                     static_cast<int>(field(v, "minute", 0, 59)),
                     static_cast<int>(field(v, "second", 0, 59)));
    }

    QVariant font(const UiNode& v) const {
        QFont f;
        for (const UiNode& c : v.children) {
            if (c.tag == u"family") {
                f.setFamily(c.text);
            } else if (c.tag == u"pointsize") {
                f.setPointSize(static_cast<int>(integer(c, 1, 1000)));
            } else if (c.tag == u"weight") {
                f.setWeight(static_cast<QFont::Weight>(integer(c, 1, 1000)));
            } else if (c.tag == u"bold") {
                f.setBold(truth(c));
            } else if (c.tag == u"italic") {
                f.setItalic(truth(c));
            } else if (c.tag == u"underline") {
                f.setUnderline(truth(c));
            } else if (c.tag == u"strikeout") {
                f.setStrikeOut(truth(c));
            } else if (c.tag == u"kerning") {
                f.setKerning(truth(c));
            } else if (c.tag == u"antialiasing") {
                f.setStyleStrategy(truth(c) ? QFont::PreferDefault : QFont::NoAntialias);
            } else if (c.tag != u"stylestrategy" && c.tag != u"hintingpreference") {
                fail(c,
                     QStringLiteral("<font> holds <%1>, which is not a font attribute").arg(c.tag));
            }
        }
        return f;
    }

    QVariant enumValue(const UiNode& v, const QMetaProperty& target) const {
        const QString text = v.text.trimmed();
        if (target.isValid() && target.isEnumType()) {
            const QMetaEnum e = target.enumerator();
            QStringList keys;
            for (const QString& part : text.split(u'|', Qt::SkipEmptyParts)) {
                const QString key = part.trimmed();
                const qsizetype scope = key.lastIndexOf(QStringLiteral("::"));
                keys.append(scope < 0 ? key : key.mid(scope + 2));
            }
            bool ok = false;
            const int n = v.tag == u"set" || e.isFlag()
                              ? e.keysToValue(keys.join(u'|').toLatin1().constData(), &ok)
                              : e.keyToValue(keys.value(0).toLatin1().constData(), &ok);
            if (!ok) {
                fail(v, QStringLiteral("'%1' is not a value of %2")
                            .arg(text, QString::fromLatin1(e.name())));
            }
            return n;
        }
        bool ok = false;
        const int n = text.toInt(&ok);
        return ok ? QVariant(n) : QVariant(text);
    }

    const QString& file_;
    QString name_;
};

bool isIntegral(const QVariant& v) {
    switch (v.metaType().id()) {
        case QMetaType::Int:
        case QMetaType::UInt:
        case QMetaType::LongLong:
        case QMetaType::ULongLong:
        case QMetaType::Short:
        case QMetaType::UShort:
        case QMetaType::Long:
        case QMetaType::ULong:
            return true;
        default:
            return false;
    }
}

QString truthText(bool on) {
    return on ? QStringLiteral("true") : QStringLiteral("false");
}

void writeFont(UiNode& node, const QFont& f) {
    const uint mask = f.resolveMask();
    if (mask & (QFont::FamilyResolved | QFont::FamiliesResolved)) {
        node.append(QStringLiteral("family"), f.family());
    }
    if ((mask & QFont::SizeResolved) && f.pointSize() > 0) {
        node.append(QStringLiteral("pointsize"), QString::number(f.pointSize()));
    }
    if (mask & QFont::WeightResolved) {
        if (f.weight() == QFont::Bold || f.weight() == QFont::Normal) {
            node.append(QStringLiteral("bold"), truthText(f.bold()));
        } else {
            node.append(QStringLiteral("weight"), QString::number(f.weight()));
        }
    }
    if (mask & QFont::StyleResolved) {
        node.append(QStringLiteral("italic"), truthText(f.italic()));
    }
    if (mask & QFont::UnderlineResolved) {
        node.append(QStringLiteral("underline"), truthText(f.underline()));
    }
    if (mask & QFont::StrikeOutResolved) {
        node.append(QStringLiteral("strikeout"), truthText(f.strikeOut()));
    }
    if (mask & QFont::KerningResolved) {
        node.append(QStringLiteral("kerning"), truthText(f.kerning()));
    }
}

// The <enum>/<set> text of a number, or "" when the enumerator has no name for it.
QString enumText(const QMetaProperty& target, int n) {
    const QMetaEnum e = target.enumerator();
    const QString scope = QString::fromLatin1(e.scope()) + QStringLiteral("::");
    if (e.isFlag()) {
        const QByteArray keys = e.valueToKeys(n);
        if (keys.isEmpty() || e.keysToValue(keys.constData()) != n) {
            return QString();
        }
        QStringList parts;
        for (const QByteArray& k : keys.split('|')) {
            parts.append(scope + QString::fromLatin1(k));
        }
        return parts.join(u'|');
    }
    const char* key = e.valueToKey(n);
    return key ? scope + QString::fromLatin1(key) : QString();
}

}  // namespace

qint32 UiValue::oleColor(int red, int green, int blue) {
    return static_cast<qint32>((red & 0xFF) | ((green & 0xFF) << 8) | ((blue & 0xFF) << 16));
}

QVariant UiValue::read(const UiNode& property, const QMetaProperty& target, const QString& file) {
    Reader reader(property, file);
    if (property.children.size() != 1) {
        reader.fail(property, property.children.empty()
                                  ? QStringLiteral("<property> holds no value")
                                  : QStringLiteral("<property> holds more than one value"));
    }
    return reader.value(property.children.front(), target);
}

UiNode UiValue::write(const QString& name, const QVariant& value, const QMetaProperty& target,
                      const UiNode* original) {
    UiNode node(QStringLiteral("property"));
    if (original) {
        node.attributes = original->attributes;
    } else {
        node.setAttribute(QStringLiteral("name"), name);
        node.setAttribute(QStringLiteral("stdset"), QStringLiteral("0"));
    }
    const QString was =
        original && original->children.size() == 1 ? original->children.front().tag : QString();
    const bool enumTarget = target.isValid() && target.isEnumType();

    if (isIntegral(value)) {
        const qint64 n = value.toLongLong();
        if (was == u"color" && n >= 0 && n <= 0xFFFFFF) {
            UiNode& c = node.append(QStringLiteral("color"));
            c.append(QStringLiteral("red"), QString::number(n & 0xFF));
            c.append(QStringLiteral("green"), QString::number((n >> 8) & 0xFF));
            c.append(QStringLiteral("blue"), QString::number((n >> 16) & 0xFF));
            return node;
        }
        if (enumTarget) {
            const QString text = enumText(target, static_cast<int>(n));
            if (!text.isEmpty()) {
                node.append(
                    target.enumerator().isFlag() ? QStringLiteral("set") : QStringLiteral("enum"),
                    text);
                return node;
            }
        }
        const int id = value.metaType().id();
        const QString tag = id == QMetaType::UInt        ? QStringLiteral("uInt")
                            : id == QMetaType::ULongLong ? QStringLiteral("uLongLong")
                            : (id == QMetaType::LongLong && (n < INT32_MIN || n > INT32_MAX))
                                ? QStringLiteral("longLong")
                                : QStringLiteral("number");
        node.append(tag, QString::number(n));
        return node;
    }
    switch (value.metaType().id()) {
        case QMetaType::Bool:
            node.append(QStringLiteral("bool"), truthText(value.toBool()));
            break;
        case QMetaType::Double:
        case QMetaType::Float:
            node.append(QStringLiteral("double"), QString::number(value.toDouble(), 'g', 17));
            break;
        case QMetaType::QColor: {
            const QColor c = value.value<QColor>();
            UiNode& n = node.append(QStringLiteral("color"));
            if (c.alpha() != 255) {
                n.setAttribute(QStringLiteral("alpha"), QString::number(c.alpha()));
            }
            n.append(QStringLiteral("red"), QString::number(c.red()));
            n.append(QStringLiteral("green"), QString::number(c.green()));
            n.append(QStringLiteral("blue"), QString::number(c.blue()));
            break;
        }
        case QMetaType::QFont:
            writeFont(node.append(QStringLiteral("font")), value.value<QFont>());
            break;
        case QMetaType::QRect: {
            const QRect r = value.toRect();
            UiNode& n = node.append(QStringLiteral("rect"));
            n.append(QStringLiteral("x"), QString::number(r.x()));
            n.append(QStringLiteral("y"), QString::number(r.y()));
            n.append(QStringLiteral("width"), QString::number(r.width()));
            n.append(QStringLiteral("height"), QString::number(r.height()));
            break;
        }
        case QMetaType::QSize: {
            const QSize s = value.toSize();
            UiNode& n = node.append(QStringLiteral("size"));
            n.append(QStringLiteral("width"), QString::number(s.width()));
            n.append(QStringLiteral("height"), QString::number(s.height()));
            break;
        }
        case QMetaType::QPoint: {
            const QPoint p = value.toPoint();
            UiNode& n = node.append(QStringLiteral("point"));
            n.append(QStringLiteral("x"), QString::number(p.x()));
            n.append(QStringLiteral("y"), QString::number(p.y()));
            break;
        }
        case QMetaType::QStringList: {
            UiNode& n = node.append(QStringLiteral("stringlist"));
            for (const QString& s : value.toStringList()) {
                n.append(QStringLiteral("string"), s);
            }
            break;
        }
        case QMetaType::QDate:
        case QMetaType::QTime:
        case QMetaType::QDateTime: {
            const int id = value.metaType().id();
            const QDateTime dt = id == QMetaType::QDate ? QDateTime(value.toDate(), QTime())
                                 : id == QMetaType::QTime
                                     ? QDateTime(QDate(2000, 1, 1), value.toTime())
                                     : value.toDateTime();
            UiNode& n = node.append(id == QMetaType::QDate   ? QStringLiteral("date")
                                    : id == QMetaType::QTime ? QStringLiteral("time")
                                                             : QStringLiteral("datetime"));
            if (id != QMetaType::QTime) {
                n.append(QStringLiteral("year"), QString::number(dt.date().year()));
                n.append(QStringLiteral("month"), QString::number(dt.date().month()));
                n.append(QStringLiteral("day"), QString::number(dt.date().day()));
            }
            if (id != QMetaType::QDate) {
                n.append(QStringLiteral("hour"), QString::number(dt.time().hour()));
                n.append(QStringLiteral("minute"), QString::number(dt.time().minute()));
                n.append(QStringLiteral("second"), QString::number(dt.time().second()));
            }
            break;
        }
        default:
            node.append(QStringLiteral("string"), value.toString());
            break;
    }
    return node;
}

}  // namespace vorelle
