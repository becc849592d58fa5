#include "host/frame/ControlHost.h"

#include <QApplication>

#include "host/frame/ControlBase.h"
#include "host/form/Form.h"

namespace vorelle {

ControlHost::ControlHost(ControlBase* control) : control_(control) {}
ControlHost::~ControlHost() = default;

bool ControlHost::UserMode() const {
    const Form* form = Parent();
    return form ? form->UserMode() : true;
}

QString ControlHost::DisplayName() const {
    return control_->objectName();
}

QFont ControlHost::AmbientFont() const {
    const Form* form = Parent();
    return form ? form->font() : QApplication::font();
}

Form* ControlHost::Parent() const {
    for (QWidget* w = control_->parentWidget(); w; w = w->parentWidget()) {
        if (auto* form = qobject_cast<Form*>(w)) {
            return form;
        }
    }
    return nullptr;
}

void ControlHost::PropertyChanged(const QString& name) {
    if (!changed_.contains(name)) {
        changed_.append(name);
    }
}

QList<QWidget*> ControlHost::ContainedControls() const {
    QList<QWidget*> result;
    if (QWidget* area = control_->containerArea()) {
        for (QObject* child : area->children()) {
            auto* w = qobject_cast<QWidget*>(child);
            if (w && !w->isWindow() && !ControlBase::isConstituent(w) &&
                !w->objectName().startsWith(u"qt_")) {
                result.append(w);
            }
        }
    }
    return result;
}

}  // namespace vorelle
