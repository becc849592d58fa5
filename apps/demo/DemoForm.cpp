#include "DemoForm.h"

#include <QComboBox>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>

#include "DemoTexts.h"
#include "ProgressDemo.h"
#include "choice/frmSprachwahl.h"
#include "formwizard/DialogStyle.h"
#include "foundation/Language.h"
#include "foundation/LateBinding.h"
#include "foundation/RegStore.h"
#include "host/form/FormLoader.h"
#include "host/platform/MessageBox.h"

namespace vorelle::demo {

DemoForm::DemoForm(QStringList formFiles, QWidget* parent)
    : Form(parent), formFiles_(std::move(formFiles)) {}

void DemoForm::Form_Load2() {
    ApplyFormTexts(this);
    auto* german = findChild<QRadioButton*>(QStringLiteral("optDeutsch"));
    auto* english = findChild<QRadioButton*>(QStringLiteral("optEnglish"));
    if (german && english) {
        connect(german, &QRadioButton::toggled, this, [](bool on) {
            if (on) {
                SwitchLanguage(QStringLiteral("de"));
            }
        });
        connect(english, &QRadioButton::toggled, this, [](bool on) {
            if (on) {
                SwitchLanguage(QStringLiteral("en"));
            }
        });
    }
    if (auto* list = findChild<QListWidget*>(QStringLiteral("lstFormulare"))) {
        connect(list, &QListWidget::itemActivated, this,
                [this](QListWidgetItem* item) { openForm(item->data(Qt::UserRole).toString()); });
        if (auto* open = findChild<QPushButton*>(QStringLiteral("cmdOeffnen"))) {
            connect(open, &QPushButton::clicked, this, [this, list] {
                if (QListWidgetItem* item = list->currentItem()) {
                    openForm(item->data(Qt::UserRole).toString());
                }
            });
        }
    }
    if (auto* choose = findChild<QPushButton*>(QStringLiteral("cmdSprachwahl"))) {
        connect(choose, &QPushButton::clicked, this, [this] {
            auto* choice = new frmSprachwahl;
            choice->setAttribute(Qt::WA_DeleteOnClose);
            // The plain widgets of the demo's forms follow the language the form wrote.
            connect(choice, &QObject::destroyed, this, [this] {
                SwitchLanguage(CurrentLanguage());
                LanguageChanged();
            });
            choice->show();
        });
    }
    if (auto* styles = findChild<QComboBox*>(QStringLiteral("cboStil"))) {
        styles->clear();
        styles->addItems(dialogStyles());
        styles->setCurrentText(CurrentDialogStyle());
        connect(styles, &QComboBox::currentTextChanged, this, &DemoForm::applyStyle);
    }
    LanguageChanged();
}

QStringList DemoForm::dialogStyles() {
    return {QStringLiteral("Cool and hot"), QStringLiteral("Winter"), QStringLiteral("Business"),
            QStringLiteral("Quick and simple")};
}

void DemoForm::applyStyle(const QString& style) {
    for (Form* form : Form::loadedForms()) {
        RegSetApp(form->Name(), QStringLiteral("DialogStyle"), style);
        if (QObject* wizard = form->Controls(QStringLiteral("FormWizard1"))) {
            LateCall(wizard, "SetDialogStyle", {style});
        }
    }
}

void DemoForm::Form_Activate2() {
    if (auto* styles = findChild<QComboBox*>(QStringLiteral("cboStil"))) {
        const QSignalBlocker block(styles);
        styles->setCurrentText(CurrentDialogStyle());
    }
}

void DemoForm::LanguageChanged() {
    auto* german = findChild<QRadioButton*>(QStringLiteral("optDeutsch"));
    auto* english = findChild<QRadioButton*>(QStringLiteral("optEnglish"));
    if (german && english) {
        const QSignalBlocker blockGerman(german);
        const QSignalBlocker blockEnglish(english);
        german->setChecked(IsGerman());
        english->setChecked(!IsGerman());
    }
    fillList();
}

void DemoForm::fillList() {
    auto* list = findChild<QListWidget*>(QStringLiteral("lstFormulare"));
    if (!list) {
        return;
    }
    const int current = list->currentRow();
    list->clear();
    for (const QString& path : formFiles_) {
        auto* item = new QListWidgetItem(FormCaption(path), list);
        item->setData(Qt::UserRole, path);
    }
    list->setCurrentRow(current >= 0 ? current : 0);
}

void DemoForm::openForm(const QString& path) {
    try {
        std::unique_ptr<Form> form = FormLoader::load(path);
        ConnectProgressSliders(form.get());
        ApplyFormTexts(form.get());
        ReportButtonClicks(form.get());
        form->setAttribute(Qt::WA_DeleteOnClose);
        form.release()->show();
    } catch (const UiFileError& e) {
        MsgBox(e.message(), 16,
               LangText(QStringLiteral("Formular öffnen"), QStringLiteral("Open form")));
    }
}

}  // namespace vorelle::demo
