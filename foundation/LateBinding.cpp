#include "foundation/LateBinding.h"

#include <QMetaMethod>
#include <QMetaObject>
#include <QMetaProperty>
#include <array>
#include <string>
#include <string_view>
#include <unordered_map>

namespace vorelle {

namespace {

// What a class offers under one name, found once per class and name: the method for each
// number of arguments asked for (with its parameter types), the property, and whether any
// method has the name. Every late-bound call of the running program meets the same few
// classes and names again and again.
struct MethodEntry {
    int index = -1;
    QList<QMetaType> types;  // the parameter types without reference and const
    QList<bool> byRef;       // parameters declared as references get the new value back
    bool convertible = false;
};

struct MemberEntry {
    int property = -1;
    bool hasMethod = false;
    std::unordered_map<qsizetype, MethodEntry> methods;  // by number of arguments
};

struct Key {
    const QMetaObject* meta;
    std::string name;
};

struct KeyView {
    const QMetaObject* meta;
    std::string_view name;
};

struct KeyHash {
    using is_transparent = void;
    size_t operator()(const KeyView& k) const {
        return std::hash<std::string_view>{}(k.name) ^ (std::hash<const void*>{}(k.meta) << 1);
    }
    size_t operator()(const Key& k) const { return (*this)(KeyView{k.meta, k.name}); }
};

struct KeyEq {
    using is_transparent = void;
    static KeyView view(const Key& k) { return {k.meta, k.name}; }
    static KeyView view(const KeyView& k) { return k; }
    template <typename A, typename B>
    bool operator()(const A& a, const B& b) const {
        const KeyView x = view(a);
        const KeyView y = view(b);
        return x.meta == y.meta && x.name == y.name;
    }
};

using MemberCache = std::unordered_map<Key, MemberEntry, KeyHash, KeyEq>;

// One cache per thread: no locks, and a class's meta-object lives as long as the program.
MemberCache& cache() {
    thread_local MemberCache members;
    return members;
}

MemberEntry& memberOf(const QMetaObject* meta, const char* member) {
    MemberCache& members = cache();
    const std::string_view name(member);
    if (const auto it = members.find(KeyView{meta, name}); it != members.end()) {
        return it->second;
    }
    MemberEntry entry;
    entry.property = meta->indexOfProperty(member);
    for (int i = 0; i < meta->methodCount() && !entry.hasMethod; ++i) {
        entry.hasMethod = meta->method(i).name() == QByteArrayView(member);
    }
    return members.emplace(Key{meta, std::string(name)}, std::move(entry)).first->second;
}

const MethodEntry& methodOf(const QMetaObject* meta, const char* member, MemberEntry& entry,
                            qsizetype argc) {
    if (const auto it = entry.methods.find(argc); it != entry.methods.end()) {
        return it->second;
    }
    MethodEntry method;
    if (entry.hasMethod) {
        const QByteArrayView name(member);
        for (int i = meta->methodCount() - 1; i >= 0; --i) {
            const QMetaMethod m = meta->method(i);
            if (m.name() == name && m.parameterCount() == argc) {
                method.index = i;
                break;
            }
        }
    }
    if (method.index >= 0) {
        method.convertible = true;
        const QList<QByteArray> types = meta->method(method.index).parameterTypes();
        for (QByteArray type : types) {
            const bool byRef = type.endsWith('&');
            if (byRef) {
                type.chop(1);
                if (type.startsWith("const ")) {
                    type.remove(0, 6);
                }
            }
            const QMetaType metaType = QMetaType::fromName(type);
            method.convertible = method.convertible && metaType.isValid();
            method.types.append(metaType);
            method.byRef.append(byRef);
        }
    }
    return entry.methods.emplace(argc, std::move(method)).first->second;
}

}  // namespace

QVariant LateCallByRef(QObject* object, const char* member, QVariantList& args, bool* ok) {
    if (ok) {
        *ok = false;
    }
    if (!object || !member) {
        return {};
    }
    const QMetaObject* meta = object->metaObject();
    MemberEntry& entry = memberOf(meta, member);
    const MethodEntry& found = methodOf(meta, member, entry, args.size());
    if (found.index < 0) {
        if (args.isEmpty()) {
            return LateGet(object, member, ok);
        }
        if (args.size() == 1 && entry.property >= 0) {
            const bool written = LateSet(object, member, args.front());
            if (ok) {
                *ok = written;
            }
        }
        return {};
    }
    if (args.size() > 10 || !found.convertible) {
        return {};
    }
    // Convert each argument to the declared parameter type; references are
    // handed over as pointers to the converted value and copied back afterwards.
    std::array<void*, 11> argv{};
    QVariantList converted;
    converted.reserve(args.size());
    for (qsizetype i = 0; i < args.size(); ++i) {
        const QMetaType metaType = found.types.at(i);
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
    const QMetaMethod method = meta->method(found.index);
    QVariant result;
    const QMetaType returnType = method.returnMetaType();
    if (returnType == QMetaType::fromType<QVariant>()) {
        argv[0] = &result;  // a member that returns a QVariant gives it as it is
    } else if (returnType.isValid() && returnType.id() != QMetaType::Void) {
        result = QVariant(returnType);
        argv[0] = result.data();
    }
    for (qsizetype i = 0; i < converted.size(); ++i) {
        argv[static_cast<size_t>(i) + 1] = converted[i].data();
    }
    // A member that throws is an error like any other: trapped here, never the caller's.
    try {
        object->qt_metacall(QMetaObject::InvokeMetaMethod, found.index, argv.data());
    } catch (...) {
        return {};
    }
    for (qsizetype i = 0; i < converted.size(); ++i) {
        if (found.byRef.at(i)) {
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
    return LateCallByRef(object, member, copy, ok);
}

QVariant LateGet(const QObject* object, const char* property, bool* ok) {
    if (ok) {
        *ok = false;
    }
    if (!object || !property) {
        return {};
    }
    const int index = memberOf(object->metaObject(), property).property;
    QVariant value;
    try {
        if (index >= 0) {
            value = object->metaObject()->property(index).read(object);
        } else {
            value = object->property(property);
        }
    } catch (...) {
        return {};
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
    const int index = memberOf(object->metaObject(), property).property;
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
    const MemberEntry& entry = memberOf(object->metaObject(), member);
    return entry.property >= 0 || entry.hasMethod;
}

}  // namespace vorelle
