#pragma once

#ifdef _WIN32

#include "foundation/RegistryBackend.h"

namespace vorelle {

/// The Windows registry through advapi32: the store's backend on Windows. Key names go
/// through the process's ANSI code page; value data are handed over as they are (REG_SZ).
class VORELLE_EXPORT WinRegistry : public RegistryBackend {
public:
    long openKey(quint32 root, const QString& subKey, RegHandle* key) override;
    long createKey(quint32 root, const QString& subKey, RegHandle* key) override;
    long closeKey(RegHandle key) override;
    long queryValue(RegHandle key, const QString& name, QByteArray* data) override;
    long setValue(RegHandle key, const QString& name, const QByteArray& data) override;
    long deleteValue(RegHandle key, const QString& name) override;
    long deleteKey(quint32 root, const QString& subKey) override;
    long enumKey(RegHandle key, quint32 index, QString* name) override;
    long enumValues(RegHandle key, QStringList* names) override;
};

}  // namespace vorelle

#endif
