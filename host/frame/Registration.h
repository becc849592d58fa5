#pragma once

#include <QList>
#include <QString>
#include <cstdint>

#include "foundation/Export.h"

namespace vorelle {

/// The type library that a component registration describes.
struct TypeLibraryInfo {
    QString name;        ///< "Vorelle"
    QString helpString;  ///< "Vorelle"
    QString libraryId;   ///< {966305F4-05EE-4523-B88F-86CBC426766E}
    int versionMajor;    ///< 13
    int versionMinor;    ///< 9
    int locale;          ///< 1033
};

/// One control class as a registration writes it.
struct ClassRegistration {
    QString className;      ///< the C++ class, "Cmd"
    QString typeName;       ///< the type library's name, "cmd"
    QString classId;        ///< {80D02640-...}
    QString interfaceName;  ///< "_cmd"
    /// The identifier of the control's interface.
    QString interfaceId;
    QString eventInterfaceName;  ///< "__cmd"
    /// The identifier of the control's event interface.
    QString eventInterfaceId;
    QString aboutHeader;  ///< "ctrlCommandButton V 1.23"
};

/// The identity of the library's type library.
VORELLE_EXPORT TypeLibraryInfo TypeLibrary();
/// Every control class of the library (those registered with VORELLE_REGISTER_CONTROL that
/// carry a class identifier), in the order of registration. A Windows build writes these
/// under CLSID, Interface and TypeLib; other platforms have nothing to write.
VORELLE_EXPORT QList<ClassRegistration> RegisteredClasses();

}  // namespace vorelle

/// The four entry points of an in-process component server. Off Windows there is no
/// component registry: they are documented no-ops with the results that a server gives
/// when it has nothing to do. On Windows, <windows.h> declares them with its own types and
/// a program calls them through those; the declarations here serve the library's build.
using VorelleHResult = std::int32_t;
inline constexpr VorelleHResult kVorelleOk = 0;     ///< S_OK
inline constexpr VorelleHResult kVorelleFalse = 1;  ///< S_FALSE
inline constexpr VorelleHResult kVorelleClassNotAvailable =
    static_cast<VorelleHResult>(0x80040111);  ///< CLASS_E_CLASSNOTAVAILABLE

#if !defined(_WIN32) || defined(VORELLE_BUILDING_LIBRARY)
extern "C" {
/// Writes the classes and the type library into the component registry; S_OK (nothing to
/// write off Windows).
VORELLE_EXPORT VorelleHResult DllRegisterServer();
/// Removes what DllRegisterServer wrote; S_OK.
VORELLE_EXPORT VorelleHResult DllUnregisterServer();
/// Hands out the class factory of a class identifier. Off Windows controls are created
/// through vorelle::ControlRegistry instead: *ppv becomes null and the result is
/// CLASS_E_CLASSNOTAVAILABLE.
VORELLE_EXPORT VorelleHResult DllGetClassObject(const void* rclsid, const void* riid, void** ppv);
/// S_OK when no control instance is alive, S_FALSE otherwise.
VORELLE_EXPORT VorelleHResult DllCanUnloadNow();
}
#endif
