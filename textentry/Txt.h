#pragma once

#include <QFont>
#include <QString>
#include <QVariant>
#include <memory>

#include "foundation/TextPair.h"
#include "host/frame/FormControl.h"
#include "textentry/CharRules.h"

namespace vorelle {

class EntryField;
class TxtPrivate;
class Form;
class Shape;
class SymbolPicture;

// The single-line text entry control: a native text box with two-language content, a
// keystroke filter driven by properties, a check on leaving, a hint for the status line,
// a right-click menu, storage of its content in the store, and a symbol at its right
// edge for the drop-down list, the entry wizard or the password generator.
class VORELLE_EXPORT Txt : public FormControl {
    Q_OBJECT
    Q_CLASSINFO("TypeName", "txt")
    Q_CLASSINFO("ClassId", "{C6B7310B-0F32-46D5-BE36-9D591958B4DE}")
    Q_CLASSINFO("InterfaceId", "{D7414094-1A3F-40A4-BE22-796367169EFA}")
    Q_CLASSINFO("EventInterfaceId", "{C886735D-4E98-4C60-B7C2-80E2FEDF9984}")
    Q_CLASSINFO("AboutHeader", "ctrlText V 1.21")
    Q_CLASSINFO("AboutDescription",
                "Eingabefeld für Text (mit EntryWizard)/Passwörter, sowie DropDown-Liste "
                "(internationalisiert)")

    // Persisted, in the order of the property bag.
    Q_PROPERTY(bool Enabled READ Enabled WRITE setEnabledProperty)
    Q_PROPERTY(bool Locked READ Locked WRITE setLocked)
    Q_PROPERTY(bool RegSave READ RegSave WRITE setRegSave)
    Q_PROPERTY(bool EntryWizard READ EntryWizard WRITE setEntryWizard)
    Q_PROPERTY(QString TextTyp READ TextTyp WRITE setTextTyp)
    Q_PROPERTY(QString PasswordChar READ PasswordChar WRITE setPasswordChar)
    Q_PROPERTY(QString Text_de READ Text_de WRITE setText_de)
    Q_PROPERTY(QString Text_en READ Text_en WRITE setText_en)
    Q_PROPERTY(QString DropDownList_de READ DropDownList_de WRITE setDropDownList_de)
    Q_PROPERTY(QString DropDownList_en READ DropDownList_en WRITE setDropDownList_en)
    Q_PROPERTY(bool DropDownSorted READ DropDownSorted WRITE setDropDownSorted)
    Q_PROPERTY(bool DropDownAllowAdding READ DropDownAllowAdding WRITE setDropDownAllowAdding)
    Q_PROPERTY(bool DropDownAllowDoubles READ DropDownAllowDoubles WRITE setDropDownAllowDoubles)
    Q_PROPERTY(
        bool DropDownMustChooseFrom READ DropDownMustChooseFrom WRITE setDropDownMustChooseFrom)
    Q_PROPERTY(QString ToolTipText_de READ ToolTipText_de WRITE setToolTipText_de)
    Q_PROPERTY(QString ToolTipText_en READ ToolTipText_en WRITE setToolTipText_en)
    Q_PROPERTY(qint32 ForeColor READ ForeColor WRITE setForeColor)
    Q_PROPERTY(qint32 BackColor READ BackColor WRITE setBackColor)
    Q_PROPERTY(QFont Font READ Font WRITE setFontProperty)
    Q_PROPERTY(qint32 MaxLength READ MaxLength WRITE setMaxLength)
    Q_PROPERTY(int OLEDragMode READ OLEDragMode WRITE setOLEDragMode)
    Q_PROPERTY(int OLEDropMode READ OLEDropMode WRITE setOLEDropMode)
    Q_PROPERTY(QString ValidChars READ ValidChars WRITE setValidChars)
    Q_PROPERTY(QString ValidCharAnz READ ValidCharAnz WRITE setValidCharAnz)
    Q_PROPERTY(QString CharReplace READ CharReplace WRITE setCharReplace)
    Q_PROPERTY(int Alignment READ Alignment WRITE setAlignment)
    Q_PROPERTY(int TypingBehavior READ TypingBehavior WRITE setTypingBehavior)

