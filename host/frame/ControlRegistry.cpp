#include "host/frame/ControlRegistry.h"

#include <QMetaObject>
#include <vector>

#include "host/frame/ControlBase.h"

namespace vorelle {

namespace {

struct Entry {
    const QMetaObject* meta;
    ControlRegistry::Factory factory;
};

std::vector<Entry>& entries() {
    static std::vector<Entry> list;
    return list;
}

const Entry* find(const QString& name) {
    QString bare = name;
    if (bare.startsWith(u"vorelle::")) {
        bare = bare.mid(9);
    }
    for (const Entry& e : entries()) {
        QString className = QString::fromLatin1(e.meta->className());
        if (className.startsWith(u"vorelle::")) {
            className = className.mid(9);
        }
        if (className == bare || ControlBase::classInfo(e.meta, "TypeName") == bare) {
            return &e;
        }
    }
    return nullptr;
}

}  // namespace

bool ControlRegistry::add(const QMetaObject* meta, Factory factory) {
    entries().push_back({meta, std::move(factory)});
    return true;
}

ControlBase* ControlRegistry::create(const QString& name, QWidget* parent) {
    const Entry* e = find(name);
    return e ? e->factory(parent) : nullptr;
}

bool ControlRegistry::contains(const QString& name) { return find(name) != nullptr; }

QList<const QMetaObject*> ControlRegistry::classes() {
    QList<const QMetaObject*> result;
    for (const Entry& e : entries()) {
        result.append(e.meta);
    }
    return result;
}

}  // namespace vorelle
