# The library, in two layers that end up in the one shared library libvorelle:
#
#   vorelle_foundation  foundation/: an OBJECT library that sees only QtCore and itself.
#                       Its include path holds foundation/ (through a link in the build
#                       folder), never the source root, so an #include of a host/ or control
#                       header does not resolve; and a QtGui, QtWidgets or QtUiTools header
#                       stops the compile with an #error (see vorelle_restrict_to_qtcore).
#   Vorelle             every other module folder plus the objects of vorelle_foundation.
#
# Every .cpp/.h/.qrc below the module folders is picked up on the next build
# (CONFIGURE_DEPENDS), so adding a class needs no edit here.
set(VORELLE_MODULES host formwizard textentry numberdate choice display pages automation)

# Headers that belong to the implementation: not installed, not in <vorelle/vorelle.h>.
# Every *_p.h is private as well.
set(VORELLE_PRIVATE_HEADERS
    foundation/LibraryInfo.h
    foundation/ServiceSlot.h
    host/form/UiDocument.h
    host/form/UiNode.h
    host/form/UiSource.h
    host/form/UiValue.h)

# Windows libraries that the platform code calls.
set(VORELLE_FOUNDATION_WIN32_LIBS advapi32 version)
set(VORELLE_WIDGETS_WIN32_LIBS user32 version)

# The library's version, stated once in project(): generated into foundation/Version.h.
set(VORELLE_GENERATED_DIR ${PROJECT_BINARY_DIR}/generated)
configure_file(${PROJECT_SOURCE_DIR}/cmake/Version.h.in
    ${VORELLE_GENERATED_DIR}/foundation/Version.h @ONLY)

# --- foundation -------------------------------------------------------------------------

# Makes a target see only QtCore of Qt: the first directory on its include path holds
# QtGui/, QtWidgets/ and QtUiTools/ with the one header that every public header of that
# module includes first, and that header is an #error.
function(vorelle_restrict_to_qtcore target)
    set(poison ${PROJECT_BINARY_DIR}/layers/qtcore-only)
    foreach(module IN ITEMS QtGui QtWidgets QtUiTools QtTest)
        string(TOLOWER ${module} lower)
        file(CONFIGURE OUTPUT ${poison}/${module}/${lower}global.h CONTENT
            "#error \"foundation/ uses QtCore only: ${module} belongs to the widgets part\"\n")
    endforeach()
    target_include_directories(${target} BEFORE PRIVATE ${poison})
endfunction()

# foundation/ as seen from its own layer: <build>/layers/foundation/foundation -> source.
set(VORELLE_FOUNDATION_ROOT ${PROJECT_BINARY_DIR}/layers/foundation)
file(MAKE_DIRECTORY ${VORELLE_FOUNDATION_ROOT})
file(CREATE_LINK ${PROJECT_SOURCE_DIR}/foundation ${VORELLE_FOUNDATION_ROOT}/foundation SYMBOLIC)

file(GLOB_RECURSE VORELLE_FOUNDATION_SOURCES CONFIGURE_DEPENDS
    ${PROJECT_SOURCE_DIR}/foundation/*.cpp ${PROJECT_SOURCE_DIR}/foundation/*.h)
# The compile setting of the foundation layer: its own folder, the generated headers and
# QtCore, nothing else. Also used by the checks that a layer violation does not compile.
function(vorelle_foundation_layer target)
    target_include_directories(${target} PRIVATE
        ${VORELLE_FOUNDATION_ROOT} ${VORELLE_GENERATED_DIR})
    vorelle_restrict_to_qtcore(${target})
    target_compile_definitions(${target} PRIVATE VORELLE_BUILDING_LIBRARY
        QT_NO_KEYWORDS QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII)
    target_compile_features(${target} PUBLIC cxx_std_20)
    target_link_libraries(${target} PUBLIC Qt6::Core)
endfunction()

add_library(vorelle_foundation OBJECT ${VORELLE_FOUNDATION_SOURCES})
vorelle_foundation_layer(vorelle_foundation)
target_link_libraries(vorelle_foundation PRIVATE SQLite::SQLite3)
# The keyring client (foundation/UserKeyStore.cpp): its header is on the compiler's own path
# (<qt6keychain/keychain.h>), and the shared library links its file alone. Its usage
# requirements (QtDBus, and /usr/include as a system folder, which breaks <cmath>) would
# change the compile line of every file.
if(WIN32)
    target_link_libraries(vorelle_foundation PRIVATE ${VORELLE_FOUNDATION_WIN32_LIBS})
endif()
target_precompile_headers(vorelle_foundation PRIVATE <QString> <QStringList> <QVariant>)

# --- the shared library -----------------------------------------------------------------

set(VORELLE_SOURCES)
foreach(module IN LISTS VORELLE_MODULES)
    file(GLOB_RECURSE module_sources CONFIGURE_DEPENDS
        ${PROJECT_SOURCE_DIR}/${module}/*.cpp ${PROJECT_SOURCE_DIR}/${module}/*.qrc
        ${PROJECT_SOURCE_DIR}/${module}/*.h)
    list(APPEND VORELLE_SOURCES ${module_sources})
endforeach()

add_library(Vorelle SHARED ${VORELLE_SOURCES} $<TARGET_OBJECTS:vorelle_foundation>)
add_library(Vorelle::Vorelle ALIAS Vorelle)
target_compile_definitions(Vorelle PRIVATE VORELLE_BUILDING_LIBRARY)
target_compile_features(Vorelle PUBLIC cxx_std_20)
target_include_directories(Vorelle
    PUBLIC
        $<BUILD_INTERFACE:${PROJECT_SOURCE_DIR}>
        $<BUILD_INTERFACE:${VORELLE_GENERATED_DIR}>
        $<BUILD_INTERFACE:${PROJECT_BINARY_DIR}/include>
        $<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}>)
target_link_libraries(Vorelle
    PUBLIC Qt6::Core Qt6::Gui Qt6::Widgets
    PRIVATE Qt6::UiTools SQLite::SQLite3 $<TARGET_FILE:Qt6Keychain::Qt6Keychain>)
if(WIN32)
    target_link_libraries(Vorelle PRIVATE
        ${VORELLE_FOUNDATION_WIN32_LIBS} ${VORELLE_WIDGETS_WIN32_LIBS})
endif()
# The real pointer on X11 (automation/Mouse and the tracker's button state): Xlib and the
# XTest extension when they are there; without them the synthetic in-process events serve.
if(NOT WIN32)
    find_package(PkgConfig QUIET)
    if(PKG_CONFIG_FOUND)
        pkg_check_modules(VORELLE_XTEST QUIET x11 xtst)
    endif()
endif()
if(VORELLE_XTEST_FOUND)
    target_compile_definitions(Vorelle PRIVATE VORELLE_HAVE_XTEST)
    target_include_directories(Vorelle PRIVATE ${VORELLE_XTEST_INCLUDE_DIRS})
    target_link_libraries(Vorelle PRIVATE ${VORELLE_XTEST_LINK_LIBRARIES})
endif()
target_precompile_headers(Vorelle PRIVATE <QtWidgets> <QString> <QVariant> <vector> <memory>)
set_target_properties(Vorelle PROPERTIES
    VERSION ${PROJECT_VERSION}
    SOVERSION ${PROJECT_VERSION_MAJOR}
    OUTPUT_NAME vorelle)

include(${CMAKE_CURRENT_LIST_DIR}/VorelleHeaders.cmake)
