#include "textentry/Txt.h"

#include <QApplication>
#include <QClipboard>
#include <QCoreApplication>

#include "foundation/Language.h"
#include "foundation/RegStore.h"
#include "foundation/Zentral.h"
#include "host/frame/ControlRegistry.h"
#include "host/input/EntryField.h"
#include "host/platform/Environment.h"
#include "host/form/Form.h"
#include "host/hooks/Hooks.h"
#include "host/platform/MenuBuilder.h"
#include "host/platform/MessageBox.h"
#include "host/frame/OleColor.h"
#include "host/frame/Shape.h"
#include "host/input/VirtualKeys.h"
#include "textentry/FocusFrame.h"
#include "textentry/SymbolPicture.h"
#include "textentry/TextBoxMenu.h"

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

Txt::Txt(QWidget* parent) : FormControl(parent) {
    using Kind = SymbolPicture::Kind;
    auto picture = [this](const char* name, Kind kind, bool hover) {
        auto* pic = new SymbolPicture(kind, hover, this);
        pic->setObjectName(QString::fromLatin1(name));
        pic->hide();
        return pic;
    };
    picDropdownAddMouseOver_ = picture("picDropdownAddMouseOver", Kind::Add, true);
    picDropdownAdd_ = picture("picDropdownAdd", Kind::Add, false);
    picPassMouseOver_ = picture("picPassMouseOver", Kind::Key, true);
    picEntryWizardMouseOver_ = picture("picEntryWizardMouseOver", Kind::WizardArrow, true);
    picEntryWizard_ = picture("picEntryWizard", Kind::WizardArrow, false);
    picPass_ = picture("picPass", Kind::Key, false);
    picDropdownMouseOver_ = picture("picDropdownMouseOver", Kind::ListArrow, true);
    picDropdown_ = picture("picDropdown", Kind::ListArrow, false);

    txtText_ = new EntryField(this);
    txtText_->setObjectName(QStringLiteral("txtText"));
    txtText_->setFrame(false);
    txtText_->setMouseTracking(true);
    txtText_->setContextMenuPolicy(Qt::PreventContextMenu);
    txtText_->setMaxLengthProperty(kDefaultMaxLength);

    shpWeiss_ = new Shape(this);
    shpWeiss_->setObjectName(QStringLiteral("shpWeiss"));
    shpBlau_ = new Shape(this);
    shpBlau_->setObjectName(QStringLiteral("shpBlau"));
    SetFocusFrame(shpWeiss_, shpBlau_, false);
    for (QWidget* part : findChildren<QWidget*>(Qt::FindDirectChildrenOnly)) {
        markConstituent(part);
    }

    setFocusProxy(txtText_);
    setFocusPolicy(Qt::StrongFocus);
    applyColours();

    connect(txtText_, &EntryField::KeyDown, this, &Txt::onKeyDown);
    connect(txtText_, &EntryField::KeyPress, this, &Txt::onKeyPress);
    connect(txtText_, &EntryField::Change, this, &Txt::onChange);
    connect(txtText_, &EntryField::MouseDown, this, &Txt::onMouseDown);
    connect(txtText_, &EntryField::MouseMove, this, &Txt::onMouseMove);
    connect(txtText_, &EntryField::MouseUp, this, &Txt::onMouseUp);

    const std::pair<SymbolPicture*, SymbolPicture*> symbols[] = {
        {picEntryWizard_, picEntryWizardMouseOver_},
        {picPass_, picPassMouseOver_},
        {picDropdown_, picDropdownMouseOver_},
        {picDropdownAdd_, picDropdownAddMouseOver_},
    };
    for (const auto& pair : symbols) {
        SymbolPicture* rest = pair.first;
        SymbolPicture* hover = pair.second;
        connect(rest, &SymbolPicture::MouseMove, this,
                [this, rest, hover] { showHover(rest, hover); });
        connect(hover, &SymbolPicture::MouseLeave, hover, &QWidget::hide);
    }
    connect(picEntryWizardMouseOver_, &SymbolPicture::Click, this, [this] { openEntryWizard(); });
    connect(picPassMouseOver_, &SymbolPicture::Click, this, [this] { openPasswordGenerator(); });
    connect(picDropdownMouseOver_, &SymbolPicture::Click, this, [this] { ShowDropDown(); });
    connect(picDropdownAddMouseOver_, &SymbolPicture::Click, this, [this] { ShowDropDown(); });
}