    // Not persisted.
    Q_PROPERTY(QString Text READ Text WRITE setText STORED false)
    Q_PROPERTY(QString ToolTipText READ ToolTipText WRITE setToolTipText STORED false)
    Q_PROPERTY(QString DropDownList READ DropDownList WRITE setDropDownList STORED false)
    Q_PROPERTY(qint32 DropDownEntryNum READ DropDownEntryNum WRITE setDropDownEntryNum STORED false)
    Q_PROPERTY(QString Password READ Password WRITE setPassword STORED false)
    Q_PROPERTY(qint32 SelStart READ SelStart WRITE setSelStart STORED false)
    Q_PROPERTY(qint32 SelLength READ SelLength WRITE setSelLength STORED false)
    Q_PROPERTY(QString SelText READ SelText WRITE setSelText STORED false)
    Q_PROPERTY(QString Status2_de READ Status2_de STORED false)
    Q_PROPERTY(QString Status2_en READ Status2_en STORED false)
    Q_PROPERTY(int Multiline READ Multiline STORED false)
    Q_PROPERTY(int ScrollBars READ ScrollBars STORED false)
    Q_PROPERTY(qint32 FillColor READ FillColor WRITE setFillColor STORED false)
    Q_PROPERTY(qint32 hdc READ hdc STORED false)
    Q_PROPERTY(bool HasDC READ HasDC STORED false)

public:
    /// Creates the field with its frames and symbols; started by the host.
    explicit Txt(QWidget* parent = nullptr);
    /// Gives the field's hook its last message while the control is whole.
    ~Txt() override;

