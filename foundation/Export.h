#pragma once

#include <QtCore/qglobal.h>

#if defined(VORELLE_BUILDING_LIBRARY)
#define VORELLE_EXPORT Q_DECL_EXPORT
#else
#define VORELLE_EXPORT Q_DECL_IMPORT
#endif
