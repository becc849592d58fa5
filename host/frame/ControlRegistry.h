#pragma once

#include <QList>
#include <QString>
#include <functional>

#include "foundation/Export.h"

class QWidget;
struct QMetaObject;

namespace vorelle {

class ControlBase;

/// The control classes of the library by name, for loaders and the designer plugin.
/// Each control registers itself once in its .cpp file:
///   VORELLE_REGISTER_CONTROL(Txt)
class VORELLE_EXPORT ControlRegistry {
public:
    /// Creates a control with the given parent.
    using Factory = std::function<ControlBase*(QWidget* parent)>;

    /// Registers the factory of a control class (by its meta-object).
    static bool add(const QMetaObject* meta, Factory factory);
    /// Creates a control by class name ("Txt", "vorelle::Txt") or type name ("txt");
    /// nullptr for an unknown name.
    static ControlBase* create(const QString& name, QWidget* parent);
    /// Whether create() knows the name.
    static bool contains(const QString& name);
    /// The registered classes, in the order of registration.
    static QList<const QMetaObject*> classes();
};

}  // namespace vorelle

#define VORELLE_REGISTER_CONTROL(Class)                                                  \
    namespace {                                                                          \
    const bool Class##Registered = ::vorelle::ControlRegistry::add(                      \
        &Class::staticMetaObject, [](QWidget* parent) -> ::vorelle::ControlBase* {       \
            return new Class(parent);                                                    \
        });                                                                              \
    }