    // --- Properties ---
    /// Enabled: a disabled field passes the focus on (the frame keeps the value).
    using ControlBase::Enabled;
    /// Sets Enabled; the field and its symbols follow.
    using ControlBase::setEnabledProperty;
    /// Whether the text can be read but not changed.
    bool Locked() const;
    /// Locks or unlocks the text.
    void setLocked(bool on);
    /// Whether the text is stored under the form's key on leaving and loaded at Load.
    bool RegSave() const;
    /// Switches storing of the text.
    void setRegSave(bool on);
    /// Whether the entry history (the wizard arrow) is offered.
    bool EntryWizard() const;
    /// Switches the entry history.
    void setEntryWizard(bool on);
    /// The kind of text the field takes ("Text" and others).
    QString TextTyp() const;
    /// Sets the kind of text.
    void setTextTyp(const QString& kind);
    /// The password character; not empty makes a password field.
    QString PasswordChar() const;
    /// Sets the password character.
    void setPasswordChar(const QString& passwordChar);
    /// The German text.
    QString Text_de() const;
    /// Sets the German text, cut to MaxLength.
    void setText_de(const QString& text);
    /// The English text.
    QString Text_en() const;
    /// Sets the English text, cut to MaxLength.
    void setText_en(const QString& text);
    /// The text of the current language.
    QString Text() const;
    /// Sets the text of the current language.
    void setText(const QString& text);
    /// The German drop-down list (pipe-separated).
    QString DropDownList_de() const;
    /// Sets the German list, tidied by DropDownAllowDoubles and DropDownSorted.
    void setDropDownList_de(const QString& list);
    /// The English drop-down list (pipe-separated).
    QString DropDownList_en() const;
    /// Sets the English list, tidied as the German one.
    void setDropDownList_en(const QString& list);
    /// The drop-down list of the current language.
    QString DropDownList() const;
    /// Sets the list of the current language.
    void setDropDownList(const QString& list);
    /// Whether the lists are kept sorted.
    bool DropDownSorted() const;
    /// Switches sorting; on sorts both lists now.
    void setDropDownSorted(bool on);
    /// Whether typed texts may be added to the list (Num+).
    bool DropDownAllowAdding() const;
    /// Switches adding to the list.
    void setDropDownAllowAdding(bool on);
    /// Whether the lists may hold an entry twice.
    bool DropDownAllowDoubles() const;
    /// Switches doubles in the lists.
    void setDropDownAllowDoubles(bool on);
    /// Whether only entries of the list can be chosen (the field is locked).
    bool DropDownMustChooseFrom() const;
    /// Switches choosing only from the list.
    void setDropDownMustChooseFrom(bool on);
    /// The 1-based place of the text in the list, 0 when absent.
    qint32 DropDownEntryNum() const;
    /// Takes the list entry with that number as the text.
    void setDropDownEntryNum(qint32 number);
    /// The German tooltip.
    QString ToolTipText_de() const;
    /// Sets the German tooltip.
    void setToolTipText_de(const QString& text);
    /// The English tooltip.
    QString ToolTipText_en() const;
    /// Sets the English tooltip.
    void setToolTipText_en(const QString& text);
    /// The tooltip of the current language.
    QString ToolTipText() const;
    /// Sets the tooltip of the current language.
    void setToolTipText(const QString& text);
    /// ForeColor, BackColor and Font are the frame's; they reach the field.
    using ControlBase::BackColor;
    using ControlBase::Font;
    using ControlBase::ForeColor;
    using ControlBase::setBackColor;
    using ControlBase::setFontProperty;
    using ControlBase::setForeColor;
    /// The longest text, 0 for no limit.
    qint32 MaxLength() const;
    /// Sets the longest text and cuts the text to it.
    void setMaxLength(qint32 length);
    /// 0 manual (OLEDrag starts a drag), 1 automatic (dragging selected text starts one).
    int OLEDragMode() const;
    /// Sets the drag mode.
    void setOLEDragMode(int mode);
    /// 0 no drops; 1 manual: OLEDragOver and OLEDragDrop decide; 2 automatic: the field
    /// takes dropped text itself.
    int OLEDropMode() const;
    /// Sets the drop mode.
    void setOLEDropMode(int mode);
    /// The characters that may be typed, "" for all.
    QString ValidChars() const;
    /// Sets the characters that may be typed.
    void setValidChars(const QString& chars);
    /// The count rules checked on leaving ("@=1|.>0").
    QString ValidCharAnz() const;
    /// Sets the count rules.
    void setValidCharAnz(const QString& rules);
    /// The replacement rules of typed characters.
    QString CharReplace() const;
    /// Sets the replacement rules.
    void setCharReplace(const QString& rules);
    /// 0 left, 1 right, 2 centred.
    int Alignment() const;
    /// Sets the alignment.
    void setAlignment(int alignment);
    /// 0 as typed, 1 lower case, 2 upper case, 3 capitals at word starts.
    int TypingBehavior() const;
    /// Sets the typing behaviour.
    void setTypingBehavior(int behavior);
    /// The plain password of a password field.
    QString Password() const;
    /// Sets the password; the field shows one mark per character.
    void setPassword(const QString& password);
    /// Start of the selection.
    qint32 SelStart() const;
    /// Moves the start of the selection.
    void setSelStart(qint32 start);
    /// Length of the selection.
    qint32 SelLength() const;
    /// Sets the length of the selection.
    void setSelLength(qint32 length);
    /// The selected text.
    QString SelText() const;
    /// Replaces the selected text.
    void setSelText(const QString& text);
    /// The German hint for the status line.
    QString Status2_de() const;
    /// The English hint for the status line.
    QString Status2_en() const;
    /// Constant 0: one line.
    int Multiline() const { return 0; }
    /// Constant 0: no scroll bars.
    int ScrollBars() const { return 0; }
    /// The fill colour (kept, not drawn).
    qint32 FillColor() const;
    /// Sets the fill colour.
    void setFillColor(qint32 colour);

    /// True when PasswordChar is set.
    bool isPasswordField() const;
    /// True while the focus frame shows (the focus is inside).
    bool hasFocusFrame() const;

    // --- Methods ---
    /// Loads the stored text (and list) from the form's key; raises Change.
    Q_INVOKABLE void RegLoading();
    /// Stores the text (and list) under the form's key.
    Q_INVOKABLE void RegSaving();
    /// Shows the symbol that fits the state: list, wizard, key or none.
    Q_INVOKABLE void ChangeSymbol();
    /// The mouse came over the control: hover symbols go.
    Q_INVOKABLE void MouseOver(int Button);
    /// The mouse left the control: hover symbols go.
    Q_INVOKABLE void MouseOut(int Button);
    /// A click on the control focuses the field.
    Q_INVOKABLE void MouseClick(int Button, float X, float Y);
    /// Starts a drag of the selected text, whatever OLEDragMode is.
    Q_INVOKABLE void OLEDrag();
    /// Reloads the language and shows its text.
    Q_INVOKABLE void Refresh();
    /// Fills the pop-up's list with the entries of DropDownList; an empty list leaves it.
    Q_INVOKABLE virtual void FillDropDown();
    /// Places the pop-up under the field and shows it modally; takes the chosen text and,
    /// with DropDownAllowAdding, the list as the pop-up hands them back.
    Q_INVOKABLE virtual void ShowDropDown();

