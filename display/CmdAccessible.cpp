#include "display/CmdAccessible.h"

#include "display/Cmd.h"
#include "foundation/Language.h"

namespace vorelle {

namespace {

QAccessibleInterface* cmdFactory(const QString& className, QObject* object) {
    if (className != QLatin1String(Cmd::staticMetaObject.className())) {
        return nullptr;
    }
    auto* button = qobject_cast<Cmd*>(object);
    return button ? new CmdAccessible(button) : nullptr;
}

}  // namespace

CmdAccessible::CmdAccessible(Cmd* button) : QAccessibleWidget(button, QAccessible::Button) {
    addControllingSignal(QStringLiteral("Click()"));
}

Cmd* CmdAccessible::button() const {
    return static_cast<Cmd*>(widget());
}

QString CmdAccessible::text(QAccessible::Text t) const {
    switch (t) {
        case QAccessible::Name: {
            const QString caption = button()->Caption();
            if (!caption.isEmpty()) {
                return caption;
            }
            const QString tip = button()->ToolTipText();
            return tip.startsWith(u'-') ? QString() : tip;
        }
        case QAccessible::Description:
            return button()->ToolTipText().startsWith(u'-') ? QString() : button()->ToolTipText();
        case QAccessible::Accelerator:
            return IsGerman() ? button()->AccessKey_de() : button()->AccessKey_en();
        default:
            return QAccessibleWidget::text(t);
    }
}

QAccessible::State CmdAccessible::state() const {
    QAccessible::State s = QAccessibleWidget::state();
    const Cmd* b = button();
    s.disabled = !b->Enabled();
    s.focusable = b->Enabled() && b->TabStop();
    s.focused = b->hasFocus();
    s.pressed = b->isPressed();
    s.hotTracked = b->isHovered();
    return s;
}

QStringList CmdAccessible::actionNames() const {
    return {pressAction()};
}

void CmdAccessible::doAction(const QString& actionName) {
    if (actionName == pressAction() && button()->Enabled()) {
        button()->click();
    }
}

QStringList CmdAccessible::keyBindingsForAction(const QString& actionName) const {
    const QString key = text(QAccessible::Accelerator);
    return actionName == pressAction() && !key.isEmpty() ? QStringList{key} : QStringList{};
}

void InstallCmdAccessibility() {
    QAccessible::installFactory(cmdFactory);
}

}  // namespace vorelle
