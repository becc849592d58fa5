#include "host/platform/StatusText.h"

#include <QApplication>

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
    Form* form = activeForm();
    if (!form) {
        return;
    }
    QObject* wizard = form->Controls(QStringLiteral("FormWizard1"));
    LateCall(wizard, "Status1", QVariantList{TextDe, TextEn.isEmpty() ? TextDe : TextEn});
}

}  // namespace vorelle
