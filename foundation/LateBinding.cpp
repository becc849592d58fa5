#include "foundation/LateBinding.h"

#include <QMetaMethod>
#include <QMetaObject>
#include <QMetaProperty>
#include <array>

namespace vorelle {

namespace {

int findMethod(const QMetaObject* meta, const char* member, qsizetype argc) {
    const QByteArray name(member);
    for (int i = meta->methodCount() - 1; i >= 0; --i) {
        const QMetaMethod m = meta->method(i);
        if (m.name() == name && m.parameterCount() == argc) {
            return i;
        }
    }
    return -1;
}

}  // namespace

QVariant LateCall(QObject* object, const char* member, QVariantList& args, bool* ok) {
    if (ok) {
        *ok = false;
    }
    if (!object || !member) {
        return {};
    }
    const QMetaObject* meta = object->metaObject();
    const int index = findMethod(meta, member, args.size());
    if (index < 0) {
        if (args.isEmpty()) {
            return LateGet(object, member, ok);
        }
        if (args.size() == 1 && meta->indexOfProperty(member) >= 0) {
            const bool written = LateSet(object, member, args.front());
            if (ok) {
                *ok = written;
            }
        }
        return {};
    }
    const QMetaMethod method = meta->method(index);
    if (args.size() > 10) {
        return {};
    }
    // Convert each argument to the declared parameter type; references are
    // handed over as pointers to the converted value and copied back afterwards.
    std::array<void*, 11> argv{};
    QVariantList converted;
    converted.reserve(args.size());
    for (qsizetype i = 0; i < args.size(); ++i) {
        QByteArray type = method.parameterTypes().at(i);
        const bool byRef = type.endsWith('&');
        if (byRef) {
            type.chop(1);
            if (type.startsWith("const ")) {
                type.remove(0, 6);
            }
        }
        const QMetaType metaType = QMetaType::fromName(type);
        if (!metaType.isValid()) {
            return {};
        }
        QVariant value = args.at(i);
        if (value.metaType() != metaType) {
            if (!value.isValid()) {
                value = QVariant(metaType);
            } else if (!value.convert(metaType)) {
                return {};
            }
        }
        converted.append(value);
    }
    QVariant result;
    const QMetaType returnType = method.returnMetaType();
    if (returnType.isValid() && returnType.id() != QMetaType::Void) {
        result = QVariant(returnType);
        argv[0] = result.data();
    }
    for (qsizetype i = 0; i < converted.size(); ++i) {
        argv[static_cast<size_t>(i) + 1] = converted[i].data();
    }
    object->qt_metacall(QMetaObject::InvokeMetaMethod, index, argv.data());
    for (qsizetype i = 0; i < converted.size(); ++i) {
        if (method.parameterTypes().at(i).endsWith('&')) {
            args[i] = converted[i];
        }
    }
    if (ok) {
        *ok = true;
    }
    return result;
}

QVariant LateCall(QObject* object, const char* member, const QVariantList& args, bool* ok) {
    QVariantList copy = args;
    return LateCall(object, member, copy, ok);
}

QVariant LateGet(const QObject* object, const char* property, bool* ok) {
    if (ok) {
        *ok = false;
    }
    if (!object || !property) {
        return {};
    }
    const int index = object->metaObject()->indexOfProperty(property);
    QVariant value;
    if (index >= 0) {
        value = object->metaObject()->property(index).read(object);
    } else {
        value = object->property(property);
    }
    if (ok) {
        *ok = value.isValid();
    }
    return value;
}

bool LateSet(QObject* object, const char* property, const QVariant& value) {
    if (!object || !property) {
        return false;
    }
    const int index = object->metaObject()->indexOfProperty(property);
    if (index < 0) {
        return false;
    }
    const QMetaProperty meta = object->metaObject()->property(index);
    if (!meta.isWritable()) {
        return false;
    }
    QVariant converted = value;
    if (converted.metaType() != meta.metaType() && !converted.convert(meta.metaType())) {
        return false;
    }
    return meta.write(object, converted);
}

bool LateHas(const QObject* object, const char* member) {
    if (!object || !member) {
        return false;
    }
    const QMetaObject* meta = object->metaObject();
    if (meta->indexOfProperty(member) >= 0) {
        return true;
    }
    const QByteArray name(member);
    for (int i = 0; i < meta->methodCount(); ++i) {
        if (meta->method(i).name() == name) {
            return true;
        }
    }
    return false;
}

}  // namespace vorelle
