#include "textentry/Txt.h"

#include <QApplication>
#include <QClipboard>
#include <QCoreApplication>
#include <QPointer>

#include "foundation/Language.h"
#include "foundation/RegStore.h"
#include "foundation/StoredPassword.h"
#include "foundation/Zentral.h"
#include "host/form/Form.h"
#include "host/frame/ControlRegistry.h"
#include "host/frame/OleColor.h"
#include "host/frame/Shape.h"
#include "host/hooks/Hooks.h"
#include "host/input/EntryField.h"
#include "host/input/VirtualKeys.h"
#include "host/platform/Environment.h"
#include "host/platform/MenuBuilder.h"
#include "host/platform/MessageBox.h"
#include "textentry/FocusFrame.h"
#include "textentry/OleDragDrop.h"
#include "textentry/SymbolPicture.h"
#include "textentry/TextBoxMenu.h"
#include "textentry/Txt_p.h"
#include "textentry/frmDropDownList.h"
#include "textentry/frmEntryWizard.h"
#include "textentry/frmGenPassword.h"

namespace vorelle {

namespace {

constexpr qint32 kDefaultMaxLength = 255;
constexpr qint32 kDefaultBackColor = 0xFFFFFF;
// The native password character of a password field and the text it shows per character.
const QString kPasswordDot = QStringLiteral("·");

// Heights, widths and places, in twips.
constexpr qint32 kHeightSmall = 300;
constexpr qint32 kHeightUsual = 330;
constexpr qint32 kFieldHeight = 285;
constexpr qint32 kMinWidth = 390;
constexpr qint32 kNewWidth = 3000;
constexpr qint32 kFieldLessWidth = 285;
constexpr qint32 kSymbolFromRight = 255;
constexpr qint32 kSymbolTop = 30;
constexpr int kFieldInset = 2;  // pixels; the frames lie over the field's edge

struct Properties {
    bool enabled;
    bool locked;
    bool regSave;
    bool entryWizard;
    QString textTyp;
    QString passwordChar;
    QString textDe;
    QString textEn;
    QString listDe;
    QString listEn;
    bool sorted;
    bool allowAdding;
    bool allowDoubles;
    bool mustChooseFrom;
    QString toolTipDe;
    QString toolTipEn;
    qint32 foreColor;
    qint32 backColor;
    QFont font;
    qint32 maxLength;
    int oleDragMode;
    int oleDropMode;
    QString validChars;
    QString validCharAnz;
    QString charReplace;
    int alignment;
    int typingBehavior;
};

QString str(const PropertyBag& bag, const char* name, const QString& def = QString()) {
    return bag.ReadProperty(QString::fromLatin1(name), def).toString();
}
bool flag(const PropertyBag& bag, const char* name, bool def) {
    return bag.ReadProperty(QString::fromLatin1(name), def).toBool();
}
qint32 number(const PropertyBag& bag, const char* name, qint32 def) {
    return bag.ReadProperty(QString::fromLatin1(name), def).toInt();
}

// A password field's box: one "?" per character of the password, the caret at the end.
void showPlaceholders(EntryField* field, const QString& password) {
    field->setText(QString(password.size(), u'?'));
    field->setCursorPosition(static_cast<int>(password.size()));
}

// A list with doubles removed unless allowed, sorted when asked for.
QString tidyList(QString list, bool allowDoubles, bool sorted) {
    if (list.isEmpty()) {
        return list;
    }
    if (!allowDoubles) {
        list = PslUnique(list);
    }
    if (sorted) {
        list = PslSort(list);
        while (list.startsWith(u'|')) {
            list.remove(0, 1);
        }
    }
    return list;
}

}  // namespace

Txt::Txt(QWidget* parent) : FormControl(parent), d(std::make_unique<TxtPrivate>()) {
    using Kind = SymbolPicture::Kind;
    auto picture = [this](const char* name, Kind kind, bool hover) {
        auto* pic = new SymbolPicture(kind, hover, this);
        pic->setObjectName(QString::fromLatin1(name));
        pic->hide();
        return pic;
    };
    d->picDropdownAddMouseOver = picture("picDropdownAddMouseOver", Kind::Add, true);
    d->picDropdownAdd = picture("picDropdownAdd", Kind::Add, false);
    d->picPassMouseOver = picture("picPassMouseOver", Kind::Key, true);
    d->picEntryWizardMouseOver = picture("picEntryWizardMouseOver", Kind::WizardArrow, true);
    d->picEntryWizard = picture("picEntryWizard", Kind::WizardArrow, false);
    d->picPass = picture("picPass", Kind::Key, false);
    d->picDropdownMouseOver = picture("picDropdownMouseOver", Kind::ListArrow, true);
    d->picDropdown = picture("picDropdown", Kind::ListArrow, false);

    d->txtText = new EntryField(this);
    d->txtText->setObjectName(QStringLiteral("txtText"));
    d->txtText->setFrame(false);
    d->txtText->setMouseTracking(true);
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
    initForeColor(0);
    initBackColor(kDefaultBackColor);

    OleDragDrop::Field text;
    text.selectedText = [this] { return isPasswordField() ? QString() : d->txtText->SelText(); };
    text.onSelection = [this](const QPoint& at) {
        const int place = d->txtText->cursorPositionAt(at);
        const int start = d->txtText->SelStart();
        return d->txtText->SelLength() > 0 && place >= start &&
               place < start + d->txtText->SelLength();
    };
    text.removeSelection = [this] { d->txtText->del(); };
    text.takesText = [this] { return !isPasswordField() && !d->txtText->Locked(); };
    d->ole = new OleDragDrop(d->txtText, d->txtText, text, this);
    connect(d->ole, &OleDragDrop::OLECompleteDrag, this, &Txt::OLECompleteDrag);
    connect(d->ole, &OleDragDrop::OLEDragDrop, this, &Txt::OLEDragDrop);
    connect(d->ole, &OleDragDrop::OLEDragOver, this, &Txt::OLEDragOver);
    connect(d->ole, &OleDragDrop::OLEGiveFeedback, this, &Txt::OLEGiveFeedback);
    connect(d->ole, &OleDragDrop::OLESetData, this, &Txt::OLESetData);
    connect(d->ole, &OleDragDrop::OLEStartDrag, this, &Txt::OLEStartDrag);

    connect(d->txtText, &EntryField::KeyDown, this, &Txt::onKeyDown);
    connect(d->txtText, &EntryField::KeyPress, this, &Txt::onKeyPress);
    connect(d->txtText, &EntryField::TextInput, this, &Txt::onTextInput);
    connect(d->txtText, &EntryField::Change, this, &Txt::onChange);
    connect(d->txtText, &EntryField::MouseDown, this, &Txt::onMouseDown);
    connect(d->txtText, &EntryField::MouseMove, this, &Txt::onMouseMove);
    connect(d->txtText, &EntryField::MouseUp, this, &Txt::onMouseUp);

    const std::pair<SymbolPicture*, SymbolPicture*> symbols[] = {
        {d->picEntryWizard, d->picEntryWizardMouseOver},
        {d->picPass, d->picPassMouseOver},
        {d->picDropdown, d->picDropdownMouseOver},
        {d->picDropdownAdd, d->picDropdownAddMouseOver},
    };
    for (const auto& pair : symbols) {
        SymbolPicture* rest = pair.first;
        SymbolPicture* hover = pair.second;
        connect(rest, &SymbolPicture::MouseMove, this,
                [this, rest, hover] { showHover(rest, hover); });
        connect(hover, &SymbolPicture::MouseLeave, hover, &QWidget::hide);
    }
    connect(d->picEntryWizardMouseOver, &SymbolPicture::Click, this, [this] { openEntryWizard(); });
    connect(d->picPassMouseOver, &SymbolPicture::Click, this, [this] { openPasswordGenerator(); });
    connect(d->picDropdownMouseOver, &SymbolPicture::Click, this, &Txt::dropDownClick);
    connect(d->picDropdownAddMouseOver, &SymbolPicture::Click, this, &Txt::dropDownClick);
}

Txt::~Txt() {
    // The field's procedure gets its last message while this control is whole; then the
    // field, which outlives this object by a little, reports nothing more to it.
    SendDestroyMessages(this);
    d->txtText->disconnect(this);
}

EntryField* Txt::field() const {
    return d->txtText;
}

Shape* Txt::innerFrame() const {
    return d->shpWeiss;
}

Shape* Txt::outerFrame() const {
    return d->shpBlau;
}

SymbolPicture* Txt::picture(const QString& name) const {
    return findChild<SymbolPicture*>(name, Qt::FindDirectChildrenOnly);
}

// --- Life cycle ---------------------------------------------------------------------------------

void Txt::InitProperties() {
    FormControl::InitProperties();
    setFontProperty(host().AmbientFont());
    showCurrentText();
    ChangeSymbol();
}

void Txt::ReadProperties(const PropertyBag& bag) {
    FormControl::ReadProperties(bag);
    d->parentName = FormName();
    d->parentForm = parentForm();
    if (userMode() && d->parentForm && !d->loadConnected) {
        connect(d->parentForm, &Form::Load, this, &Txt::onParentLoad);
        d->loadConnected = true;
    }

    // Everything is read before anything is applied: a bad value changes nothing.
    Properties p;
    p.enabled = flag(bag, "Enabled", true);
    p.locked = flag(bag, "Locked", false);
    p.regSave = flag(bag, "RegSave", true);
    p.entryWizard = flag(bag, "EntryWizard", true);
    p.textTyp = str(bag, "TextTyp", QStringLiteral("Text"));
    p.passwordChar = str(bag, "PasswordChar");
    p.textDe = str(bag, "Text_de");
    p.textEn = str(bag, "Text_en");
    p.listDe = str(bag, "DropDownList_de");
    p.listEn = str(bag, "DropDownList_en");
    p.sorted = flag(bag, "DropDownSorted", false);
    p.allowAdding = flag(bag, "DropDownAllowAdding", false);
    p.allowDoubles = flag(bag, "DropDownAllowDoubles", false);
    p.mustChooseFrom = flag(bag, "DropDownMustChooseFrom", false);
    p.toolTipDe = str(bag, "ToolTipText_de");
    p.toolTipEn = str(bag, "ToolTipText_en");
    p.foreColor = number(bag, "ForeColor", 0);
    p.backColor = number(bag, "BackColor", kDefaultBackColor);
    p.font = bag.ReadProperty(QStringLiteral("Font"), host().AmbientFont()).value<QFont>();
    p.maxLength = number(bag, "MaxLength", kDefaultMaxLength);
    p.oleDragMode = number(bag, "OLEDragMode", 0);
    p.oleDropMode = number(bag, "OLEDropMode", 0);
    p.validChars = str(bag, "ValidChars");
    p.validCharAnz = str(bag, "ValidCharAnz");
    p.charReplace = str(bag, "CharReplace");
    p.alignment = number(bag, "Alignment", 0);
    p.typingBehavior = number(bag, "TypingBehavior", 0);
    readResizing(bag);

    d->locked = p.locked;
    d->regSave = p.regSave;
    d->entryWizard = p.entryWizard;
    d->textTyp = p.textTyp;
    d->passwordChar = p.passwordChar;
    d->text = TextPair(p.textDe, p.textEn);
    d->dropDownList = TextPair(p.listDe, p.listEn);
    d->dropDownSorted = p.sorted;
    d->dropDownAllowAdding = p.allowAdding;
    d->dropDownAllowDoubles = p.allowDoubles;
    d->dropDownMustChooseFrom = p.mustChooseFrom;
    d->toolTipText = TextPair(p.toolTipDe, p.toolTipEn);
    d->oleDragMode = p.oleDragMode;
    d->oleDropMode = p.oleDropMode;
    d->rules.setValidChars(p.validChars);
    d->rules.setValidCharAnz(p.validCharAnz);
    d->rules.setCharReplace(p.charReplace);
    d->rules.setTypingBehavior(p.typingBehavior);
    if (!d->entryWizard) {
        d->picEntryWizard->hide();
    }

    d->txtText->setLocked(d->locked);
    initForeColor(p.foreColor);
    initBackColor(p.backColor);
    initFont(p.font);
    initEnabled(p.enabled);
    d->txtText->setMaxLengthProperty(p.maxLength);
    d->ole->setDragMode(d->oleDragMode);
    d->ole->setDropMode(d->oleDropMode);
    d->txtText->setAlignmentProperty(p.alignment);
    showCurrentText();
    if (d->dropDownMustChooseFrom) {
        d->txtText->setLocked(true);
    }
    ChangeSymbol();
}

void Txt::AfterReadProperties() {
    FormControl::AfterReadProperties();
    if (HookAllowed()) {
        Hook(d->txtText, WMPROC_Control, QStringLiteral("txt"));
    }
}

void Txt::WriteProperties(PropertyBag& bag) const {
    FormControl::WriteProperties(bag);
    auto put = [&bag](const char* name, const QVariant& value, const QVariant& def) {
        bag.WriteProperty(QString::fromLatin1(name), value, def);
    };
    put("Enabled", Enabled(), true);
    put("Locked", d->locked, false);
    put("RegSave", d->regSave, true);
    put("EntryWizard", d->entryWizard, true);
    put("TextTyp", d->textTyp, QStringLiteral("Text"));
    put("PasswordChar", d->passwordChar, QString());
    put("Text_de", Text_de(), QString());
    put("Text_en", Text_en(), QString());
    put("DropDownList_de", d->dropDownList.de(), QString());
    put("DropDownList_en", d->dropDownList.en(), QString());
    put("DropDownSorted", d->dropDownSorted, false);
    put("DropDownAllowAdding", d->dropDownAllowAdding, false);
    put("DropDownAllowDoubles", d->dropDownAllowDoubles, false);
    put("DropDownMustChooseFrom", d->dropDownMustChooseFrom, false);
    put("ToolTipText_de", d->toolTipText.de(), QString());
    put("ToolTipText_en", d->toolTipText.en(), QString());
    put("ForeColor", ForeColor(), 0);
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

void Txt::onParentLoad() {
    if (!d->regSave || !userMode()) {
        return;
    }
    try {
        RegLoading();
    } catch (...) {
        // Loading the last values is a convenience; a failure leaves the field as it is.
    }
}

void Txt::Resize() {
    if (Height() != kHeightSmall) {
        setHeight(kHeightUsual);
    }
    if (Width() < kMinWidth) {
        setWidth(kNewWidth);
    }
    d->txtText->setGeometry(kFieldInset, kFieldInset, TwipsToPixels(Width() - kFieldLessWidth),
                            TwipsToPixels(kFieldHeight));
    const int symbolLeft = TwipsToPixels(Width() - kSymbolFromRight);
    const int symbolTop = TwipsToPixels(kSymbolTop);
    for (SymbolPicture* pic : {d->picDropdownAddMouseOver, d->picDropdownAdd, d->picPassMouseOver,
                               d->picEntryWizardMouseOver, d->picEntryWizard, d->picPass,
                               d->picDropdownMouseOver, d->picDropdown}) {
        pic->setGeometry(symbolLeft, symbolTop, SymbolPicture::kSize, SymbolPicture::kSize);
    }
    PlaceFocusFrame(d->shpWeiss, d->shpBlau, Width() - kTwipsPerPixel, Height() - kTwipsPerPixel);
    ChangeSymbol();
}

// --- Focus
// ----------------------------------------------------------------------------------------

void Txt::EnterFocus() {
    if (!Enabled()) {
        SendKeysSafe(QStringLiteral("{tab}"));
    }
    ChangeSymbol();
}

void Txt::ExitFocus() {
    if (frmDropDownList::loaded() || frmEntryWizard::loaded()) {
        return;  // a modal pop-up of the field has the focus for a while
    }
    const QString text = d->txtText->text();
    if (!text.isEmpty() && !d->rules.ValidCharAnz().isEmpty() && !d->rules.passesOnLeave(text)) {
        // The box runs a modal loop: its handlers may delete this control.
        const QPointer<Txt> self(this);
        QWidget* owner = d->parentForm ? static_cast<QWidget*>(d->parentForm.data()) : window();
        MsgBox(
            QStringLiteral("Die Eingabe in diesem Feld ist ungültig. Bitte korrigieren Sie sie."),
            0, QString(), owner);
        if (self) {
            d->txtText->setFocus();
        }
        return;
    }
    if (d->regSave) {
        RegSaving();
    }
    if (!isPasswordField() && !text.isEmpty() && d->entryWizard) {
        addToEntryHistory(text);
    }
    SetFocusFrame(d->shpWeiss, d->shpBlau, false);
}

// --- Keys
// -----------------------------------------------------------------------------------------

void Txt::onKeyDown(int& KeyCode, int& Shift) {
    if (!Enabled()) {
        return;
    }
    d->lastKeyCode = KeyCode;
    if (isPasswordField()) {
        if (KeyCode == VK_DELETE) {
            d->plainPassword.clear();
            d->txtText->setText(QString());
        }
        KeyCode = 0;
        return;
    }
    if (KeyCode == VK_INSERT) {
        d->txtText->setSelStart(0);
        d->txtText->setSelLength(static_cast<qint32>(d->txtText->text().size()));
        KeyCode = 0;
        Shift = 0;
        return;
    }
    if (d->locked) {
        KeyCode = 0;
    }
    if (KeyCode == VK_DOWN) {
        if (DropDownList().isEmpty()) {
            openEntryWizard();
        } else {
            dropDownDownKey(KeyCode, Shift);
        }
    }
    if (KeyCode == VK_ADD) {
        KeyCode = 0;
        Shift = 0;
        dropDownAdd();
    }
}

void Txt::onKeyPress(int& KeyAscii) {
    if (CtrlFilterDrops(KeyAscii)) {
        KeyAscii = 0;
        return;
    }
    if (KeyAscii == 13) {
        KeyAscii = 0;
        SendKeysSafe(QStringLiteral("{tab}"));
        return;
    }
    if (isPasswordField()) {
        passwordKeyPress(KeyAscii);
        KeyAscii = 0;
        return;
    }
    if (KeyAscii == 1) {
        d->txtText->setSelStart(0);
        d->txtText->setSelLength(static_cast<qint32>(d->txtText->text().size()));
        KeyAscii = 0;
        return;
    }
    if (KeyAscii == 43 && d->lastKeyCode == VK_ADD) {
        KeyAscii = 0;
        return;
    }
    switch (KeyAscii) {
        case 3:
        case 22:
        case 24:
        case 26:
        case 8:
            return;
        default:
            break;
    }
    KeyAscii = d->rules.filter(KeyAscii, d->txtText->text(), d->txtText->SelStart());
    if (KeyAscii == 0) {
        return;
    }
    if (KeyAscii == 124) {
        if (PipeRefused(d->parentForm.data())) {
            KeyAscii = 0;
        }
        return;
    }
    emit KeyPress(KeyAscii);
}

// Text from an input method, or a character beyond one code unit: each character goes
// through the filters of a typed key, a surrogate pair as one.
void Txt::onTextInput(QString& text) {
    const QString typed = text;
    text.clear();
    const QPointer<Txt> self(this);
    const QString current = d->txtText->text();
    const qint32 selStart = d->txtText->SelStart();
    const QString before = current.left(selStart);
    const QString after = current.mid(selStart + d->txtText->SelLength());
    for (const char32_t c : typed.toUcs4()) {
        int code = static_cast<int>(c);
        if (isPasswordField()) {
            passwordKeyPress(code);
            continue;
        }
        if (code < 32 || code == 127) {
            continue;  // control characters come as keys
        }
        code = d->rules.filter(code, before + text + after,
                               selStart + static_cast<qint32>(text.size()));
        if (code == 0) {
            continue;
        }
        if (code == 124) {
            if (PipeRefused(d->parentForm.data())) {
                if (!self) {
                    return;
                }
                continue;
            }
        } else {
            emit KeyPress(code);
            if (!self) {
                return;
            }
            if (code <= 0) {
                continue;
            }
        }
        const auto accepted = static_cast<char32_t>(code);
        text += QString::fromUcs4(&accepted, 1);
    }
}

void Txt::onChange() {
    const QString text = d->txtText->text();
    d->text.setCurrent(text);
    const QString list = DropDownList();
    if (d->lastKeyCode != VK_DELETE && d->lastKeyCode != VK_BACK && !text.isEmpty() &&
        !list.isEmpty()) {
        for (const QString& entry : dropDownEntries()) {
            if (entry.startsWith(text)) {
                if (entry != text) {
                    d->txtText->setText(entry);  // runs this handler once more
                    d->txtText->setSelection(static_cast<int>(text.size()),
                                             static_cast<int>(entry.size() - text.size()));
                }
                break;
            }
        }
    }
    if (d->dropDownAllowAdding) {
        const QString now = d->txtText->text();
        setDropDownAddVisible(!now.isEmpty() && !PslContains(list, now));
    }
    emit Change();
}

// --- Mouse
// ----------------------------------------------------------------------------------------

void Txt::onMouseDown(int Button, int Shift, float X, float Y) {
    d->mouseDownSelStart = d->txtText->SelStart();
    if (Button == 2 && Enabled() && !isPasswordField()) {
        showContextMenu();
    }
}

void Txt::onMouseMove(int, int, float, float) {
    hideHoverPictures();
}

void Txt::onMouseUp(int Button, int Shift, float X, float Y) {
    qint16& wheel = MouseWheelDirection();
    bool& doubleClick = MouseDoubleClicked();
    if (d->locked || !Enabled()) {
        wheel = 0;
    }
    if (wheel != 0) {
        const int direction = wheel;
        wheel = 0;
        wheelStep(direction);
    }
    if (doubleClick) {
        const QString text = d->txtText->text();
        if (!text.isEmpty()) {
            const auto [start, length] = WordAround(text, d->mouseDownSelStart);
            d->txtText->setSelStart(start);
            d->txtText->setSelLength(length);
            QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
        }
    }
    doubleClick = false;
    if (isPasswordField()) {
        d->txtText->setCursorPosition(static_cast<int>(d->txtText->text().size()));
    }
}

void Txt::MouseOver(int) {
    hideHoverPictures();
}
void Txt::MouseOut(int) {
    hideHoverPictures();
}
void Txt::MouseClick(int, float, float) {
    d->txtText->setFocus();
}

void Txt::hideHoverPictures() {
    for (SymbolPicture* pic : {d->picDropdownAddMouseOver, d->picPassMouseOver,
                               d->picEntryWizardMouseOver, d->picDropdownMouseOver}) {
        pic->hide();
    }
}

void Txt::showHover(SymbolPicture* rest, SymbolPicture* hover) {
    if (!rest->isHidden()) {
        hover->raise();
        hover->show();
    }
}

void Txt::showContextMenu() {
    QObject* wizard =
        d->parentForm ? d->parentForm->Controls(QStringLiteral("FormWizard1")) : nullptr;
    TextBoxMenuRun(this, d->txtText, wizard, QStringLiteral("textbox"), QStringLiteral("Textfeld"),
                   QStringLiteral("Text field"));
}

// --- Symbols and frame -------------------------------------------------------------------------

void Txt::ChangeSymbol() {
    const bool password = isPasswordField();
    if (password) {
        d->txtText->setPasswordChar(kPasswordDot);
        QFont bold = Font();
        bold.setBold(true);
        d->txtText->setFont(bold);
        d->picPass->show();
        d->picEntryWizard->hide();
        d->picDropdown->hide();
        d->picDropdownAdd->hide();
    } else {
        if (!d->txtText->PasswordChar().isEmpty()) {
            d->txtText->setPasswordChar(QString());
            d->txtText->setFont(Font());
        }
        const bool emptyList = DropDownList().isEmpty();
        if ((emptyList && d->locked) || !Enabled()) {
            d->picEntryWizard->hide();
            d->picPass->hide();
            d->picDropdown->hide();
            d->picDropdownAdd->hide();
        } else if (!emptyList) {
            d->picDropdown->show();
            d->picEntryWizard->hide();
            d->picPass->hide();
        } else {
            d->picEntryWizard->setVisible(d->entryWizard);
            d->picPass->hide();
            d->picDropdown->hide();
            d->picDropdownAdd->hide();
        }
    }
    if (focusInside()) {
        SetFocusFrame(d->shpWeiss, d->shpBlau, true);
    }
}

void Txt::setDropDownAddVisible(bool on) {
    if (on) {
        d->picDropdownAdd->raise();
    }
    d->picDropdownAdd->setVisible(on);
}

void Txt::applyForeColor(const QColor& color) {
    QPalette palette = d->txtText->palette();
    if (palette.isBrushSet(QPalette::Active, QPalette::Text) &&
        palette.color(QPalette::Text) == color) {
        return;  // a palette set again is propagated and polished again
    }
    palette.setColor(QPalette::Text, color);
    d->txtText->setPalette(palette);
}

void Txt::applyBackColor(const QColor& color) {
    QPalette palette = d->txtText->palette();
    if (palette.isBrushSet(QPalette::Active, QPalette::Base) &&
        palette.color(QPalette::Base) == color) {
        return;  // a palette set again is propagated and polished again
    }
    palette.setColor(QPalette::Base, color);
    d->txtText->setPalette(palette);
}

void Txt::applyFont(const QFont& font) {
    QFont shown = font;
    if (isPasswordField()) {
        shown.setBold(true);
    }
    d->txtText->setFont(shown);
}

void Txt::applyEnabled(bool on) {
    d->txtText->setEnabled(on);
    ChangeSymbol();
}

void Txt::showCurrentText() {
    const QString& text = d->text.current();
    if (d->txtText->text() != text) {
        d->txtText->setText(text);
    }
}

void Txt::OLEDrag() {
    d->ole->startDrag();
}

void Txt::Refresh() {
    LanguageLoad();
    showCurrentText();
    ChangeSymbol();
    update();
}

// --- Store
// ----------------------------------------------------------------------------------------

void Txt::RegSaving() {
    const QString program = ModuleAppName();
    const QString name = ControlName();
    if (isPasswordField()) {
        passwordRegSave();
        return;
    }
    RegSet(program, d->parentName, name + QStringLiteral(".Text_de"), Text_de());
    RegSet(program, d->parentName, name + QStringLiteral(".Text_en"), Text_en());
    if (d->dropDownAllowAdding) {
        RegSet(program, d->parentName, name + QStringLiteral(".DropDownList_de"),
               d->dropDownList.de());
        RegSet(program, d->parentName, name + QStringLiteral(".DropDownList_en"),
               d->dropDownList.en());
    }
}

void Txt::RegLoading() {
    if (!Enabled() || d->locked) {
        return;
    }
    const QString program = ModuleAppName();
    const QString name = ControlName();
    if (isPasswordField()) {
        passwordRegLoad();
    } else {
        setText_de(RegGet(program, d->parentName, name + QStringLiteral(".Text_de"), Text_de()));
        setText_en(RegGet(program, d->parentName, name + QStringLiteral(".Text_en"), Text_en()));
    }
    if (d->dropDownAllowAdding) {
        QString listDe = d->dropDownList.de();
        QString listEn = d->dropDownList.en();
        const QString storedDe =
            RegGet(program, d->parentName, name + QStringLiteral(".DropDownList_de"), QString());
        const QString storedEn =
            RegGet(program, d->parentName, name + QStringLiteral(".DropDownList_en"), QString());
        if (!storedDe.isEmpty()) {
            listDe = storedDe;
        }
        if (!storedEn.isEmpty()) {
            listEn = storedEn;
        }
        setDropDownList_de(listDe);
        setDropDownList_en(listEn);
    }
    emit Change();
}

// --- Password fields
// ------------------------------------------------------------------------------

void Txt::passwordKeyPress(int keyAscii) {
    if (keyAscii == 8) {
        const QString& p = d->plainPassword;
        // A character beyond one code unit goes whole.
        const bool pair =
            p.size() >= 2 && p.back().isLowSurrogate() && p.at(p.size() - 2).isHighSurrogate();
        d->plainPassword.chop(pair ? 2 : 1);
    } else {
        const auto code = static_cast<char32_t>(keyAscii);
        d->plainPassword += QString::fromUcs4(&code, 1);
    }
    showPlaceholders(d->txtText, d->plainPassword);
}

void Txt::passwordRegLoad() {
    d->plainPassword = PasswordFromStore(RegGet(
        ModuleAppName(), d->parentName, ControlName() + QStringLiteral(".Password"), QString()));
    showPlaceholders(d->txtText, d->plainPassword);
}

void Txt::passwordRegSave() {
    RegSet(ModuleAppName(), d->parentName, ControlName() + QStringLiteral(".Password"),
           PasswordToStore(d->plainPassword));
}

void Txt::openPasswordGenerator() {
    if (!Enabled() || d->locked || !isPasswordField()) {
        return;
    }
    // The form runs a modal loop: its handlers may delete this control.
    const QPointer<Txt> self(this);
    const QString chosen = frmGenPassword::Choose(d->txtText);
    if (self && !chosen.isEmpty()) {
        setPassword(chosen);
    }
}

// --- Hint text
// ------------------------------------------------------------------------------------

QString Txt::Status2_de() const {
    return status2(true);
}
QString Txt::Status2_en() const {
    return status2(false);
}

QString Txt::status2(bool german) const {
    const QString max = QString::number(MaxLength());
    QString s = german
                    ? QStringLiteral("Texteingabefeld (max. ") + max + QStringLiteral(" Zeichen). ")
                    : QStringLiteral("Entryfield text (max. ") + max + QStringLiteral(" Chars). ");
    if (!Enabled()) {
        return s;
    }
    if (isPasswordField()) {
        return s + (german ? QStringLiteral("Klicken Sie auf den Schlüssel rechts, um ein "
                                            "zufälliges Passwort zu generieren. ")
                           : QStringLiteral("Click the key on the right side to generate a "
                                            "random password. "));
    }
    const bool addShown = !d->picDropdownAdd->isHidden();
    if (!d->locked) {
        const bool emptyList = DropDownList().isEmpty();
        if (!emptyList && d->dropDownMustChooseFrom) {
            s += german ? QStringLiteral(
                              "Es kann nur ein definierter Text durch Klick auf den "
                              "Pfeil rechts ausgewählt werden. ")
                        : QStringLiteral(
                              "You can only choose a defined text by clicking on the "
                              "arrow on the right side. ");
        } else if (!emptyList) {
            if (german) {
                s += QStringLiteral(
                    "Klicken Sie auf den grünen Pfeil rechts (oder benutzen Sie "
                    "das Mausrad) für eine Liste definierter Texte. ");
                if (addShown) {
                    s += QStringLiteral(
                        "Drücken Sie Num+, um den eingegebenen Text der "
                        "DropDown-Liste hinzuzufügen. ");
                }
            } else {
                s += QStringLiteral(
                    "Click the arrow on the right side (or use the mouse wheel) "
                    "for a list of defined texts. ");
                if (addShown) {
                    s += QStringLiteral("Press Num+ to add the entered text to the DropDownList. ");
                }
            }
        } else if (german) {
            s += QStringLiteral(
                "Klicken Sie auf den Pfeil rechts (oder benutzen Sie das Mausrad) "
                "für eine Liste der zuletzt eingegebenen Texte. ");
        } else {
            s += QStringLiteral(
                "Click the green arrow on the right side (or use the mouse wheel) "
                "for a list of last entered texts. ");
            if (addShown) {
                s += QStringLiteral("Press Num+ to add the entered text to the drop-down-list. ");
            }
        }
    }
    switch (d->rules.TypingBehavior()) {
        case 1:
            s += german ? QStringLiteral("Automatische Kleinschreibung. ")
                        : QStringLiteral("Automatic lowercasing. ");
            break;
        case 2:
            s += german ? QStringLiteral("Automatische Großschreibung. ")
                        : QStringLiteral("Automatic capitalization. ");
            break;
        case 3:
            s += german ? QStringLiteral("Automatische Großschreibung am Wortanfang.")
                        : QStringLiteral("Automatic capitalization of words. ");
            break;
        default:
            break;
    }
    return s;
}

// --- Property setters
// -----------------------------------------------------------------------------

void Txt::setLocked(bool on) {
    d->locked = on;
    d->txtText->setLocked(on);
    ChangeSymbol();
    PropertyChanged(QStringLiteral("Locked"));
}

void Txt::setRegSave(bool on) {
    d->regSave = on;
    PropertyChanged(QStringLiteral("RegSave"));
}

void Txt::setEntryWizard(bool on) {
    d->entryWizard = on;
    d->picEntryWizard->setVisible(on);
    PropertyChanged(QStringLiteral("EntryWizard"));
}

void Txt::setTextTyp(const QString& kind) {
    d->textTyp = kind;
    PropertyChanged(QStringLiteral("TextTyp"));
}

void Txt::setPasswordChar(const QString& passwordChar) {
    d->passwordChar = passwordChar;
    ChangeSymbol();
    PropertyChanged(QStringLiteral("PasswordChar"));
}

// The field shows the current language's half; it is the latest word on that half.
QString Txt::Text_de() const {
    return IsGerman() ? d->txtText->text() : d->text.de();
}

QString Txt::Text_en() const {
    return IsGerman() ? d->text.en() : d->txtText->text();
}

namespace {

// The first max code units of a text (all of it for max 0), never half a surrogate pair.
QString cutTo(const QString& text, qint32 max) {
    if (max <= 0 || text.size() <= max) {
        return text;
    }
    const bool splitsPair = text.at(max - 1).isHighSurrogate() && text.at(max).isLowSurrogate();
    return text.left(splitsPair ? max - 1 : max);
}

}  // namespace

void Txt::setText_de(const QString& text) {
    const QString value = cutTo(text, d->txtText->MaxLength());
    letPairDe(d->text, value, QStringLiteral("Text"),
              [this](const QString&) { showCurrentText(); });
}

void Txt::setText_en(const QString& text) {
    const QString value = cutTo(text, d->txtText->MaxLength());
    letPairEn(d->text, value, QStringLiteral("Text"),
              [this](const QString&) { showCurrentText(); });
}

void Txt::setText(const QString& text) {
    if (IsGerman()) {
        setText_de(text);
    } else {
        setText_en(text);
    }
}

void Txt::setDropDownList_de(const QString& list) {
    d->dropDownList.setDe(tidyList(list, d->dropDownAllowDoubles, d->dropDownSorted));
    PropertyChanged(QStringLiteral("DropDownList_de"));
    ChangeSymbol();
}

void Txt::setDropDownList_en(const QString& list) {
    d->dropDownList.setEn(tidyList(list, d->dropDownAllowDoubles, d->dropDownSorted));
    PropertyChanged(QStringLiteral("DropDownList_en"));
    ChangeSymbol();
}

void Txt::setDropDownList(const QString& list) {
    if (IsGerman()) {
        setDropDownList_de(list);
    } else {
        setDropDownList_en(list);
    }
}

void Txt::setDropDownSorted(bool on) {
    d->dropDownSorted = on;
    if (on) {
        d->dropDownList.setDe(tidyList(d->dropDownList.de(), true, true));
        d->dropDownList.setEn(tidyList(d->dropDownList.en(), true, true));
    }
    PropertyChanged(QStringLiteral("DropDownSorted"));
}

void Txt::setDropDownAllowAdding(bool on) {
    d->dropDownAllowAdding = on;
    PropertyChanged(QStringLiteral("DropDownAllowAdding"));
}

void Txt::setDropDownAllowDoubles(bool on) {
    d->dropDownAllowDoubles = on;
    PropertyChanged(QStringLiteral("DropDownAllowDoubles"));
}

void Txt::setDropDownMustChooseFrom(bool on) {
    d->dropDownMustChooseFrom = on;
    if (on) {
        d->txtText->setLocked(true);
        d->dropDownAllowAdding = false;
    }
    PropertyChanged(QStringLiteral("DropDownMustChooseFrom"));
}

qint32 Txt::DropDownEntryNum() const {
    return PslIndexOf(DropDownList(), Text());
}

void Txt::setDropDownEntryNum(qint32 number) {
    const QString list = DropDownList();
    if (number > 0 && number <= PslCount(list)) {
        setText(PslItem(list, number));
    }
}

void Txt::setToolTipText_de(const QString& text) {
    letPairDe(d->toolTipText, text, QStringLiteral("ToolTipText"), {});
}

void Txt::setToolTipText_en(const QString& text) {
    letPairEn(d->toolTipText, text, QStringLiteral("ToolTipText"), {});
}

void Txt::setToolTipText(const QString& text) {
    letPair(d->toolTipText, text, QStringLiteral("ToolTipText"), {});
}

qint32 Txt::MaxLength() const {
    return d->txtText->MaxLength();
}

void Txt::setMaxLength(qint32 length) {
    const QString text = d->txtText->text();  // before the box cuts it by code units
    d->txtText->setMaxLengthProperty(length);
    if (text.size() > length) {
        setText(length > 0 ? cutTo(text, length) : QString());
    }
    PropertyChanged(QStringLiteral("MaxLength"));
}

void Txt::setOLEDragMode(int mode) {
    d->oleDragMode = mode;
    d->ole->setDragMode(mode);
    PropertyChanged(QStringLiteral("OLEDragMode"));
}

void Txt::setOLEDropMode(int mode) {
    d->oleDropMode = mode;
    d->ole->setDropMode(mode);
    PropertyChanged(QStringLiteral("OLEDropMode"));
}

void Txt::setValidChars(const QString& chars) {
    d->rules.setValidChars(chars);
    PropertyChanged(QStringLiteral("ValidChars"));
}

void Txt::setValidCharAnz(const QString& rules) {
    d->rules.setValidCharAnz(rules);
    PropertyChanged(QStringLiteral("ValidCharAnz"));
}

void Txt::setCharReplace(const QString& rules) {
    d->rules.setCharReplace(rules);
    PropertyChanged(QStringLiteral("CharReplace"));
}

int Txt::Alignment() const {
    return d->txtText->Alignment();
}

void Txt::setAlignment(int alignment) {
    d->txtText->setAlignmentProperty(alignment);
    PropertyChanged(QStringLiteral("Alignment"));
}

void Txt::setTypingBehavior(int behavior) {
    d->rules.setTypingBehavior(behavior);
    PropertyChanged(QStringLiteral("TypingBehavior"));
}

void Txt::setPassword(const QString& password) {
    d->plainPassword = password;
    showPlaceholders(d->txtText, password);
    PropertyChanged(QStringLiteral("PasswordChar"));
    emit Change();
}

qint32 Txt::SelStart() const {
    return d->txtText->SelStart();
}
void Txt::setSelStart(qint32 start) {
    d->txtText->setSelStart(start);
}
qint32 Txt::SelLength() const {
    return d->txtText->SelLength();
}
void Txt::setSelLength(qint32 length) {
    d->txtText->setSelLength(length);
}
QString Txt::SelText() const {
    return d->txtText->SelText();
}
void Txt::setSelText(const QString& text) {
    d->txtText->setSelText(text);
}

// --- Plain getters -----------------------------------------------------------------------------

bool Txt::Locked() const {
    return d->locked;
}

bool Txt::RegSave() const {
    return d->regSave;
}

bool Txt::EntryWizard() const {
    return d->entryWizard;
}

QString Txt::TextTyp() const {
    return d->textTyp;
}

QString Txt::PasswordChar() const {
    return d->passwordChar;
}

QString Txt::Text() const {
    return d->text.current();
}

QString Txt::DropDownList_de() const {
    return d->dropDownList.de();
}

QString Txt::DropDownList_en() const {
    return d->dropDownList.en();
}

QString Txt::DropDownList() const {
    return d->dropDownList.current();
}

bool Txt::DropDownSorted() const {
    return d->dropDownSorted;
}

bool Txt::DropDownAllowAdding() const {
    return d->dropDownAllowAdding;
}

bool Txt::DropDownAllowDoubles() const {
    return d->dropDownAllowDoubles;
}

bool Txt::DropDownMustChooseFrom() const {
    return d->dropDownMustChooseFrom;
}

QString Txt::ToolTipText_de() const {
    return d->toolTipText.de();
}

QString Txt::ToolTipText_en() const {
    return d->toolTipText.en();
}

QString Txt::ToolTipText() const {
    return d->toolTipText.current();
}

int Txt::OLEDragMode() const {
    return d->oleDragMode;
}

int Txt::OLEDropMode() const {
    return d->oleDropMode;
}

QString Txt::ValidChars() const {
    return d->rules.ValidChars();
}

QString Txt::ValidCharAnz() const {
    return d->rules.ValidCharAnz();
}

QString Txt::CharReplace() const {
    return d->rules.CharReplace();
}

int Txt::TypingBehavior() const {
    return d->rules.TypingBehavior();
}

QString Txt::Password() const {
    return d->plainPassword;
}

qint32 Txt::FillColor() const {
    return d->fillColor;
}

bool Txt::isPasswordField() const {
    return !d->passwordChar.isEmpty();
}

bool Txt::hasFocusFrame() const {
    return focusInside();
}

int Txt::lastKeyCode() const {
    return d->lastKeyCode;
}

void Txt::setFillColor(qint32 colour) {
    d->fillColor = colour;
}

QString& Txt::plainPassword() {
    return d->plainPassword;
}

const QString& Txt::ParentName() const {
    return d->parentName;
}

const QStringList& Txt::dropDownEntries() const {
    const QString list = DropDownList();
    if (list != d->splitSource || d->splitSource.isNull() != list.isNull()) {
        d->splitSource = list;
        d->splitEntries = TokenSplit(list, QStringLiteral("|"));
    }
    return d->splitEntries;
}

VORELLE_REGISTER_CONTROL(Txt)

}  // namespace vorelle
