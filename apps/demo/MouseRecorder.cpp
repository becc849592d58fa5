#include "MouseRecorder.h"

#include <QCheckBox>
#include <QPlainTextEdit>
#include <QPushButton>

#include "HoverLabel.h"
#include "formwizard/FormWizard.h"
#include "foundation/Language.h"
#include "foundation/LateBinding.h"

namespace vorelle::demo {

namespace {

QString pick(const char* de, const char* en) {
    return LangText(QString::fromUtf8(de), QString::fromUtf8(en));
}

}  // namespace

MouseRecorder::MouseRecorder(QWidget* parent) : Form(parent) {
    setName(QStringLiteral("frmMaus"));
    setCaption(pick("Maus aufzeichnen und abspielen", "Record and replay the mouse"));
    resize(460, 330);

    const std::pair<const char*, const char*> labels[] = {{"Zeig auf mich", "Point at me"},
                                                          {"Klick mich", "Click me"}};
    int x = 20;
    for (const auto& [de, en] : labels) {
        auto* label = new HoverLabel(QString::fromUtf8(de), QString::fromUtf8(en), this);
        label->setObjectName(QStringLiteral("lblHover%1").arg(x / 200 + 1));
        label->setGeometry(x, 15, 190, 40);
        label->status2De = QStringLiteral("Die Maus ist über \"%1\".").arg(QString::fromUtf8(de));
        label->status2En = QStringLiteral("The mouse is over \"%1\".").arg(QString::fromUtf8(en));
        label->toolTipDe = QString::fromUtf8(de);
        label->toolTipEn = QString::fromUtf8(en);
        x += 210;
    }

    path_ = new QPlainTextEdit(this);
    path_->setObjectName(QStringLiteral("txtPfad"));
    path_->setGeometry(20, 65, 420, 130);
    path_->setPlaceholderText(pick("Aufzeichnen, dann Rollen-Taste ein- und wieder ausschalten",
                                   "Record, then switch Scroll Lock on and off again"));
    relative_ =
        new QCheckBox(pick("Relativ zum aktiven Fenster", "Relative to the active form"), this);
    relative_->setObjectName(QStringLiteral("chbRelativ"));
    relative_->setGeometry(20, 200, 420, 24);
    auto* record = new QPushButton(pick("Aufzeichnen", "Record"), this);
    record->setObjectName(QStringLiteral("cmdAufzeichnen"));
    record->setGeometry(20, 232, 200, 30);
    auto* replay = new QPushButton(pick("Abspielen", "Replay"), this);
    replay->setObjectName(QStringLiteral("cmdAbspielen"));
    replay->setGeometry(240, 232, 200, 30);
    connect(record, &QPushButton::clicked, this, &MouseRecorder::record);
    connect(replay, &QPushButton::clicked, this, &MouseRecorder::replay);

    auto* wizard = new FormWizard(this);
    wizard->setObjectName(QStringLiteral("FormWizard1"));
    wizard->setCaption_de(QStringLiteral("Maus"));
    wizard->setCaption_en(QStringLiteral("Mouse"));
    wizard->startNew();
}

void MouseRecorder::record() {
    LateCall(Controls(QStringLiteral("FormWizard1")), "Status1",
             {pick("Rollen-Taste einschalten: die Aufzeichnung läuft, bis sie wieder aus ist.",
                   "Switch Scroll Lock on: the recording runs until it is off again.")});
    path_->setPlainText(mouse_.PfadAufzeichnen(relative_->isChecked()));
}

void MouseRecorder::replay() {
    mouse_.PfadAbspielen(path_->toPlainText().simplified().remove(u' '), relative_->isChecked());
}

}  // namespace vorelle::demo
