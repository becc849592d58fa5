#include "host/frame/Registration.h"

#include <QDir>
#include <QFileInfo>
#include <QMetaObject>

#include "foundation/LibraryFolder.h"
#include "foundation/RegStore.h"
#include "foundation/RegistryBackend.h"
#include "host/frame/ControlBase.h"
#include "host/frame/ControlRegistry.h"

// <windows.h>, which Qt's headers bring in on Windows, defines RegDeleteTree as a macro;
// the store's routine of that name is the one meant here.
#ifdef RegDeleteTree
#undef RegDeleteTree
#endif

namespace vorelle {

TypeLibraryInfo TypeLibrary() {
    return {QStringLiteral("Vorelle"),
            QStringLiteral("Vorelle"),
            QStringLiteral("{966305F4-05EE-4523-B88F-86CBC426766E}"),
            13,
            9,
            1033};
}

QList<ClassRegistration> RegisteredClasses() {
    QList<ClassRegistration> result;
    for (const QMetaObject* meta : ControlRegistry::classes()) {
        QString className = QString::fromLatin1(meta->className());
        if (className.startsWith(u"vorelle::")) {
            className = className.mid(9);
        }
        const QString classId = ControlBase::classInfo(meta, "ClassId");
        if (classId.isEmpty()) {
            continue;  // an application's own control, known to the loader only
        }
        const QString typeName = ControlBase::classInfo(meta, "TypeName");
        result.append({className, typeName, classId, u'_' + typeName,
                       ControlBase::classInfo(meta, "InterfaceId"), QStringLiteral("__") + typeName,
                       ControlBase::classInfo(meta, "EventInterfaceId"),
                       ControlBase::classInfo(meta, "AboutHeader")});
    }
    return result;
}

namespace {

// The proxy and stub of interfaces described by a type library (the automation marshaler).
constexpr char16_t kAutomationProxy[] = u"{00020424-0000-0000-C000-000000000046}";

QString progId(const ClassRegistration& c) {
    return QStringLiteral("Vorelle.") + c.typeName;
}

QString libraryVersion(const TypeLibraryInfo& lib) {
    return QString::number(lib.versionMajor) + u'.' + QString::number(lib.versionMinor);
}

// Keys and values of one registration, written in order; the first failure stops it.
class RegistrationWriter {
public:
    RegistrationWriter(RegistryBackend& backend, quint32 root, const QString& classesKey)
        : backend_(backend), root_(root), prefix_(classesKey) {
        if (!prefix_.isEmpty() && !prefix_.endsWith(u'\\')) {
            prefix_ += u'\\';
        }
    }

    // Sets value name (an empty name: the key's default value) of key below the classes.
    void set(const QString& key, const QString& name, const QString& value) {
        if (status_ != REG_SUCCESS) {
            return;
        }
        RegHandle handle = 0;
        status_ = backend_.createKey(root_, prefix_ + key, &handle);
        if (status_ == REG_SUCCESS) {
            status_ = backend_.setValue(handle, name, ToAnsi(value));
            backend_.closeKey(handle);
        }
    }

