#include "choice/frmSprachwahl.h"

#include <QKeyEvent>

#include "choice/rbl.h"
#include "display/Cmd.h"
#include "display/des.h"
#include "formwizard/FormWizard.h"
#include "foundation/Language.h"
#include "foundation/LateBinding.h"
#include "foundation/RegStore.h"

namespace vorelle {

class frmSprachwahlPrivate {
public:
    rbl* rblSprache = nullptr;
    Cmd* cmdAbort = nullptr;
    des* desHinweis = nullptr;
    FormWizard* wizard = nullptr;
    int result = 0;
};

namespace {

template <class T>
T* control(Form* form, const char* name, const QRect& pixels) {
    auto* c = new T(form);
    c->setObjectName(QString::fromLatin1(name));
    c->startNew();
    c->setGeometry(pixels);
    return c;
}

}  // namespace

frmSprachwahl::frmSprachwahl(QWidget* parent)
    : Form(parent), d(std::make_unique<frmSprachwahlPrivate>()) {
    setName(QStringLiteral("frmSprachwahl"));
    setCaption(QStringLiteral("Please choose language"));
    resize(300, 176);

    d->desHinweis = control<des>(this, "desHinweis", QRect(12, 10, 276, 36));
    d->desHinweis->setMultiline(true);
    d->desHinweis->setCaption_de(
        QStringLiteral("Bitte wählen Sie die Sprache der Oberfläche. Ein Klick übernimmt sie."));
    d->desHinweis->setCaption_en(
        QStringLiteral("Please choose the language of the interface. A click applies it."));

    d->rblSprache = control<rbl>(this, "rblSprache", QRect(12, 54, 150, 60));
    d->rblSprache->setRegSave(false);
    d->rblSprache->setCaptionList_de(QStringLiteral("Deutsch|English"));
    d->rblSprache->setCaptionList_en(QStringLiteral("Deutsch|English"));
    d->rblSprache->setOrientation(1);
    d->rblSprache->setValue(IsGerman() ? 1 : 2);

    d->cmdAbort = control<Cmd>(this, "cmdAbort", QRect(207, 112, 81, 26));
    d->cmdAbort->setCaption_de(QStringLiteral("Abbrechen"));
    d->cmdAbort->setCaption_en(QStringLiteral("Cancel"));
    d->cmdAbort->setAccessKey_de(QStringLiteral("ALT+A"));
    d->cmdAbort->setAccessKey_en(QStringLiteral("ALT+C"));

    d->wizard = control<FormWizard>(this, "FormWizard1", QRect(-1, 150, 302, 26));
    d->wizard->setDoChangeTitle(false);  // the caption is the same in both languages

    d->rblSprache->installEventFilter(this);
    connect(d->rblSprache, &rbl::Click, this, [this] {
        if (d->rblSprache->keyboardMark() >= 1) {  // a click beside the options chooses nothing
            chosen();
        }
    });
    connect(d->cmdAbort, &Cmd::Click, this, &frmSprachwahl::aborted);
}

frmSprachwahl::~frmSprachwahl() = default;

int frmSprachwahl::Result() const {
    return d->result;
}

rbl* frmSprachwahl::rblSprache() const {
    return d->rblSprache;
}

Cmd* frmSprachwahl::cmdAbort() const {
    return d->cmdAbort;
}

des* frmSprachwahl::desHinweis() const {
    return d->desHinweis;
}

bool frmSprachwahl::eventFilter(QObject* watched, QEvent* event) {
    if (watched == d->rblSprache && event->type() == QEvent::KeyRelease) {
        const int key = static_cast<QKeyEvent*>(event)->key();
        if (key == Qt::Key_Space || key == Qt::Key_Return || key == Qt::Key_Enter) {
            chosen();  // the list took the marked option at the press
        }
    }
    return Form::eventFilter(watched, event);
}

void frmSprachwahl::chosen() {
    const int value = d->rblSprache->Value();
    if (value != 1 && value != 2) {
        return;
    }
    d->result = value;
    SwitchLanguage(value == 1 ? QStringLiteral("de") : QStringLiteral("en"));
    close();
}

void frmSprachwahl::aborted() {
    d->result = kAborted;
    close();
}

void frmSprachwahl::SwitchLanguage(const QString& language) {
    RegSetApp(QStringLiteral("Config"), QStringLiteral("Sprache"), language);
    LanguageLoad();
    for (Form* form : Form::loadedForms()) {
        for (QWidget* c : form->Controls()) {
            if (qobject_cast<ControlBase*>(c)) {
                LateCall(c, "Refresh");
            }
        }
    }
}

}  // namespace vorelle
