#include "host/frame/Registration.h"

#include <QMetaObject>

#include "host/frame/ControlBase.h"
#include "host/frame/ControlRegistry.h"

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
        result.append({className, typeName, classId,
                       u'_' + typeName, ControlBase::classInfo(meta, "InterfaceId"),
                       QStringLiteral("__") + typeName,
                       ControlBase::classInfo(meta, "EventInterfaceId"),
                       ControlBase::classInfo(meta, "AboutHeader")});
    }
    return result;
}

}  // namespace vorelle

extern "C" {

VorelleHResult DllRegisterServer() {
    return kVorelleOk;
}

VorelleHResult DllUnregisterServer() {
    return kVorelleOk;
}

VorelleHResult DllGetClassObject(const void*, const void*, void** ppv) {
    if (ppv) {
        *ppv = nullptr;
    }
    return kVorelleClassNotAvailable;
}

VorelleHResult DllCanUnloadNow() {
    return vorelle::ControlBase::liveInstances() == 0 ? kVorelleOk : kVorelleFalse;
}
}
