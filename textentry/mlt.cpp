#include "textentry/mlt.h"

#include <QApplication>
#include <QClipboard>
#include <QPointer>
#include <QTextCursor>

#include "foundation/Language.h"
#include "foundation/TextPair.h"
#include "host/form/Form.h"
#include "host/frame/ControlRegistry.h"
#include "host/frame/Shape.h"
#include "host/hooks/Hooks.h"
#include "host/input/MultilineField.h"
#include "host/input/VirtualKeys.h"
#include "host/platform/Environment.h"
#include "host/platform/MenuBuilder.h"
#include "host/platform/MessageBox.h"
#include "textentry/CharRules.h"
#include "textentry/FocusFrame.h"
#include "textentry/OleDragDrop.h"
#include "textentry/TextBoxMenu.h"
#include "textentry/frmEnlargeMultilineText.h"

namespace vorelle {

namespace {

// Sizes, in twips.
constexpr qint32 kMinSide = 300;
constexpr qint32 kNewWidth = 3015;
constexpr qint32 kNewHeight = 765;
constexpr qint32 kFieldLess = 45;
constexpr int kFieldInset = 2;  // pixels; the frames lie over the field's edge

QString str(const PropertyBag& bag, const char* name, const QString& def = QString()) {
    return bag.ReadProperty(QString::fromLatin1(name), def).toString();
}
qint32 number(const PropertyBag& bag, const char* name, qint32 def) {
    return bag.ReadProperty(QString::fromLatin1(name), def).toInt();
}

}  // namespace

class mltPrivate {
public:
    MultilineField* txtText = nullptr;
    Shape* shpWeiss = nullptr;
    Shape* shpBlau = nullptr;
    OleDragDrop* ole = nullptr;
    // Capitals at word starts follow letters without umlauts here.
    CharRules rules{QStringLiteral("abcdefghijklmnopqrstuvwxyz")};
    TextPair text;
    TextPair toolTipText;
    QString textTyp = QStringLiteral("Text");
    QString passwordChar;
    int oleDragMode = 0;
    int oleDropMode = 0;
    int lastKeyCode = 0;
    int mouseDownSelStart = 0;
    bool locked = false;
};

mlt::mlt(QWidget* parent) : FormControl(parent), d(std::make_unique<mltPrivate>()) {
    d->txtText = new MultilineField(this);
    d->txtText->setObjectName(QStringLiteral("txtText"));
    d->txtText->setFrameShape(QFrame::NoFrame);
    d->txtText->setContextMenuPolicy(Qt::PreventContextMenu);
    d->txtText->setMaxLengthProperty(kDefaultMaxLength);
    d->shpWeiss = new Shape(this);
    d->shpWeiss->setObjectName(QStringLiteral("shpWeiss"));
    d->shpBlau = new Shape(this);
    d->shpBlau->setObjectName(QStringLiteral("shpBlau"));
    SetFocusFrame(d->shpWeiss, d->shpBlau, false);
    for (QWidget* part : findChildren<QWidget*>(Qt::FindDirectChildrenOnly)) {
        markConstituent(part);
    }
    setFocusProxy(d->txtText);
    setFocusPolicy(Qt::StrongFocus);
    initForeColor(kDefaultForeColor);
    initBackColor(kDefaultBackColor);

    OleDragDrop::Field text;
    text.selectedText = [this] { return d->txtText->SelText(); };
    text.onSelection = [this](const QPoint& at) {
        const int place = d->txtText->cursorForPosition(at).position();
        const int start = d->txtText->SelStart();
        return d->txtText->SelLength() > 0 && place >= start &&
               place < start + d->txtText->SelLength();
    };
    text.removeSelection = [this] { d->txtText->textCursor().removeSelectedText(); };
    text.takesText = [this] { return !d->txtText->Locked(); };
    d->ole = new OleDragDrop(d->txtText, d->txtText->viewport(), text, this);
    connect(d->ole, &OleDragDrop::OLECompleteDrag, this, &mlt::OLECompleteDrag);
    connect(d->ole, &OleDragDrop::OLEDragDrop, this, &mlt::OLEDragDrop);
    connect(d->ole, &OleDragDrop::OLEDragOver, this, &mlt::OLEDragOver);
    connect(d->ole, &OleDragDrop::OLEGiveFeedback, this, &mlt::OLEGiveFeedback);
    connect(d->ole, &OleDragDrop::OLESetData, this, &mlt::OLESetData);
    connect(d->ole, &OleDragDrop::OLEStartDrag, this, &mlt::OLEStartDrag);

    connect(d->txtText, &MultilineField::KeyDown, this, &mlt::onKeyDown);
    connect(d->txtText, &MultilineField::KeyPress, this, &mlt::onKeyPress);
    connect(d->txtText, &MultilineField::Change, this, &mlt::onChange);
    connect(d->txtText, &MultilineField::MouseDown, this, &mlt::onMouseDown);
}

mlt::~mlt() {
    SendDestroyMessages(this);
    d->txtText->disconnect(this);
}

MultilineField* mlt::field() const {
    return d->txtText;
}
Shape* mlt::innerFrame() const {
    return d->shpWeiss;
}
Shape* mlt::outerFrame() const {
    return d->shpBlau;
}

// --- Life cycle ---------------------------------------------------------------------------------

void mlt::InitProperties() {
    FormControl::InitProperties();
    setFontProperty(host().AmbientFont());
    showCurrentText();
}

void mlt::ReadProperties(const PropertyBag& bag) {
    FormControl::ReadProperties(bag);
    // Everything is read before anything is applied: a bad value changes nothing.
    const bool enabled = bag.ReadProperty(QStringLiteral("Enabled"), true).toBool();
    const bool locked = bag.ReadProperty(QStringLiteral("Locked"), false).toBool();
    const QString textTyp = str(bag, "TextTyp", QStringLiteral("Text"));
    const QString passwordChar = str(bag, "PasswordChar");
    const TextPair text(str(bag, "Text_de"), str(bag, "Text_en"));
    const TextPair toolTip(str(bag, "ToolTipText_de"), str(bag, "ToolTipText_en"));
    const qint32 foreColor = number(bag, "ForeColor", kDefaultForeColor);
    const qint32 backColor = number(bag, "BackColor", kDefaultBackColor);
    const QFont font =
        bag.ReadProperty(QStringLiteral("Font"), host().AmbientFont()).value<QFont>();
    const qint32 maxLength = number(bag, "MaxLength", kDefaultMaxLength);
    const int dragMode = number(bag, "OLEDragMode", 0);
    const int dropMode = number(bag, "OLEDropMode", 0);
    const QString validChars = str(bag, "ValidChars");
    const QString validCharAnz = str(bag, "ValidCharAnz");
    const QString charReplace = str(bag, "CharReplace");
    const int alignment = number(bag, "Alignment", 0);
    const int typing = number(bag, "TypingBehavior", 0);
    readResizing(bag);

    d->locked = locked;
    d->textTyp = textTyp;
    d->passwordChar = passwordChar;
    d->text = text;
    d->toolTipText = toolTip;
    d->oleDragMode = dragMode;
    d->oleDropMode = dropMode;
    d->rules.setValidChars(validChars);
    d->rules.setValidCharAnz(validCharAnz);
    d->rules.setCharReplace(charReplace);
    d->rules.setTypingBehavior(typing);
    d->txtText->setLocked(locked);
    initForeColor(foreColor);
    initBackColor(backColor);
    initFont(font);
    initEnabled(enabled);
    d->txtText->setMaxLengthProperty(maxLength);
    d->ole->setDragMode(dragMode);
    d->ole->setDropMode(dropMode);
    d->txtText->setAlignmentProperty(alignment);
    showCurrentText();
}

void mlt::AfterReadProperties() {
    FormControl::AfterReadProperties();
    if (HookAllowed()) {
        Hook(d->txtText, WMPROC_Control, QStringLiteral("mlt"));
    }
}

void mlt::WriteProperties(PropertyBag& bag) const {
    FormControl::WriteProperties(bag);
    auto put = [&bag](const char* name, const QVariant& value, const QVariant& def) {
        bag.WriteProperty(QString::fromLatin1(name), value, def);
    };
    put("Enabled", Enabled(), true);
    put("Locked", d->locked, false);
    put("TextTyp", d->textTyp, QStringLiteral("Text"));
    put("PasswordChar", d->passwordChar, QString());
    put("Text_de", Text_de(), QString());
    put("Text_en", Text_en(), QString());
    put("ToolTipText_de", d->toolTipText.de(), QString());
    put("ToolTipText_en", d->toolTipText.en(), QString());
    put("ForeColor", ForeColor(), kDefaultForeColor);
    put("BackColor", BackColor(), kDefaultBackColor);
    put("Font", Font(), host().AmbientFont());
    put("MaxLength", MaxLength(), kDefaultMaxLength);
    put("OLEDragMode", d->oleDragMode, 0);
    put("OLEDropMode", d->oleDropMode, 0);
    put("ValidChars", d->rules.ValidChars(), QString());
    put("ValidCharAnz", d->rules.ValidCharAnz(), QString());
    put("CharReplace", d->rules.CharReplace(), QString());
    put("Alignment", Alignment(), 0);
    put("TypingBehavior", d->rules.TypingBehavior(), 0);
    writeResizing(bag);
}

void mlt::Resize() {
    if (Width() < kMinSide) {
        setWidth(kNewWidth);
    }
    if (Height() < kMinSide) {
        setHeight(kNewHeight);
    }
    d->txtText->setGeometry(kFieldInset, kFieldInset, TwipsToPixels(Width() - kFieldLess),
                            TwipsToPixels(Height() - kFieldLess));
    PlaceFocusFrame(d->shpWeiss, d->shpBlau, Width() - kTwipsPerPixel, Height() - kTwipsPerPixel);
}

// --- Focus --------------------------------------------------------------------------------------

void mlt::EnterFocus() {
    if (!Enabled()) {
        SendKeysSafe(QStringLiteral("{tab}"));
    }
    SetFocusFrame(d->shpWeiss, d->shpBlau, true);
}

void mlt::ExitFocus() {
    const QString text = d->txtText->text();
    if (!text.isEmpty() && !d->rules.ValidCharAnz().isEmpty() && !d->rules.passesOnLeave(text)) {
        const QPointer<mlt> self(this);
        Form* form = parentForm();
        QWidget* owner = form ? static_cast<QWidget*>(form) : window();
        MsgBox(
            QStringLiteral("Die Eingabe in diesem Feld ist ungültig. Bitte korrigieren Sie sie."),
            0, QString(), owner);
        if (self) {
            d->txtText->setFocus();
        }
        return;
    }
    SetFocusFrame(d->shpWeiss, d->shpBlau, false);
}

// --- Keys ---------------------------------------------------------------------------------------

void mlt::onKeyDown(int& KeyCode, int& Shift) {
    d->lastKeyCode = KeyCode;
    if (KeyCode == VK_INSERT) {
        d->txtText->selectAll();
        KeyCode = 0;
        Shift = 0;
    }
}

bool mlt::isEnlargedCopy() const {
    const Form* form = parentForm();
    return form && form->Name() == QLatin1String(kEnlargeFormName);
}

void mlt::transferAndClose() {
    if (auto* form = qobject_cast<frmEnlargeMultilineText*>(parentForm())) {
        form->TakeText(d->txtText->text());
    } else if (Form* other = parentForm()) {
        other->UnloadForm();
    }
}

void mlt::onKeyPress(int& KeyAscii) {
    if (CtrlFilterDrops(KeyAscii)) {
        KeyAscii = 0;
        return;
    }
    if (KeyAscii == 1) {
        d->txtText->selectAll();
        KeyAscii = 0;
        return;
    }
    if (KeyAscii == 3 || KeyAscii == 22 || KeyAscii == 24) {
        return;
    }
    if (!Enabled() || d->locked) {
        KeyAscii = 0;
        return;
    }
    if (KeyAscii == 5) {
        KeyAscii = 0;
        if (isEnlargedCopy()) {
            transferAndClose();
        } else {
            Enlarge();
        }
        return;
    }
    if (KeyAscii == 27 && isEnlargedCopy()) {
        KeyAscii = 0;
        transferAndClose();
        return;
    }
    if (KeyAscii == 26 || KeyAscii == 8) {
        return;
    }
    KeyAscii = d->rules.filter(KeyAscii, d->txtText->text(), d->txtText->SelStart());
    if (KeyAscii == 0) {
        return;
    }
    if (KeyAscii == 124) {
        if (PipeRefused(parentForm())) {
            KeyAscii = 0;
        }
        return;
    }
    emit KeyPress(KeyAscii);
}

void mlt::onChange() {
    d->text.setCurrent(d->txtText->text());
    emit Change();
}

// --- Mouse --------------------------------------------------------------------------------------

void mlt::onMouseDown(int Button, int, float, float) {
    d->mouseDownSelStart = d->txtText->SelStart();
    if (Button == 2 && Enabled()) {
        showContextMenu();
    }
}

void mlt::OLEDrag() {
    d->ole->startDrag();
}

void mlt::MouseClick(int, float, float) {
    d->txtText->setFocus();
}

void mlt::showContextMenu() {
    TextBoxMenuState state;
    state.textEmpty = d->txtText->text().isEmpty();
    state.selLength = d->txtText->SelLength();
    state.locked = d->txtText->Locked();
    state.clipboardHasText = !QGuiApplication::clipboard()->text().isEmpty();
    TextBoxMenuBuild(QStringLiteral("multiline"), QStringLiteral("TextBox"),
                     QStringLiteral("TextBox"), state);
    MenuAdd(QStringLiteral("sep2"), QStringLiteral("-"), QStringLiteral("-"), 2048);
    if (isEnlargedCopy()) {
        MenuAdd(QStringLiteral("enlarge"), QStringLiteral("Übernehmen \t(Strg+E/Esc)"),
                QStringLiteral("Transfer \t(Ctrl+E/Esc)"));
    } else {
        MenuAdd(QStringLiteral("enlarge"), QStringLiteral("Vergrößern \t(Strg+E)"),
                QStringLiteral("Enlarge \t(Ctrl+E)"));
    }
    QObject* wizard = formWizard();
    if (!wizard) {
        return;  // the menu goes through the form's manager; without one it does not open
    }
    const QPointer<mlt> self(this);
    const QString chosen = MenuShow(wizard);
    UnlockWindowUpdate();
    if (!self) {
        return;
    }
    if (chosen == u"enlarge") {
        d->txtText->setFocus();
        SendKeysSafe(QStringLiteral("^e"));
    } else {
        TextBoxMenuAct(chosen, d->txtText);
    }
}

// --- Enlarge ------------------------------------------------------------------------------------

void mlt::Enlarge() {
    if (!parentForm()) {
        return;  // a parent without a name (a design-time page) has no enlarged copy
    }
    const QPointer<mlt> self(this);
    const QString text = frmEnlargeMultilineText::Edit(*this);
    if (self && !text.isEmpty()) {
        d->txtText->setText(text);
    }
}

// --- Texts --------------------------------------------------------------------------------------

void mlt::showCurrentText() {
    const QString& text = d->text.current();
    if (d->txtText->text() != text) {
        d->txtText->setText(text);
    }
}

void mlt::Refresh() {
    LanguageLoad();
    showCurrentText();
    update();
}

QString mlt::Status2_de() const {
    return status2(true);
}
QString mlt::Status2_en() const {
    return status2(false);
}

QString mlt::status2(bool german) const {
    QString s = german ? QStringLiteral("Texteingabefeld (mehrzeilig).")
                       : QStringLiteral("Entryfield text (multilined).");
    if (!Enabled() || d->locked) {
        return s;
    }
    if (!isEnlargedCopy()) {
        s += german ? QStringLiteral("Drücken Sie Strg+E um das Eingabefeld zu vergrößern. ")
                    : QStringLiteral("Press Ctrl+E to enlarge the entryfield. ");
    }
    const int typing = d->rules.TypingBehavior();
    if (typing >= 1 && typing <= 3) {
        s += QStringLiteral("\r\n\r\n");
    }
    switch (typing) {
        case 1:
            s += german ? QStringLiteral("Automatische Kleinschreibung. ")
                        : QStringLiteral("Automatic lowercasing. ");
            break;
        case 2:
            s += german ? QStringLiteral("Automatische Großschreibung. ")
                        : QStringLiteral("Automatic capitalization. ");
            break;
        case 3:
            s += german ? QStringLiteral("Automatische Großschreibung am Wortanfang. ")
                        : QStringLiteral("Automatic capitalization of words. ");
            break;
        default:
            break;
    }
    return s;
}

// --- Colours and state --------------------------------------------------------------------------

void mlt::applyForeColor(const QColor& color) {
    QPalette palette = d->txtText->palette();
    palette.setColor(QPalette::Text, color);
    d->txtText->setPalette(palette);
}

void mlt::applyBackColor(const QColor& color) {
    QPalette palette = d->txtText->palette();
    palette.setColor(QPalette::Base, color);
    d->txtText->setPalette(palette);
}

void mlt::applyEnabled(bool on) {
    d->txtText->setEnabled(on);
}

// --- Properties ---------------------------------------------------------------------------------

bool mlt::Locked() const {
    return d->locked;
}
void mlt::setLocked(bool on) {
    d->locked = on;
    d->txtText->setLocked(on);
    PropertyChanged(QStringLiteral("Locked"));
}
QString mlt::TextTyp() const {
    return d->textTyp;
}
void mlt::setTextTyp(const QString& kind) {
    d->textTyp = kind;
    PropertyChanged(QStringLiteral("TextTyp"));
}
QString mlt::PasswordChar() const {
    return d->passwordChar;
}
void mlt::setPasswordChar(const QString& passwordChar) {
    d->passwordChar = passwordChar;
    PropertyChanged(QStringLiteral("PasswordChar"));
}

// The field shows the current language's half; it is the latest word on that half.
QString mlt::Text_de() const {
    return IsGerman() ? d->txtText->text() : d->text.de();
}
QString mlt::Text_en() const {
    return IsGerman() ? d->text.en() : d->txtText->text();
}
void mlt::setText_de(const QString& text) {
    const qint32 max = d->txtText->MaxLength();
    const QString value = (max > 0 && text.size() > max) ? text.left(max) : text;
    letPairDe(d->text, value, QStringLiteral("Text"),
              [this](const QString&) { showCurrentText(); });
}
void mlt::setText_en(const QString& text) {
    const qint32 max = d->txtText->MaxLength();
    const QString value = (max > 0 && text.size() > max) ? text.left(max) : text;
    letPairEn(d->text, value, QStringLiteral("Text"),
              [this](const QString&) { showCurrentText(); });
}
QString mlt::Text() const {
    return d->txtText->text();
}
void mlt::setText(const QString& text) {
    if (IsGerman()) {
        setText_de(text);
    } else {
        setText_en(text);
    }
}
QString mlt::ToolTipText_de() const {
    return d->toolTipText.de();
}
void mlt::setToolTipText_de(const QString& text) {
    letPairDe(d->toolTipText, text, QStringLiteral("ToolTipText"), {});
}
QString mlt::ToolTipText_en() const {
    return d->toolTipText.en();
}
void mlt::setToolTipText_en(const QString& text) {
    letPairEn(d->toolTipText, text, QStringLiteral("ToolTipText"), {});
}
QString mlt::ToolTipText() const {
    return d->toolTipText.current();
}
void mlt::setToolTipText(const QString& text) {
    letPair(d->toolTipText, text, QStringLiteral("ToolTipText"), {});
}
qint32 mlt::MaxLength() const {
    return d->txtText->MaxLength();
}
void mlt::setMaxLength(qint32 length) {
    d->txtText->setMaxLengthProperty(length);
    const QString text = d->txtText->text();
    if (text.size() > length) {
        setText(text.left(std::max(length, 0)));
    }
    PropertyChanged(QStringLiteral("MaxLength"));
}
int mlt::OLEDragMode() const {
    return d->oleDragMode;
}
void mlt::setOLEDragMode(int mode) {
    d->oleDragMode = mode;
    d->ole->setDragMode(mode);
    PropertyChanged(QStringLiteral("OLEDragMode"));
}
int mlt::OLEDropMode() const {
    return d->oleDropMode;
}
void mlt::setOLEDropMode(int mode) {
    d->oleDropMode = mode;
    d->ole->setDropMode(mode);
    PropertyChanged(QStringLiteral("OLEDropMode"));
}
QString mlt::ValidChars() const {
    return d->rules.ValidChars();
}
void mlt::setValidChars(const QString& chars) {
    d->rules.setValidChars(chars);
    PropertyChanged(QStringLiteral("ValidChars"));
}
QString mlt::ValidCharAnz() const {
    return d->rules.ValidCharAnz();
}
void mlt::setValidCharAnz(const QString& rules) {
    d->rules.setValidCharAnz(rules);
    PropertyChanged(QStringLiteral("ValidCharAnz"));
}
QString mlt::CharReplace() const {
    return d->rules.CharReplace();
}
void mlt::setCharReplace(const QString& rules) {
    d->rules.setCharReplace(rules);
    PropertyChanged(QStringLiteral("CharReplace"));
}
int mlt::Alignment() const {
    return d->txtText->Alignment();
}
void mlt::setAlignment(int alignment) {
    d->txtText->setAlignmentProperty(alignment);
    PropertyChanged(QStringLiteral("Alignment"));
}
int mlt::TypingBehavior() const {
    return d->rules.TypingBehavior();
}
void mlt::setTypingBehavior(int behavior) {
    d->rules.setTypingBehavior(behavior);
    PropertyChanged(QStringLiteral("TypingBehavior"));
}
qint32 mlt::SelStart() const {
    return d->txtText->SelStart();
}
void mlt::setSelStart(qint32 start) {
    d->txtText->setSelStart(start);
}
qint32 mlt::SelLength() const {
    return d->txtText->SelLength();
}
void mlt::setSelLength(qint32 length) {
    d->txtText->setSelLength(length);
}
QString mlt::SelText() const {
    return d->txtText->SelText();
}
void mlt::setSelText(const QString& text) {
    d->txtText->setSelText(text);
}

VORELLE_REGISTER_CONTROL(mlt)

}  // namespace vorelle
