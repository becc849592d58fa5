#include "textentry/frmGenPassword.h"

#include <QCoreApplication>
#include <QPointer>
#include <QRandomGenerator>
#include <cmath>

#include "automation/Mouse.h"
#include "display/Cmd.h"
#include "display/des.h"
#include "display/prc.h"
#include "formwizard/FormWizard.h"
#include "foundation/Binaer.h"
#include "foundation/DateText.h"
#include "foundation/RegStore.h"
#include "host/platform/Sleeper.h"
#include "host/platform/StatusText.h"
#include "numberdate/Num.h"
#include "textentry/PopupLoop.h"
#include "textentry/PopupPlacement.h"
#include "textentry/Uebergabe.h"

namespace vorelle {

namespace {

constexpr int kBitsPerSymbol = 6;
constexpr int kMaxWait = 20;  // milliseconds before each sample, exclusive

// A seed of the serial of today and now, to the millisecond.
quint32 seedOfNow() {
    const double serial =
        DateTimeToSerial(QStringLiteral("DatumHeute"), QStringLiteral("ZeitJetzt"));
    return static_cast<quint32>(std::fmod(std::fabs(serial) * 1000.0, 4294967296.0));
}

template <class Control>
Control* place(QWidget* form, const char* name, const QRect& geometry) {
    auto* control = new Control(form);
    control->setObjectName(QString::fromLatin1(name));
    control->startNew();
    control->setGeometry(geometry);
    return control;
}

}  // namespace

class frmGenPasswordPrivate {
public:
    des* des1 = nullptr;
    des* des2 = nullptr;
    des* des3 = nullptr;
    des* desPassword = nullptr;
    Num* numAnzahlZeichen = nullptr;
    prc* prc1 = nullptr;
    Cmd* cmdPasswortGenerieren = nullptr;
    Cmd* cmdPasswortUebernehmen = nullptr;
    QString generatedPassword;
    bool stopped = false;
};

frmGenPassword::frmGenPassword(QWidget* parent)
    : Form(parent), d(std::make_unique<frmGenPasswordPrivate>()) {
    setWindowFlag(Qt::Dialog);  // a window of its own, also over a parent
    setName(QStringLiteral("frmGenPassword"));
    resize(390, 250);
    auto caption = [](des* label, const QString& de, const QString& en) {
        label->setCaption_de(de);
        label->setCaption_en(en);
    };
    d->des1 = place<des>(this, "des1", QRect(15, 12, 360, 34));
    d->des1->setWordWrap(true);
    caption(d->des1, QStringLiteral("Ein Zufallspasswort aus Mausbewegungen."),
            QStringLiteral("A random password from mouse movements."));
    d->des2 = place<des>(this, "des2", QRect(15, 58, 190, 20));
    caption(d->des2, QStringLiteral("Anzahl Zeichen:"), QStringLiteral("Number of characters:"));
    d->numAnzahlZeichen = place<Num>(this, "numAnzahlZeichen", QRect(210, 56, 70, 22));
    d->numAnzahlZeichen->setMin(4);
    d->numAnzahlZeichen->setMax(20);
    d->numAnzahlZeichen->setZahl(8);
    d->prc1 = place<prc>(this, "prc1", QRect(305, 50, 60, 60));
    d->des3 = place<des>(this, "des3", QRect(15, 92, 280, 20));
    d->des3->hide();
    d->desPassword = place<des>(this, "desPassword", QRect(15, 118, 360, 30));
    QFont terminal(QStringLiteral("Terminal"));
    terminal.setPointSize(12);
    terminal.setBold(true);
    terminal.setStyleHint(QFont::TypeWriter);
    terminal.setStyleStrategy(QFont::ForceOutline);  // a bitmap face would not scale
    d->desPassword->setFontProperty(terminal);
    caption(d->desPassword, QString(), QString());  // no password yet
    d->cmdPasswortGenerieren = place<Cmd>(this, "cmdPasswortGenerieren", QRect(15, 162, 175, 30));
    d->cmdPasswortGenerieren->setButtonType(QStringLiteral("Aktualisieren"));
    d->cmdPasswortGenerieren->setCaption_de(QStringLiteral("Generieren"));
    d->cmdPasswortGenerieren->setCaption_en(QStringLiteral("Generate"));
    d->cmdPasswortUebernehmen =
        place<Cmd>(this, "cmdPasswortUebernehmen", QRect(200, 162, 175, 30));
    d->cmdPasswortUebernehmen->setButtonType(QStringLiteral("Übernehmen"));
    connect(d->cmdPasswortGenerieren, &Cmd::Click, this, &frmGenPassword::Generate);
    connect(d->cmdPasswortUebernehmen, &Cmd::Click, this, &frmGenPassword::TakeOver);

    auto* wizard = new FormWizard(this);
    wizard->setObjectName(QStringLiteral("FormWizard1"));
    wizard->setCaption_de(QStringLiteral("Passwort generieren"));
    wizard->setCaption_en(QStringLiteral("Generate password"));
    wizard->setDoPosLoadSave(false);  // the form opens over its field each time
    wizard->startNew();
}

frmGenPassword::~frmGenPassword() = default;

des* frmGenPassword::passwordDisplay() const {
    return d->desPassword;
}
prc* frmGenPassword::progress() const {
    return d->prc1;
}
Num* frmGenPassword::lengthChooser() const {
    return d->numAnzahlZeichen;
}
Cmd* frmGenPassword::generateButton() const {
    return d->cmdPasswortGenerieren;
}
Cmd* frmGenPassword::takeOverButton() const {
    return d->cmdPasswortUebernehmen;
}
QString frmGenPassword::GeneratedPassword() const {
    return d->generatedPassword;
}

QString frmGenPassword::GenMouseKey(int Length) {
    QString key;
    if (Length <= 0) {
        return key;
    }
    QRandomGenerator random(seedOfNow());
    const QPointer<frmGenPassword> self(this);
    Mouse mouse;
    int lastX = 0;
    int lastY = 0;
    for (int byte = 1; byte <= Length; ++byte) {
        QString bits;
        for (int bit = 1; bit <= 8; ++bit) {
            int x = 0;
            int y = 0;
            for (;;) {
                Sleeper::instance().sleep(static_cast<int>(random.generateDouble() * kMaxWait));
                // The window stays alive while the mouse rests, and can be closed.
                QCoreApplication::processEvents();
                if (!self || d->stopped) {
                    return key;
                }
                x = static_cast<int>(std::lround(mouse.X() / 15.0));
                y = static_cast<int>(std::lround(mouse.Y() / 15.0));
                if (x == lastX || y == lastY) {
                    continue;  // both coordinates must have moved
                }
                lastX = x;
                lastY = y;
                if (x + y != 0) {
                    break;
                }
            }
            bits += ((x + y) & 1) != 0 ? u'1' : u'0';
            d->prc1->setPercent((byte - 1.0) / Length + (bit / 8.0) / Length);
            if (!self) {
                return key;
            }
        }
        key += FromAnsi(QByteArray(1, static_cast<char>(BinToDec(bits))));
    }
    d->prc1->setPercent(1);
    return key;
}

void frmGenPassword::setBusy(bool busy) {
    d->numAnzahlZeichen->setEnabledProperty(!busy);
    d->cmdPasswortUebernehmen->setEnabledProperty(!busy);
    d->cmdPasswortGenerieren->setEnabledProperty(!busy);
}

void frmGenPassword::Generate() {
    const QPointer<frmGenPassword> self(this);
    d->stopped = false;
    setBusy(true);
    FormStatusText(this, QStringLiteral("Passwort wird generiert..."),
                   QStringLiteral("generating password..."));
    d->des3->setCaption_de(QStringLiteral("Bitte bewegen Sie die Maus..."));
    d->des3->setCaption_en(QStringLiteral("Please move the mouse..."));
    d->des3->show();
    QCoreApplication::processEvents();
    if (!self || d->stopped) {
        return;
    }
    const int length = static_cast<int>(std::lround(d->numAnzahlZeichen->Zahl()));
    const QString key = GenMouseKey(length);
    if (!self || d->stopped) {
        return;
    }
    d->generatedPassword = BinToRadix(AsciiToBin(key), kBitsPerSymbol).left(length);
    FormStatusText(this, QStringLiteral("Passwort generiert."),
                   QStringLiteral("password generated."));
    d->des3->setCaption_de(QStringLiteral("Bitte notieren Sie Ihr Passwort:"));
    d->des3->setCaption_en(QStringLiteral("Please note your password:"));
    d->desPassword->setCaption_de(d->generatedPassword);
    d->desPassword->setCaption_en(d->generatedPassword);
    setBusy(false);
}

void frmGenPassword::TakeOver() {
    UebergabeText() = d->generatedPassword;
    UnloadForm();
}

void frmGenPassword::hideEvent(QHideEvent* event) {
    d->stopped = true;
    Form::hideEvent(event);
}

QString frmGenPassword::Choose(QWidget* field) {
    QWidget* owner = field ? field->window() : nullptr;
    frmGenPassword form(owner);
    PlacePopupOver(&form, field);
    UebergabeText().clear();
    PopupLoop::instance().run(&form, owner);
    return UebergabeText();
}

}  // namespace vorelle
