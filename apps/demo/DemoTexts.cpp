#include "DemoTexts.h"

#include <QFileInfo>
#include <QWidget>

#include "display/Cmd.h"
#include "foundation/Language.h"
#include "foundation/LateBinding.h"
#include "foundation/RegStore.h"
#include "host/form/Form.h"
#include "host/form/UiDocument.h"
#include "host/frame/ControlBase.h"
#include "host/platform/StatusText.h"

namespace vorelle::demo {

namespace {

void applyTo(QWidget* w) {
    if (qobject_cast<ControlBase*>(w)) {
        return;  // controls keep their own texts
    }
    for (const QByteArray& name : w->dynamicPropertyNames()) {
        if (!name.endsWith("_de")) {
            continue;
        }
        const QByteArray base = name.left(name.size() - 3);
        if (base == "Caption" && qobject_cast<Form*>(w) && qobject_cast<Form*>(w)->manager()) {
            continue;  // a managed form's title is built by its FormWizard1
        }
        const QByteArray chosen = IsGerman() ? name : base + "_en";
        const QVariant text = w->property(chosen.constData());
        if (text.isValid()) {
            w->setProperty(base.constData(), text);
        }
    }
}

}  // namespace

void ApplyFormTexts(QWidget* root) {
    applyTo(root);
    for (QWidget* w : root->findChildren<QWidget*>()) {
        applyTo(w);
    }
}

void ReportButtonClicks(Form* form) {
    for (Cmd* button : form->findChildren<Cmd*>()) {
        QObject::connect(button, &Cmd::Click, form, [form, button] {
            const QString de =
                button->Caption_de().isEmpty() ? button->ToolTipText_de() : button->Caption_de();
            const QString en =
                button->Caption_en().isEmpty() ? button->ToolTipText_en() : button->Caption_en();
            FormStatusText(form, QStringLiteral("Geklickt: ") + de,
                           QStringLiteral("Clicked: ") + en);
        });
    }
}

void SwitchLanguage(const QString& language) {
    RegSetApp(QStringLiteral("Config"), QStringLiteral("Sprache"), language);
    LanguageLoad();
    for (Form* form : Form::loadedForms()) {
        for (QWidget* control : form->Controls()) {
            if (qobject_cast<ControlBase*>(control)) {
                LateCall(control, "Refresh");
            }
        }
        ApplyFormTexts(form);
    }
}

QString FormCaption(const QString& path) {
    const QString fallback = QFileInfo(path).completeBaseName();
    try {
        const UiDocument doc = UiDocument::read(path);
        const UiNode* top = doc.root.child(QStringLiteral("widget"));
        const UiNode* caption = top ? top->property(IsGerman() ? QStringLiteral("Caption_de")
                                                               : QStringLiteral("Caption_en"))
                                    : nullptr;
        if (!caption && top) {
            caption = top->property(QStringLiteral("windowTitle"));
        }
        if (caption && caption->children.size() == 1 && !caption->children.front().text.isEmpty()) {
            return caption->children.front().text;
        }
    } catch (const std::exception&) {
        // a damaged file shows under its name; opening it reports the fault
    }
    return fallback;
}

}  // namespace vorelle::demo
