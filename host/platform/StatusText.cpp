#include "host/platform/StatusText.h"

#include <QApplication>

#include "foundation/Language.h"
#include "foundation/LateBinding.h"
#include "host/form/Form.h"

namespace vorelle {

namespace {

Form* activeForm() {
    QWidget* window = QApplication::activeWindow();
    if (!window) {
        return nullptr;
    }
    if (auto* form = qobject_cast<Form*>(window)) {
        return form;
    }
    return window->findChild<Form*>();
}

}  // namespace

void FormStatusText(const QString& TextDe, const QString& TextEn) {
    FormStatusText(nullptr, TextDe, TextEn);
}

void FormStatusText(Form* form, const QString& TextDe, const QString& TextEn) {
    if (!form) {
        form = activeForm();
    }
    if (!form) {
        return;
    }
    QObject* wizard = form->Controls(QStringLiteral("FormWizard1"));
    LateCall(wizard, "Status1", QVariantList{TextDe, EnglishOrGerman(TextDe, TextEn)});
}

}  // namespace vorelle