    // --- Constituents ---
    /// The native text box, txtText.
    EntryField* field() const;
    /// The inner focus frame, shpWeiss.
    Shape* innerFrame() const;
    /// The outer focus frame, shpBlau.
    Shape* outerFrame() const;
    /// A symbol picture by name, or nullptr.
    SymbolPicture* picture(const QString& name) const;

signals:
    /// The text changed (raised last).
    void Change();
    /// The field was clicked.
    void Click();
    /// The field was double-clicked.
    void DblClick();
    /// A drag ended.
    void OLECompleteDrag(int& Effect);
    /// Something was dropped on the field.
    void OLEDragDrop(QVariant Data, int& Effect, int Button, int Shift, float X, float Y);
    /// Something is dragged over the field.
    void OLEDragOver(QVariant Data, int& Effect, int Button, int Shift, float X, float Y,
                     int State);
    /// Feedback during a drag.
    void OLEGiveFeedback(int& Effect, bool& DefaultCursors);
    /// Data of a drag is asked for.
    void OLESetData(QVariant Data, int& DataFormat);
    /// A drag starts.
    void OLEStartDrag(QVariant Data, int& AllowedEffects);
    /// A typed character after the filters; 0 drops it.
    void KeyPress(int& KeyAscii);

protected:
    void InitProperties() override;
    void ReadProperties(const PropertyBag& bag) override;
    void WriteProperties(PropertyBag& bag) const override;
    void Resize() override;
    void EnterFocus() override;
    void ExitFocus() override;
    void AfterReadProperties() override;
    void applyForeColor(const QColor& color) override;
    void applyBackColor(const QColor& color) override;
    void applyFont(const QFont& font) override;
    void applyEnabled(bool on) override;

    // Points where the drop-down list, the entry wizard and the password fields attach.
    // The Down key in a field with a list (KeyCode and Shift may be cleared).
    virtual void dropDownDownKey(int& KeyCode, int& Shift);
    // The add step of the numeric plus key.
    virtual void dropDownAdd();
    // The wheel step: 1 wheel turned away from the user, 2 towards.
    virtual void wheelStep(int direction);
    // Opens the pop-up of the entry history under the field.
    virtual void openEntryWizard();
    // A click on the key symbol: the generator form, whose password becomes Password.
    virtual void openPasswordGenerator();
    // A text that passed the check on leaving, for the entry history.
    virtual void addToEntryHistory(const QString& text);
    // A character typed into a password field (after the Ctrl filter and Return).
    virtual void passwordKeyPress(int keyAscii);
    // Loading and saving of the password value of a password field.
    virtual void passwordRegLoad();
    virtual void passwordRegSave();

    // The private state of the key handlers.
    int lastKeyCode() const;
    QString& plainPassword();
    const QString& ParentName() const;

private:
    void onKeyDown(int& KeyCode, int& Shift);
    void onKeyPress(int& KeyAscii);
    void onTextInput(QString& text);
    void onChange();
    void onMouseDown(int Button, int Shift, float X, float Y);
    void onMouseMove(int Button, int Shift, float X, float Y);
    void onMouseUp(int Button, int Shift, float X, float Y);
    void onParentLoad();
    void showContextMenu();
    void hideHoverPictures();
    void showHover(SymbolPicture* rest, SymbolPicture* hover);
    void showCurrentText();
    void setDropDownAddVisible(bool on);
    // A click on the list arrow or the add symbol: the list opens with no row chosen.
    void dropDownClick();
    // The entries of the current drop-down list, split only when the list changed.
    const QStringList& dropDownEntries() const;
    QString status2(bool german) const;

    std::unique_ptr<TxtPrivate> d;
};

}  // namespace vorelle