    long status() const { return status_; }

private:
    RegistryBackend& backend_;
    quint32 root_;
    QString prefix_;
    long status_ = REG_SUCCESS;
};

// The keys below the classes that belong to the registration, each removed as a tree.
QStringList registrationKeys() {
    QStringList keys;
    for (const ClassRegistration& c : RegisteredClasses()) {
        keys << QStringLiteral("CLSID\\") + c.classId << progId(c);
        if (!c.interfaceId.isEmpty()) {
            keys << QStringLiteral("Interface\\") + c.interfaceId;
        }
        if (!c.eventInterfaceId.isEmpty()) {
            keys << QStringLiteral("Interface\\") + c.eventInterfaceId;
        }
    }
    const TypeLibraryInfo lib = TypeLibrary();
    keys << QStringLiteral("TypeLib\\") + lib.libraryId + u'\\' + libraryVersion(lib);
    return keys;
}

long removeKeys(quint32 root, const QString& classesKey) {
    QString prefix = classesKey;
    if (!prefix.isEmpty() && !prefix.endsWith(u'\\')) {
        prefix += u'\\';
    }
    long result = REG_SUCCESS;
    for (const QString& key : registrationKeys()) {
        RegHandle handle = 0;
        if (RegistryBackend::instance().openKey(root, prefix + key, &handle) != REG_SUCCESS) {
            continue;  // not there: nothing to remove
        }
        RegistryBackend::instance().closeKey(handle);
        const long status = RegDeleteTree(root, prefix + key);
        if (status != REG_SUCCESS && result == REG_SUCCESS) {
            result = status;
        }
    }
    // The library's key of the type library goes when no other version is left below it.
    const QString libraryKey = prefix + QStringLiteral("TypeLib\\") + TypeLibrary().libraryId;
    RegHandle handle = 0;
    if (RegistryBackend::instance().openKey(root, libraryKey, &handle) == REG_SUCCESS) {
        QString child;
        const bool empty = RegistryBackend::instance().enumKey(handle, 0, &child) != REG_SUCCESS;
        RegistryBackend::instance().closeKey(handle);
        if (empty) {
            RegistryBackend::instance().deleteKey(root, libraryKey);
        }
    }
    return result;
}

}  // namespace

long WriteClassRegistration(quint32 root, const QString& classesKey, const QString& serverPath) {
    RegistryBackend& backend = RegistryBackend::instance();
    const TypeLibraryInfo lib = TypeLibrary();
    const QString version = libraryVersion(lib);
    const QString server = QDir::toNativeSeparators(serverPath);
    const QString empty;
    backend.begin(true);
    RegistrationWriter w(backend, root, classesKey);
    for (const ClassRegistration& c : RegisteredClasses()) {
        const QString clsid = QStringLiteral("CLSID\\") + c.classId;
        w.set(clsid, empty, progId(c));
        w.set(clsid + QStringLiteral("\\InprocServer32"), empty, server);
        w.set(clsid + QStringLiteral("\\InprocServer32"), QStringLiteral("ThreadingModel"),
              QStringLiteral("Apartment"));
        w.set(clsid + QStringLiteral("\\ProgID"), empty, progId(c));
        w.set(clsid + QStringLiteral("\\VERSION"), empty, version);
        w.set(clsid + QStringLiteral("\\TypeLib"), empty, lib.libraryId);
        w.set(clsid + QStringLiteral("\\Control"), empty, empty);
        w.set(progId(c), empty, progId(c));
        w.set(progId(c) + QStringLiteral("\\CLSID"), empty, c.classId);
        const std::pair<QString, QString> interfaces[] = {
            {c.interfaceId, c.interfaceName}, {c.eventInterfaceId, c.eventInterfaceName}};
        for (const auto& [id, name] : interfaces) {
            if (id.isEmpty()) {
                continue;
            }
            const QString key = QStringLiteral("Interface\\") + id;
            w.set(key, empty, name);
            w.set(key + QStringLiteral("\\ProxyStubClsid32"), empty,
                  QString::fromUtf16(kAutomationProxy));
            w.set(key + QStringLiteral("\\TypeLib"), empty, lib.libraryId);
            w.set(key + QStringLiteral("\\TypeLib"), QStringLiteral("Version"), version);
        }
    }
    const QString libKey = QStringLiteral("TypeLib\\") + lib.libraryId + u'\\' + version;
    w.set(libKey, empty, lib.helpString);
    w.set(libKey + u'\\' + QString::number(lib.locale) +
              (sizeof(void*) == 8 ? QStringLiteral("\\win64") : QStringLiteral("\\win32")),
          empty, server);
    w.set(libKey + QStringLiteral("\\FLAGS"), empty, QStringLiteral("0"));
    w.set(libKey + QStringLiteral("\\HELPDIR"), empty,
          QDir::toNativeSeparators(QFileInfo(serverPath).absolutePath()));
    if (w.status() != REG_SUCCESS) {
        // A backend without groups keeps what was written: take it back by hand.
        backend.cancel();
        removeKeys(root, classesKey);
    }
    const long ended = backend.end();
    return w.status() != REG_SUCCESS ? w.status() : ended;
}

long RemoveClassRegistration(quint32 root, const QString& classesKey) {
    RegistryBackend& backend = RegistryBackend::instance();
    backend.begin(true);
    const long status = removeKeys(root, classesKey);
    if (status != REG_SUCCESS) {
        backend.cancel();
    }
    const long ended = backend.end();
    return status != REG_SUCCESS ? status : ended;
}

}  // namespace vorelle

extern "C" {

VorelleHResult VORELLE_ENTRY_POINT DllRegisterServer() {
#ifdef _WIN32
    using namespace vorelle;
    const QString server = LibraryFilePath();
    if (server.isEmpty()) {
        return kVorelleRegistrationFailed;
    }
    long status = WriteClassRegistration(vorelle::HKEY_CLASSES_ROOT, QString(), server);
    if (status == REG_ACCESS_DENIED) {
        // No administrator: the user's own classes, which Windows merges into the view.
        status = WriteClassRegistration(vorelle::HKEY_CURRENT_USER,
                                        QStringLiteral("Software\\Classes"), server);
    }
    return status == REG_SUCCESS ? kVorelleOk : kVorelleRegistrationFailed;
#else
    return kVorelleOk;
#endif
}

VorelleHResult VORELLE_ENTRY_POINT DllUnregisterServer() {
#ifdef _WIN32
    using namespace vorelle;
    const long machine = RemoveClassRegistration(vorelle::HKEY_CLASSES_ROOT, QString());
    const long user =
        RemoveClassRegistration(vorelle::HKEY_CURRENT_USER, QStringLiteral("Software\\Classes"));
    const bool ok = (machine == REG_SUCCESS || machine == REG_ACCESS_DENIED) && user == REG_SUCCESS;
    return ok ? kVorelleOk : kVorelleRegistrationFailed;
#else
    return kVorelleOk;
#endif
}

VorelleHResult VORELLE_ENTRY_POINT DllGetClassObject(VorelleClassIdRef, VorelleInterfaceIdRef,
                                                     void** ppv) {
    if (ppv) {
        *ppv = nullptr;
    }
    return kVorelleClassNotAvailable;
}

VorelleHResult VORELLE_ENTRY_POINT DllCanUnloadNow() {
    return vorelle::ControlBase::liveInstances() == 0 ? kVorelleOk : kVorelleFalse;
}
}
