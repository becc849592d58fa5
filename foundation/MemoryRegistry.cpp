#include "foundation/MemoryRegistry.h"

#include <QStringList>
#include <vector>

namespace vorelle {

struct MemoryRegistry::Node {
    QString name;
    std::vector<std::unique_ptr<Node>> children;
    std::vector<std::pair<QString, QByteArray>> values;

    Node* child(const QString& part) const {
        for (const auto& c : children) {
            if (c->name.compare(part, Qt::CaseInsensitive) == 0) {
                return c.get();
            }
        }
        return nullptr;
    }
    auto value(const QString& valueName) {
        auto it = values.begin();
        while (it != values.end() && it->first.compare(valueName, Qt::CaseInsensitive) != 0) {
            ++it;
        }
        return it;
    }
};

MemoryRegistry::MemoryRegistry() = default;
MemoryRegistry::~MemoryRegistry() = default;

MemoryRegistry::Node* MemoryRegistry::find(quint32 root, const QString& subKey, bool create) {
    auto& top = roots_[root];
    if (!top) {
        top = std::make_unique<Node>();
    }
    Node* current = top.get();
    const QStringList parts = subKey.split(u'\\', Qt::SkipEmptyParts);
    for (const QString& part : parts) {
        Node* next = current->child(part);
        if (!next) {
            if (!create) {
                return nullptr;
            }
            current->children.push_back(std::make_unique<Node>());
            next = current->children.back().get();
            next->name = part;
        }
        current = next;
    }
    return current;
}

MemoryRegistry::Node* MemoryRegistry::node(RegHandle key) const {
    const auto it = open_.find(key);
    return it == open_.end() ? nullptr : it->second;
}

long MemoryRegistry::openKey(quint32 root, const QString& subKey, RegHandle* key) {
    Node* n = find(root, subKey, false);
    if (!n) {
        *key = 0;
        return REG_FILE_NOT_FOUND;
    }
    *key = next_++;
    open_[*key] = n;
    return REG_SUCCESS;
}

long MemoryRegistry::createKey(quint32 root, const QString& subKey, RegHandle* key) {
    *key = next_++;
    open_[*key] = find(root, subKey, true);
    return REG_SUCCESS;
}

long MemoryRegistry::closeKey(RegHandle key) {
    return open_.erase(key) ? REG_SUCCESS : REG_INVALID_HANDLE;
}

long MemoryRegistry::queryValue(RegHandle key, const QString& name, QByteArray* data) {
    Node* n = node(key);
    if (!n) {
        return REG_INVALID_HANDLE;
    }
    const auto it = n->value(name);
    if (it == n->values.end()) {
        return REG_FILE_NOT_FOUND;
    }
    *data = it->second;
    return REG_SUCCESS;
}

long MemoryRegistry::setValue(RegHandle key, const QString& name, const QByteArray& data) {
    Node* n = node(key);
    if (!n) {
        return REG_INVALID_HANDLE;
    }
    const auto it = n->value(name);
    if (it == n->values.end()) {
        n->values.emplace_back(name, data);
    } else {
        it->second = data;
    }
    return REG_SUCCESS;
}

long MemoryRegistry::deleteValue(RegHandle key, const QString& name) {
    Node* n = node(key);
    if (!n) {
        return REG_INVALID_HANDLE;
    }
    const auto it = n->value(name);
    if (it == n->values.end()) {
        return REG_FILE_NOT_FOUND;
    }
    n->values.erase(it);
    return REG_SUCCESS;
}

long MemoryRegistry::deleteKey(quint32 root, const QString& subKey) {
    QStringList parts = subKey.split(u'\\', Qt::SkipEmptyParts);
    if (parts.isEmpty()) {
        return REG_ACCESS_DENIED;
    }
    const QString last = parts.takeLast();
    Node* parent = find(root, parts.join(u'\\'), false);
    Node* target = parent ? parent->child(last) : nullptr;
    if (!target) {
        return REG_FILE_NOT_FOUND;
    }
    if (!target->children.empty()) {
        return REG_ACCESS_DENIED;
    }
    for (auto it = open_.begin(); it != open_.end();) {
        it = it->second == target ? open_.erase(it) : std::next(it);
    }
    std::erase_if(parent->children, [target](const auto& c) { return c.get() == target; });
    return REG_SUCCESS;
}

long MemoryRegistry::enumKey(RegHandle key, quint32 index, QString* name) {
    Node* n = node(key);
    if (!n) {
        return REG_INVALID_HANDLE;
    }
    if (index >= n->children.size()) {
        return REG_NO_MORE_ITEMS;
    }
    *name = n->children[index]->name;
    return REG_SUCCESS;
}

long MemoryRegistry::enumValues(RegHandle key, QStringList* names) {
    Node* n = node(key);
    if (!n) {
        return REG_INVALID_HANDLE;
    }
    names->clear();
    for (const auto& [valueName, data] : n->values) {
        names->append(valueName);
    }
    return REG_SUCCESS;
}

}  // namespace vorelle
