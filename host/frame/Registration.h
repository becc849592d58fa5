#pragma once

#include <QList>
#include <QString>
#include <cstdint>

#include "foundation/Export.h"
#include "foundation/WinHeaders.h"

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
/// carry a class identifier), in the order of registration.
VORELLE_EXPORT QList<ClassRegistration> RegisteredClasses();

// Writes the component registration of RegisteredClasses() into the store's backend below
// root\classesKey (HKEY_CLASSES_ROOT with "", or HKEY_CURRENT_USER with
// "Software\Classes"), naming serverPath as the in-process server. Per class:
// CLSID\{class} (ProgID, InprocServer32 with ThreadingModel "Apartment", ProgID, VERSION,
// TypeLib, Control), the ProgID "Vorelle.<typeName>" with its CLSID, and
// Interface\{...} for the class's interface and event interface; then
// TypeLib\{library}\<major>.<minor> with the server as win32 or win64 file. All of it is
// one group of the backend: on a failure the written entries are removed again. REG_SUCCESS
// or the status of the first call that failed.
VORELLE_EXPORT long WriteClassRegistration(quint32 root, const QString& classesKey,
                                           const QString& serverPath);
// Removes below root\classesKey every key that WriteClassRegistration writes, with what is
// below them; keys that are not there count as removed. REG_SUCCESS or the status of the
// first removal that failed.
VORELLE_EXPORT long RemoveClassRegistration(quint32 root, const QString& classesKey);

}  // namespace vorelle

/// The four entry points of an in-process component server. On Windows they are declared
/// as the platform's headers declare them (HRESULT, REFCLSID, REFIID).
#ifdef _WIN32
using VorelleHResult = HRESULT;
using VorelleClassIdRef = REFCLSID;
using VorelleInterfaceIdRef = REFIID;
#define VORELLE_ENTRY_POINT STDAPICALLTYPE
#else
using VorelleHResult = std::int32_t;
using VorelleClassIdRef = const void*;
using VorelleInterfaceIdRef = const void*;
#define VORELLE_ENTRY_POINT
#endif
inline constexpr VorelleHResult kVorelleOk = 0;     ///< S_OK
inline constexpr VorelleHResult kVorelleFalse = 1;  ///< S_FALSE
inline constexpr VorelleHResult kVorelleClassNotAvailable =
    static_cast<VorelleHResult>(0x80040111);  ///< CLASS_E_CLASSNOTAVAILABLE
inline constexpr VorelleHResult kVorelleRegistrationFailed =
    static_cast<VorelleHResult>(0x80040201);  ///< SELFREG_E_CLASS

#if !defined(_WIN32) || defined(VORELLE_BUILDING_LIBRARY)
extern "C" {
/// On Windows: writes the classes, their interfaces and the type library with this library's
/// file as server (WriteClassRegistration) into HKEY_CLASSES_ROOT, or, without the right to
/// write there, into HKEY_CURRENT_USER\Software\Classes; S_OK, or SELFREG_E_CLASS with
/// nothing written. Elsewhere there is no component registry and controls are created
/// through vorelle::ControlRegistry: nothing is written and the result is S_OK.
VORELLE_EXPORT VorelleHResult VORELLE_ENTRY_POINT DllRegisterServer();
/// On Windows: removes those entries from both places (a place that may not be written is
/// left alone); S_OK, or SELFREG_E_CLASS when a removal failed. Elsewhere nothing and S_OK.
VORELLE_EXPORT VorelleHResult VORELLE_ENTRY_POINT DllUnregisterServer();
/// Hands out the class factory of a class identifier. The library has none: controls are
/// created through vorelle::ControlRegistry on every platform, so *ppv becomes null and the
/// result is CLASS_E_CLASSNOTAVAILABLE.
VORELLE_EXPORT VorelleHResult VORELLE_ENTRY_POINT DllGetClassObject(VorelleClassIdRef rclsid,
                                                                    VorelleInterfaceIdRef riid,
                                                                    void** ppv);
/// S_OK when no control instance is alive, S_FALSE otherwise.
VORELLE_EXPORT VorelleHResult VORELLE_ENTRY_POINT DllCanUnloadNow();
}
#endif