Txt::~Txt() = default;

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
    parentName_ = FormName();
    parentForm_ = parentForm();
    if (userMode() && parentForm_ && !loadConnected_) {
        connect(parentForm_, &Form::Load, this, &Txt::onParentLoad);
        loadConnected_ = true;
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

    enabled_ = p.enabled;
    locked_ = p.locked;
    regSave_ = p.regSave;
    entryWizard_ = p.entryWizard;
    textTyp_ = p.textTyp;
    passwordChar_ = p.passwordChar;
    text_ = TextPair(p.textDe, p.textEn);
    dropDownList_ = TextPair(p.listDe, p.listEn);
    dropDownSorted_ = p.sorted;
    dropDownAllowAdding_ = p.allowAdding;
    dropDownAllowDoubles_ = p.allowDoubles;
    dropDownMustChooseFrom_ = p.mustChooseFrom;
    toolTipText_ = TextPair(p.toolTipDe, p.toolTipEn);
    foreColor_ = p.foreColor;
    backColor_ = p.backColor;
    font_ = p.font;
    oleDragMode_ = p.oleDragMode;
    oleDropMode_ = p.oleDropMode;
    rules_.setValidChars(p.validChars);
    rules_.setValidCharAnz(p.validCharAnz);
    rules_.setCharReplace(p.charReplace);
    rules_.setTypingBehavior(p.typingBehavior);
    if (!entryWizard_) {
        picEntryWizard_->hide();
    }

    txtText_->setEnabled(enabled_);
    txtText_->setLocked(locked_);
    applyColours();
    txtText_->setFont(font_);
    txtText_->setMaxLengthProperty(p.maxLength);
    txtText_->setDragEnabled(oleDragMode_ == 1);
    txtText_->setAcceptDrops(oleDropMode_ != 0);
    txtText_->setAlignmentProperty(p.alignment);
    showCurrentText();
    if (dropDownMustChooseFrom_) {
        txtText_->setLocked(true);
    }
    ChangeSymbol();
}

void Txt::AfterReadProperties() {
    FormControl::AfterReadProperties();
    if (HookAllowed()) {
        Hook(txtText_, WMPROC_Control, QStringLiteral("txt"));
    }
}

void Txt::WriteProperties(PropertyBag& bag) const {
    FormControl::WriteProperties(bag);
    auto put = [&bag](const char* name, const QVariant& value, const QVariant& def) {
        bag.WriteProperty(QString::fromLatin1(name), value, def);
    };
    put("Enabled", enabled_, true);
    put("Locked", locked_, false);
    put("RegSave", regSave_, true);
    put("EntryWizard", entryWizard_, true);
    put("TextTyp", textTyp_, QStringLiteral("Text"));
    put("PasswordChar", passwordChar_, QString());
    put("Text_de", Text_de(), QString());
    put("Text_en", Text_en(), QString());
    put("DropDownList_de", dropDownList_.de(), QString());
    put("DropDownList_en", dropDownList_.en(), QString());
    put("DropDownSorted", dropDownSorted_, false);
    put("DropDownAllowAdding", dropDownAllowAdding_, false);
    put("DropDownAllowDoubles", dropDownAllowDoubles_, false);
    put("DropDownMustChooseFrom", dropDownMustChooseFrom_, false);
    put("ToolTipText_de", toolTipText_.de(), QString());
    put("ToolTipText_en", toolTipText_.en(), QString());
    put("ForeColor", foreColor_, 0);
    put("BackColor", backColor_, kDefaultBackColor);
    put("Font", font_, host().AmbientFont());
    put("MaxLength", MaxLength(), kDefaultMaxLength);
    put("OLEDragMode", oleDragMode_, 0);
    put("OLEDropMode", oleDropMode_, 0);
    put("ValidChars", rules_.ValidChars(), QString());
    put("ValidCharAnz", rules_.ValidCharAnz(), QString());
    put("CharReplace", rules_.CharReplace(), QString());
    put("Alignment", Alignment(), 0);
    put("TypingBehavior", rules_.TypingBehavior(), 0);
    writeResizing(bag);
}

