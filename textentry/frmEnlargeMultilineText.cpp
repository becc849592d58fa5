#include "textentry/frmEnlargeMultilineText.h"

#include <algorithm>

#include "formwizard/FormWizard.h"
#include "host/input/MultilineField.h"
#include "host/platform/StatusText.h"
#include "textentry/PopupLoop.h"
#include "textentry/PopupPlacement.h"
#include "textentry/Uebergabe.h"
#include "textentry/mlt.h"

namespace vorelle {

class frmEnlargeMultilineTextPrivate {
public:
    mlt* mlt1 = nullptr;
    FormWizard* wizard = nullptr;
};

frmEnlargeMultilineText::frmEnlargeMultilineText(QWidget* parent)
    : Form(parent), d(std::make_unique<frmEnlargeMultilineTextPrivate>()) {
    setWindowFlag(Qt::Dialog);  // a window of its own, also over a parent
    setName(QString::fromLatin1(mlt::kEnlargeFormName));
    resize(560, 380);
    d->mlt1 = new mlt(this);
    d->mlt1->setObjectName(QStringLiteral("mlt1"));
    d->mlt1->startNew();
    d->wizard = new FormWizard(this);
    d->wizard->setObjectName(QStringLiteral("FormWizard1"));
    d->wizard->setCaption_de(QStringLiteral("Text bearbeiten"));
    d->wizard->setCaption_en(QStringLiteral("Edit text"));
    d->wizard->setDoPosLoadSave(false);  // the window opens over its field each time
    d->wizard->startNew();

    connect(this, &Form::Activate, this, [this] {
        FormStatusText(this,
                       QStringLiteral("ESC drücken, um die Eingabe zu übernehmen; Fenster "
                                      "schließen für Abbruch."),
                       QStringLiteral("Press ESC to transfer entered text, close window to "
                                      "cancel."));
    });
    connect(this, &Form::Load, this, [this] {
        MultilineField* box = d->mlt1->field();
        box->setSelStart(static_cast<qint32>(box->text().size()));
        box->setSelLength(0);
    });
    connect(this, &Form::Resize, this, [this] {
        const int bar = d->wizard->isVisible() ? d->wizard->height() : 0;
        d->mlt1->setGeometry(0, 0, width(), std::max(height() - bar, 0));
    });
}

frmEnlargeMultilineText::~frmEnlargeMultilineText() = default;

mlt* frmEnlargeMultilineText::field() const {
    return d->mlt1;
}

void frmEnlargeMultilineText::TakeText(const QString& text) {
    UebergabeText() = text;
    UnloadForm();
}

QString frmEnlargeMultilineText::Edit(const mlt& source) {
    frmEnlargeMultilineText form(source.window());
    mlt* copy = form.field();
    copy->setMaxLength(source.MaxLength());
    copy->setAlignment(source.Alignment());
    copy->setTypingBehavior(source.TypingBehavior());
    copy->setToolTipText_de(source.ToolTipText_de());
    copy->setToolTipText_en(source.ToolTipText_en());
    copy->setText_de(source.Text_de());
    copy->setText_en(source.Text_en());
    copy->setTextTyp(source.TextTyp());
    copy->setValidChars(source.ValidChars());
    copy->setValidCharAnz(source.ValidCharAnz());
    copy->setCharReplace(source.CharReplace());
    copy->setFontProperty(source.Font());
    PlacePopupOver(&form, source.field());
    UebergabeText().clear();
    QObject::connect(&form, &Form::Load, copy, [copy] { copy->field()->setFocus(); });
    PopupLoop::instance().run(&form, source.window());
    return UebergabeText();
}

}  // namespace vorelle
