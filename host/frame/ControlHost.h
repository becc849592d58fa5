#pragma once

#include <QFont>
#include <QList>
#include <QString>
#include <QStringList>

#include "foundation/Export.h"

class QWidget;

namespace vorelle {

class ControlBase;
class Form;

/// What a control needs from the form it lives on: the ambient values, its parent form,
/// the dirty mark of its properties and the controls dropped onto it. The control owns
/// none of it; the default host answers from the widget tree, and tests put a recording
/// host in its place (ControlBase::setHost).
class VORELLE_EXPORT ControlHost {
public:
    /// The host of one control.
    explicit ControlHost(ControlBase* control);
    virtual ~ControlHost();
    ControlHost(const ControlHost&) = delete;
    ControlHost& operator=(const ControlHost&) = delete;

    /// Ambient.UserMode: true at run time, false in the form designer.
    virtual bool UserMode() const;
    /// Ambient.DisplayName: the instance's name on the form.
    virtual QString DisplayName() const;
    /// Ambient.Font: the default of each Font property.
    virtual QFont AmbientFont() const;
    /// The hosting form, or nullptr when the control does not sit on one.
    virtual Form* Parent() const;
    /// Marks the named property dirty.
    virtual void PropertyChanged(const QString& name);
    /// The controls the form author dropped onto this container control.
    virtual QList<QWidget*> ContainedControls() const;

    /// Whether a property was changed since the last clearDirty().
    bool isDirty() const { return !changed_.isEmpty(); }
    /// Names of the properties changed since the last clearDirty(), in order.
    const QStringList& changedProperties() const { return changed_; }
    /// Forgets the changed properties.
    void clearDirty() { changed_.clear(); }

    /// The control that this host serves.
    ControlBase* control() const { return control_; }

private:
    ControlBase* control_;
    QStringList changed_;
};

}  // namespace vorelle