void Txt::onParentLoad() {
    if (!regSave_ || !userMode()) {
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
    txtText_->setGeometry(kFieldInset, kFieldInset, TwipsToPixels(Width() - kFieldLessWidth),
                          TwipsToPixels(kFieldHeight));
    const int symbolLeft = TwipsToPixels(Width() - kSymbolFromRight);
    const int symbolTop = TwipsToPixels(kSymbolTop);
    for (SymbolPicture* pic :
         {picDropdownAddMouseOver_, picDropdownAdd_, picPassMouseOver_, picEntryWizardMouseOver_,
          picEntryWizard_, picPass_, picDropdownMouseOver_, picDropdown_}) {
        pic->setGeometry(symbolLeft, symbolTop, SymbolPicture::kSize, SymbolPicture::kSize);
    }
    // The outer frame at the control's corner, the inner one a pixel further in.
    shpBlau_->setTwipsGeometry(0, 0, Width() - kTwipsPerPixel, Height() - kTwipsPerPixel);
    shpWeiss_->setTwipsGeometry(kTwipsPerPixel, kTwipsPerPixel, Width() - kTwipsPerPixel,
                                Height() - kTwipsPerPixel);
    ChangeSymbol();
}

// --- Focus
// ----------------------------------------------------------------------------------------

void Txt::EnterFocus() {
    if (!enabled_) {
        SendKeysSafe(QStringLiteral("{tab}"));
    }
    hasFocus_ = true;
    ChangeSymbol();
}

void Txt::ExitFocus() {
    const QString text = txtText_->text();
    if (!text.isEmpty() && !rules_.ValidCharAnz().isEmpty() && !rules_.passesOnLeave(text)) {
        MsgBox(
            QStringLiteral("Die Eingabe in diesem Feld ist ungültig. Bitte korrigieren Sie sie."));
        txtText_->setFocus();
        return;
    }
    if (regSave_) {
        RegSaving();
    }
    if (!isPasswordField() && !text.isEmpty() && entryWizard_) {
        addToEntryHistory(text);
    }
    hasFocus_ = false;
    SetFocusFrame(shpWeiss_, shpBlau_, false);
}

// --- Keys
// -----------------------------------------------------------------------------------------

void Txt::onKeyDown(int& KeyCode, int& Shift) {
    if (!enabled_) {
        return;
    }
    lastKeyCode_ = KeyCode;
    if (isPasswordField()) {
        if (KeyCode == VK_DELETE) {
            plainPassword_.clear();
            txtText_->setText(QString());
        }
        KeyCode = 0;
        return;
    }
    if (KeyCode == VK_INSERT) {
        txtText_->setSelStart(0);
        txtText_->setSelLength(static_cast<qint32>(txtText_->text().size()));
        KeyCode = 0;
        Shift = 0;
        return;
    }
    if (locked_) {
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
        txtText_->setSelStart(0);
        txtText_->setSelLength(static_cast<qint32>(txtText_->text().size()));
        KeyAscii = 0;
        return;
    }
    if (KeyAscii == 43 && lastKeyCode_ == VK_ADD) {
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
    KeyAscii = rules_.filter(KeyAscii, txtText_->text(), txtText_->SelStart());
    if (KeyAscii == 0) {
        return;
    }
    if (KeyAscii == 124) {
        if (PipeRefused(parentForm_.data())) {
            KeyAscii = 0;
        }
        return;
    }
    emit KeyPress(KeyAscii);
}

void Txt::onChange() {
    const QString text = txtText_->text();
    text_.setCurrent(text);
    const QString list = DropDownList();
    if (lastKeyCode_ != VK_DELETE && lastKeyCode_ != VK_BACK && !text.isEmpty() &&
        !list.isEmpty()) {
        for (const QString& entry : TokenSplit(list, QStringLiteral("|"))) {
            if (entry.startsWith(text)) {
                if (entry != text) {
                    txtText_->setText(entry);  // runs this handler once more
                    txtText_->setSelection(static_cast<int>(text.size()),
                                           static_cast<int>(entry.size() - text.size()));
                }
                break;
            }
        }
    }
    if (dropDownAllowAdding_) {
        const QString now = txtText_->text();
        setDropDownAddVisible(!now.isEmpty() && !PslContains(list, now));
    }
    emit Change();
}

// --- Mouse
// ----------------------------------------------------------------------------------------

void Txt::onMouseDown(int Button, int Shift, float X, float Y) {
    mouseDownSelStart_ = txtText_->SelStart();
    if (Button == 2 && enabled_ && !isPasswordField()) {
        showContextMenu();
    }
}

void Txt::onMouseMove(int, int, float, float) {
    hideHoverPictures();
}

void Txt::onMouseUp(int Button, int Shift, float X, float Y) {
    qint16& wheel = MouseWheelDirection();
    bool& doubleClick = MouseDoubleClicked();
    if (locked_ || !enabled_) {
        wheel = 0;
    }
    if (wheel != 0) {
        const int direction = wheel;
        wheel = 0;
        wheelStep(direction);
    }
    if (doubleClick) {
        const QString text = txtText_->text();
        if (!text.isEmpty()) {
            const auto [start, length] = WordAround(text, mouseDownSelStart_);
            txtText_->setSelStart(start);
            txtText_->setSelLength(length);
            QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
        }
    }
    doubleClick = false;
    if (isPasswordField()) {
        txtText_->setCursorPosition(static_cast<int>(txtText_->text().size()));
    }
}

void Txt::MouseOver(int) {
    hideHoverPictures();
}
void Txt::MouseOut(int) {
    hideHoverPictures();
}
void Txt::MouseClick(int, float, float) {
    txtText_->setFocus();
}

void Txt::hideHoverPictures() {
    for (SymbolPicture* pic : {picDropdownAddMouseOver_, picPassMouseOver_,
                               picEntryWizardMouseOver_, picDropdownMouseOver_}) {
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
    TextBoxMenuState state;
    state.textEmpty = txtText_->text().isEmpty();
    state.selLength = txtText_->SelLength();
    state.locked = txtText_->Locked();
    state.clipboardHasText = !QGuiApplication::clipboard()->text().isEmpty();
    TextBoxMenuBuild(QStringLiteral("textbox"), QStringLiteral("Textfeld"),
                     QStringLiteral("Text field"), state);
    QObject* wizard = parentForm_ ? parentForm_->Controls(QStringLiteral("FormWizard1")) : nullptr;
    if (!wizard) {
        return;  // the menu goes through the form's manager; without one it does not open
    }
    setUpdatesEnabled(false);
    const QString chosen = MenuShow(wizard);
    setUpdatesEnabled(true);
    UnlockWindowUpdate();
    TextBoxMenuAct(chosen, txtText_);
}

// --- Symbols and frame -------------------------------------------------------------------------

void Txt::ChangeSymbol() {
    const bool password = isPasswordField();
    if (password) {
        txtText_->setPasswordChar(kPasswordDot);
        QFont bold = font_;
        bold.setBold(true);
        txtText_->setFont(bold);
        picPass_->show();
        picEntryWizard_->hide();
        picDropdown_->hide();
        picDropdownAdd_->hide();
    } else {
        if (!txtText_->PasswordChar().isEmpty()) {
            txtText_->setPasswordChar(QString());
            txtText_->setFont(font_);
        }
        const bool emptyList = DropDownList().isEmpty();
        if ((emptyList && locked_) || !enabled_) {
            picEntryWizard_->hide();
            picPass_->hide();
            picDropdown_->hide();
            picDropdownAdd_->hide();
        } else if (!emptyList) {
            picDropdown_->show();
            picEntryWizard_->hide();
            picPass_->hide();
        } else {
            picEntryWizard_->setVisible(entryWizard_);
            picPass_->hide();
            picDropdown_->hide();
            picDropdownAdd_->hide();
        }
    }
    if (hasFocus_) {
        SetFocusFrame(shpWeiss_, shpBlau_, true);
    }
}

void Txt::setDropDownAddVisible(bool on) {
    if (on) {
        picDropdownAdd_->raise();
    }
    picDropdownAdd_->setVisible(on);
}

void Txt::applyColours() {
    QPalette palette = txtText_->palette();
    palette.setColor(QPalette::Text, OleToQColor(foreColor_));
    palette.setColor(QPalette::Base, OleToQColor(backColor_));
    txtText_->setPalette(palette);
}

void Txt::showCurrentText() {
    const QString& text = text_.current();
    if (txtText_->text() != text) {
        txtText_->setText(text);
    }
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
    RegSet(program, parentName_, name + QStringLiteral(".Text_de"), Text_de());
    RegSet(program, parentName_, name + QStringLiteral(".Text_en"), Text_en());
    if (dropDownAllowAdding_) {
        RegSet(program, parentName_, name + QStringLiteral(".DropDownList_de"), dropDownList_.de());
        RegSet(program, parentName_, name + QStringLiteral(".DropDownList_en"), dropDownList_.en());
    }
}

void Txt::RegLoading() {
    if (!enabled_ || locked_) {
        return;
    }
    const QString program = ModuleAppName();
    const QString name = ControlName();
    if (isPasswordField()) {
        passwordRegLoad();
    } else {
        setText_de(RegGet(program, parentName_, name + QStringLiteral(".Text_de"), Text_de()));
        setText_en(RegGet(program, parentName_, name + QStringLiteral(".Text_en"), Text_en()));
    }
    if (dropDownAllowAdding_) {
        QString listDe = dropDownList_.de();
        QString listEn = dropDownList_.en();
        const QString storedDe =
            RegGet(program, parentName_, name + QStringLiteral(".DropDownList_de"), QString());
        const QString storedEn =
            RegGet(program, parentName_, name + QStringLiteral(".DropDownList_en"), QString());
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
    if (!enabled_) {
        return s;
    }
    if (isPasswordField()) {
        return s + (german ? QStringLiteral("Klicken Sie auf den Schlüssel rechts, um ein "
                                            "zufälliges Passwort zu generieren. ")
                           : QStringLiteral("Click the key on the right side to generate a "
                                            "random password. "));
    }
    const bool addShown = !picDropdownAdd_->isHidden();
    if (!locked_) {
        const bool emptyList = DropDownList().isEmpty();
        if (!emptyList && dropDownMustChooseFrom_) {
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
    switch (rules_.TypingBehavior()) {
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

void Txt::setEnabledProperty(bool on) {
    enabled_ = on;
    txtText_->setEnabled(on);
    ChangeSymbol();
    PropertyChanged(QStringLiteral("Enabled"));
}

void Txt::setLocked(bool on) {
    locked_ = on;
    txtText_->setLocked(on);
    ChangeSymbol();
    PropertyChanged(QStringLiteral("Locked"));
}

void Txt::setRegSave(bool on) {
    regSave_ = on;
    PropertyChanged(QStringLiteral("RegSave"));
}

void Txt::setEntryWizard(bool on) {
    entryWizard_ = on;
    picEntryWizard_->setVisible(on);
    PropertyChanged(QStringLiteral("EntryWizard"));
}

void Txt::setTextTyp(const QString& kind) {
    textTyp_ = kind;
    PropertyChanged(QStringLiteral("TextTyp"));
}

void Txt::setPasswordChar(const QString& passwordChar) {
    passwordChar_ = passwordChar;
    ChangeSymbol();
    PropertyChanged(QStringLiteral("PasswordChar"));
}

QString Txt::Text_de() const {
    if (IsGerman()) {
        const_cast<TextPair&>(text_).setDe(txtText_->text());
    }
    return text_.de();
}

QString Txt::Text_en() const {
    if (!IsGerman()) {
        const_cast<TextPair&>(text_).setEn(txtText_->text());
    }
    return text_.en();
}

void Txt::setText_de(const QString& text) {
    const qint32 max = txtText_->MaxLength();
    const QString value = (max > 0 && text.size() > max) ? text.left(max) : text;
    letPairDe(text_, value, QStringLiteral("Text"), [this](const QString&) { showCurrentText(); });
}

void Txt::setText_en(const QString& text) {
    const qint32 max = txtText_->MaxLength();
    const QString value = (max > 0 && text.size() > max) ? text.left(max) : text;
    letPairEn(text_, value, QStringLiteral("Text"), [this](const QString&) { showCurrentText(); });
}

void Txt::setText(const QString& text) {
    if (IsGerman()) {
        setText_de(text);
    } else {
        setText_en(text);
    }
}

void Txt::setDropDownList_de(const QString& list) {
    dropDownList_.setDe(tidyList(list, dropDownAllowDoubles_, dropDownSorted_));
    PropertyChanged(QStringLiteral("DropDownList_de"));
    ChangeSymbol();
}

void Txt::setDropDownList_en(const QString& list) {
    dropDownList_.setEn(tidyList(list, dropDownAllowDoubles_, dropDownSorted_));
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
    dropDownSorted_ = on;
    if (on) {
        dropDownList_.setDe(tidyList(dropDownList_.de(), true, true));
        dropDownList_.setEn(tidyList(dropDownList_.en(), true, true));
    }
    PropertyChanged(QStringLiteral("DropDownSorted"));
}

void Txt::setDropDownAllowAdding(bool on) {
    dropDownAllowAdding_ = on;
    PropertyChanged(QStringLiteral("DropDownAllowAdding"));
}

void Txt::setDropDownAllowDoubles(bool on) {
    dropDownAllowDoubles_ = on;
    PropertyChanged(QStringLiteral("DropDownAllowDoubles"));
}

void Txt::setDropDownMustChooseFrom(bool on) {
    dropDownMustChooseFrom_ = on;
    if (on) {
        txtText_->setLocked(true);
        dropDownAllowAdding_ = false;
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
    letPairDe(toolTipText_, text, QStringLiteral("ToolTipText"), {});
}

void Txt::setToolTipText_en(const QString& text) {
    letPairEn(toolTipText_, text, QStringLiteral("ToolTipText"), {});
}

void Txt::setToolTipText(const QString& text) {
    letPair(toolTipText_, text, QStringLiteral("ToolTipText"), {});
}

void Txt::setForeColor(qint32 colour) {
    foreColor_ = colour;
    applyColours();
    PropertyChanged(QStringLiteral("ForeColor"));
}

void Txt::setBackColor(qint32 colour) {
    backColor_ = colour;
    applyColours();
    PropertyChanged(QStringLiteral("BackColor"));
}

QFont Txt::Font() const {
    return font_;
}

void Txt::setFontProperty(const QFont& font) {
    font_ = font;
    QFont shown = font;
    if (isPasswordField()) {
        shown.setBold(true);
    }
    txtText_->setFont(shown);
    PropertyChanged(QStringLiteral("Font"));
}

qint32 Txt::MaxLength() const {
    return txtText_->MaxLength();
}

void Txt::setMaxLength(qint32 length) {
    txtText_->setMaxLengthProperty(length);
    const QString text = txtText_->text();
    if (text.size() > length) {
        setText(text.left(std::max(length, 0)));
    }
    PropertyChanged(QStringLiteral("MaxLength"));
}

void Txt::setOLEDragMode(int mode) {
    oleDragMode_ = mode;
    txtText_->setDragEnabled(mode == 1);
    PropertyChanged(QStringLiteral("OLEDragMode"));
}

void Txt::setOLEDropMode(int mode) {
    oleDropMode_ = mode;
    txtText_->setAcceptDrops(mode != 0);
    PropertyChanged(QStringLiteral("OLEDropMode"));
}

void Txt::setValidChars(const QString& chars) {
    rules_.setValidChars(chars);
    PropertyChanged(QStringLiteral("ValidChars"));
}

void Txt::setValidCharAnz(const QString& rules) {
    rules_.setValidCharAnz(rules);
    PropertyChanged(QStringLiteral("ValidCharAnz"));
}

void Txt::setCharReplace(const QString& rules) {
    rules_.setCharReplace(rules);
    PropertyChanged(QStringLiteral("CharReplace"));
}

int Txt::Alignment() const {
    return txtText_->Alignment();
}

void Txt::setAlignment(int alignment) {
    txtText_->setAlignmentProperty(alignment);
    PropertyChanged(QStringLiteral("Alignment"));
}

void Txt::setTypingBehavior(int behavior) {
    rules_.setTypingBehavior(behavior);
    PropertyChanged(QStringLiteral("TypingBehavior"));
}

void Txt::setPassword(const QString& password) {
    plainPassword_ = password;
    txtText_->setText(QString(password.size(), u'?'));
    txtText_->setCursorPosition(static_cast<int>(password.size()));
    PropertyChanged(QStringLiteral("PasswordChar"));
    emit Change();
}

qint32 Txt::SelStart() const {
    return txtText_->SelStart();
}
void Txt::setSelStart(qint32 start) {
    txtText_->setSelStart(start);
}
qint32 Txt::SelLength() const {
    return txtText_->SelLength();
}
void Txt::setSelLength(qint32 length) {
    txtText_->setSelLength(length);
}
QString Txt::SelText() const {
    return txtText_->SelText();
}
void Txt::setSelText(const QString& text) {
    txtText_->setSelText(text);
}

VORELLE_REGISTER_CONTROL(Txt)

}  // namespace vorelle
