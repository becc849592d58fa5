#pragma once

#include <QObject>
#include <QVariant>
#include <QVariantList>

#include "foundation/Export.h"

namespace vorelle {

/// Calls by member name through Qt's meta-object system, always with errors trapped:
/// a missing object, a missing member, arguments that do not fit or a member that throws
/// are no error, the call simply does nothing (or stops where the member threw) and `ok` (when
/// given) becomes false.
///
/// LateCall finds a Q_INVOKABLE method, slot or signal with the name and as many
/// parameters as arguments, converts each argument to its parameter's type and calls it.
/// The caller's arguments are never changed. Without a method of that name, a call with no
/// arguments reads the property and a call with one argument writes it.
VORELLE_EXPORT QVariant LateCall(QObject* object, const char* member, const QVariantList& args = {},
                                 bool* ok = nullptr);

/// As LateCall, and the new values of parameters declared as references (int& Cancel,
/// QString&) are written back into `args`: the one form that changes the caller's list.
VORELLE_EXPORT QVariant LateCallByRef(QObject* object, const char* member, QVariantList& args,
                                      bool* ok = nullptr);

/// Reads a property (Q_PROPERTY or dynamic); an invalid QVariant when there is none.
VORELLE_EXPORT QVariant LateGet(const QObject* object, const char* property, bool* ok = nullptr);

/// Writes a property; false when the object or the property is missing or refuses the value.
VORELLE_EXPORT bool LateSet(QObject* object, const char* property, const QVariant& value);

/// True when the object has a method or property of that name.
VORELLE_EXPORT bool LateHas(const QObject* object, const char* member);

}  // namespace vorelle
