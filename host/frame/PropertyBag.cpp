#include "host/frame/PropertyBag.h"

#include <QFont>
#include <cmath>

namespace vorelle {

namespace {

bool isInteger(const QVariant& v) {
    switch (v.metaType().id()) {
        case QMetaType::Int:
        case QMetaType::UInt:
        case QMetaType::LongLong:
        case QMetaType::ULongLong:
        case QMetaType::Short:
        case QMetaType::UShort:
        case QMetaType::Long:
        case QMetaType::ULong:
        case QMetaType::Char:
        case QMetaType::SChar:
        case QMetaType::UChar:
            return true;
        default:
            return false;
    }
}

bool isNumber(const QVariant& v) {
    return isInteger(v) || v.metaType().id() == QMetaType::Double ||
           v.metaType().id() == QMetaType::Float;
}

bool isText(const QVariant& v) {
    return v.metaType().id() == QMetaType::QString || v.metaType().id() == QMetaType::QByteArray;
}

// Converts a stored value to the type of the default; false when it is not of that kind.
bool convertTo(const QVariant& stored, const QVariant& def, QVariant* out) {
    const int target = def.metaType().id();
    if (stored.metaType() == def.metaType()) {
        *out = stored;
        return true;
    }
    switch (target) {
        case QMetaType::Bool:
            if (isNumber(stored)) {
                *out = stored.toDouble() != 0.0;
                return true;
            }
            if (isText(stored)) {
                const QString t = stored.toString().trimmed().toLower();
                if (t == u"true" || t == u"-1" || t == u"1") {
                    *out = true;
                    return true;
                }
                if (t == u"false" || t == u"0") {
                    *out = false;
                    return true;
                }
            }
            return false;
        case QMetaType::Int:
        case QMetaType::UInt:
        case QMetaType::LongLong:
        case QMetaType::Short: {
            bool ok = false;
            qint64 n = 0;
            if (isInteger(stored)) {
                n = stored.toLongLong(&ok);
            } else if (stored.metaType().id() == QMetaType::Double) {
                const double d = stored.toDouble();
                ok = std::isfinite(d) && std::floor(d) == d;
                n = static_cast<qint64>(d);
            } else if (stored.metaType().id() == QMetaType::Bool) {
                ok = true;
                n = stored.toBool() ? -1 : 0;
            } else if (isText(stored)) {
                const QString t = stored.toString().trimmed();
                n = t.toLongLong(&ok, 10);
                if (!ok && t.startsWith(u"0x", Qt::CaseInsensitive)) {
                    n = t.mid(2).toLongLong(&ok, 16);
                }
            }
            if (!ok) {
                return false;
            }
            QVariant v(n);
            if (target == QMetaType::Int && (n < INT32_MIN || n > UINT32_MAX)) {
                return false;
            }
            if (target == QMetaType::Int && n > INT32_MAX) {
                v = QVariant(static_cast<int>(static_cast<quint32>(n)));  // colours above 2^31
            } else if (!v.convert(def.metaType())) {
                return false;
            }
            *out = v;
            return true;
        }
        case QMetaType::Double:
        case QMetaType::Float: {
            bool ok = false;
            double d = 0;
            if (isNumber(stored)) {
                d = stored.toDouble(&ok);
            } else if (isText(stored)) {
                d = stored.toString().trimmed().toDouble(&ok);
            }
            if (!ok) {
                return false;
            }
            QVariant v(d);
            v.convert(def.metaType());
            *out = v;
            return true;
        }
        case QMetaType::QString:
            if (isText(stored)) {
                *out = stored.toString();
                return true;
            }
            return false;
        case QMetaType::QFont:
            if (isText(stored)) {
                QFont f;
                if (f.fromString(stored.toString())) {
                    *out = f;
                    return true;
                }
            }
            return false;
        default: {
            QVariant v = stored;
            if (v.convert(def.metaType())) {
                *out = v;
                return true;
            }
            return false;
        }
    }
}

}  // namespace

PropertyError::PropertyError(const QString& message, QString property, QString file, int line)
    : std::runtime_error(message.toStdString()),
      property_(std::move(property)),
      file_(std::move(file)),
      line_(line) {}

const PropertyBag::Entry* PropertyBag::find(const QString& name) const {
    for (const Entry& e : entries_) {
        if (e.name.compare(name, Qt::CaseInsensitive) == 0) {
            return &e;
        }
    }
    return nullptr;
}

bool PropertyBag::contains(const QString& name) const { return find(name) != nullptr; }

QVariant PropertyBag::ReadProperty(const QString& Name, const QVariant& Default) const {
    const Entry* e = find(Name);
    if (!e) {
        return Default;
    }
    if (!Default.isValid()) {
        return e->value;
    }
    QVariant out;
    if (!convertTo(e->value, Default, &out)) {
        const QString where = file_.isEmpty() ? QString() : file_ + u':' + QString::number(e->line) + QStringLiteral(": ");
        throw PropertyError(
            QStringLiteral("%1property '%2' holds '%3', which is not a value of type %4")
                .arg(where, Name, e->value.toString(), QString::fromLatin1(Default.typeName())),
            Name, file_, e->line);
    }
    return out;
}

bool PropertyBag::sameValue(const QVariant& a, const QVariant& b) {
    if (a.metaType() == b.metaType()) {
        return a == b;
    }
    if (isNumber(a) && isNumber(b)) {
        return a.toDouble() == b.toDouble();
    }
    return QVariant::compare(a, b) == QPartialOrdering::Equivalent;
}

void PropertyBag::WriteProperty(const QString& Name, const QVariant& Value, const QVariant& Default) {
    entries_.removeIf([&](const Entry& e) { return e.name.compare(Name, Qt::CaseInsensitive) == 0; });
    if (!sameValue(Value, Default)) {
        entries_.append({Name, Value, 0});
    }
}

void PropertyBag::insert(const QString& name, const QVariant& value, int line) {
    entries_.removeIf([&](const Entry& e) { return e.name.compare(name, Qt::CaseInsensitive) == 0; });
    entries_.append({name, value, line});
}

}  // namespace vorelle
