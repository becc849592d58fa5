#pragma once

#include <map>
#include <memory>

#include "foundation/RegistryBackend.h"

namespace vorelle {

/// A registry tree held in memory: the test double of the store, and the backend of a
/// process that must not touch the user's store.
class VORELLE_EXPORT MemoryRegistry : public RegistryBackend {
public:
    MemoryRegistry();
    ~MemoryRegistry() override;

    long openKey(quint32 root, const QString& subKey, RegHandle* key) override;
    long createKey(quint32 root, const QString& subKey, RegHandle* key) override;
    long closeKey(RegHandle key) override;
    long queryValue(RegHandle key, const QString& name, QByteArray* data) override;
    long setValue(RegHandle key, const QString& name, const QByteArray& data) override;
    long deleteValue(RegHandle key, const QString& name) override;
    long deleteKey(quint32 root, const QString& subKey) override;
    long enumKey(RegHandle key, quint32 index, QString* name) override;
    long enumValues(RegHandle key, QStringList* names) override;

private:
    struct Node;
    Node* find(quint32 root, const QString& subKey, bool create);
    Node* node(RegHandle key) const;

    std::map<quint32, std::unique_ptr<Node>> roots_;
    std::map<RegHandle, Node*> open_;
    RegHandle next_ = 1;
};

}  // namespace vorelle
