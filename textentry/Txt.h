#pragma once

#include <QFont>
#include <QPointer>
#include <QString>
#include <QVariant>

#include "foundation/TextPair.h"
#include "host/frame/FormControl.h"
#include "textentry/CharRules.h"

namespace vorelle {

class EntryField;
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

public:
    explicit Txt(QWidget* parent = nullptr);
    ~Txt() override;

    // --- Properties ---
    bool Enabled() const { return enabled_; }
    void setEnabledProperty(bool on);
    bool Locked() const { return locked_; }
    void setLocked(bool on);
    bool RegSave() const { return regSave_; }
    void setRegSave(bool on);
    bool EntryWizard() const { return entryWizard_; }
    void setEntryWizard(bool on);
    QString TextTyp() const { return textTyp_; }
    void setTextTyp(const QString& kind);
    QString PasswordChar() const { return passwordChar_; }
    void setPasswordChar(const QString& passwordChar);
    QString Text_de() const;
    void setText_de(const QString& text);
    QString Text_en() const;
    void setText_en(const QString& text);
    QString Text() const { return text_.current(); }
    void setText(const QString& text);
    QString DropDownList_de() const { return dropDownList_.de(); }
    void setDropDownList_de(const QString& list);
    QString DropDownList_en() const { return dropDownList_.en(); }
    void setDropDownList_en(const QString& list);
    QString DropDownList() const { return dropDownList_.current(); }
    void setDropDownList(const QString& list);
    bool DropDownSorted() const { return dropDownSorted_; }
    void setDropDownSorted(bool on);
    bool DropDownAllowAdding() const { return dropDownAllowAdding_; }
    void setDropDownAllowAdding(bool on);
    bool DropDownAllowDoubles() const { return dropDownAllowDoubles_; }
    void setDropDownAllowDoubles(bool on);
    bool DropDownMustChooseFrom() const { return dropDownMustChooseFrom_; }
    void setDropDownMustChooseFrom(bool on);
    qint32 DropDownEntryNum() const;
    void setDropDownEntryNum(qint32 number);
    QString ToolTipText_de() const { return toolTipText_.de(); }
    void setToolTipText_de(const QString& text);
    QString ToolTipText_en() const { return toolTipText_.en(); }
    void setToolTipText_en(const QString& text);
    QString ToolTipText() const { return toolTipText_.current(); }
    void setToolTipText(const QString& text);
    qint32 ForeColor() const { return foreColor_; }
    void setForeColor(qint32 colour);
    qint32 BackColor() const { return backColor_; }
    void setBackColor(qint32 colour);
    QFont Font() const;
    void setFontProperty(const QFont& font);
    qint32 MaxLength() const;
    void setMaxLength(qint32 length);
    int OLEDragMode() const { return oleDragMode_; }
    void setOLEDragMode(int mode);
    int OLEDropMode() const { return oleDropMode_; }
    void setOLEDropMode(int mode);
    QString ValidChars() const { return rules_.ValidChars(); }
    void setValidChars(const QString& chars);
    QString ValidCharAnz() const { return rules_.ValidCharAnz(); }
    void setValidCharAnz(const QString& rules);
    QString CharReplace() const { return rules_.CharReplace(); }
    void setCharReplace(const QString& rules);
    int Alignment() const;
    void setAlignment(int alignment);
    int TypingBehavior() const { return rules_.TypingBehavior(); }
    void setTypingBehavior(int behavior);
    QString Password() const { return plainPassword_; }
    void setPassword(const QString& password);
    qint32 SelStart() const;
    void setSelStart(qint32 start);
    qint32 SelLength() const;
    void setSelLength(qint32 length);
    QString SelText() const;
    void setSelText(const QString& text);
    QString Status2_de() const;
    QString Status2_en() const;
    int Multiline() const { return 0; }
    int ScrollBars() const { return 0; }
    qint32 FillColor() const { return fillColor_; }
    void setFillColor(qint32 colour) { fillColor_ = colour; }

    bool isPasswordField() const { return !passwordChar_.isEmpty(); }
    bool hasFocusFrame() const { return hasFocus_; }

    // --- Methods ---
    Q_INVOKABLE void RegLoading();
    Q_INVOKABLE void RegSaving();
    Q_INVOKABLE void ChangeSymbol();
    Q_INVOKABLE void MouseOver(int Button);
    Q_INVOKABLE void MouseOut(int Button);
    Q_INVOKABLE void MouseClick(int Button, float X, float Y);
    Q_INVOKABLE void OLEDrag() {}
    Q_INVOKABLE void Refresh();
    Q_INVOKABLE virtual void FillDropDown() {}
    Q_INVOKABLE virtual void ShowDropDown() {}

    // --- Constituents ---
    EntryField* field() const { return txtText_; }
    Shape* innerFrame() const { return shpWeiss_; }
    Shape* outerFrame() const { return shpBlau_; }
    SymbolPicture* picture(const QString& name) const;

signals:
    void Change();
    void Click();
    void DblClick();
    void OLECompleteDrag(int& Effect);
    void OLEDragDrop(QVariant Data, int& Effect, int Button, int Shift, float X, float Y);
    void OLEDragOver(QVariant Data, int& Effect, int Button, int Shift, float X, float Y,
                     int State);
    void OLEGiveFeedback(int& Effect, bool& DefaultCursors);
    void OLESetData(QVariant Data, int& DataFormat);
    void OLEStartDrag(QVariant Data, int& AllowedEffects);
    void KeyPress(int& KeyAscii);

protected:
    void InitProperties() override;
    void ReadProperties(const PropertyBag& bag) override;
    void WriteProperties(PropertyBag& bag) const override;
    void Resize() override;
    void EnterFocus() override;
    void ExitFocus() override;
    void AfterReadProperties() override;

    // Points where the drop-down list, the entry wizard and the password fields attach.
    // Each does nothing here.
    // The Down key in a field with a list (KeyCode and Shift may be cleared).
    virtual void dropDownDownKey(int& KeyCode, int& Shift) {}
    // The add step of the numeric plus key.
    virtual void dropDownAdd() {}
    // The wheel step: 1 wheel turned away from the user, 2 towards.
    virtual void wheelStep(int direction) {}
    virtual void openEntryWizard() {}
    virtual void openPasswordGenerator() {}
    // A text that passed the check on leaving, for the entry history.
    virtual void addToEntryHistory(const QString& text) {}
    // A character typed into a password field (after the Ctrl filter and Return).
    virtual void passwordKeyPress(int keyAscii) {}
    // Loading and saving of the password value of a password field.
    virtual void passwordRegLoad() {}
    virtual void passwordRegSave() {}

    // The private state of the key handlers.
    int lastKeyCode() const { return lastKeyCode_; }
    QString& plainPassword() { return plainPassword_; }
    const QString& ParentName() const { return parentName_; }

private:
    void onKeyDown(int& KeyCode, int& Shift);
    void onKeyPress(int& KeyAscii);
    void onChange();
    void onMouseDown(int Button, int Shift, float X, float Y);
    void onMouseMove(int Button, int Shift, float X, float Y);
    void onMouseUp(int Button, int Shift, float X, float Y);
    void onParentLoad();
    void showContextMenu();
    void hideHoverPictures();
    void showHover(SymbolPicture* rest, SymbolPicture* hover);
    void showCurrentText();
    void applyColours();
    void setDropDownAddVisible(bool on);
    QString status2(bool german) const;

    EntryField* txtText_ = nullptr;
    Shape* shpWeiss_ = nullptr;
    Shape* shpBlau_ = nullptr;
    SymbolPicture* picDropdownAddMouseOver_ = nullptr;
    SymbolPicture* picDropdownAdd_ = nullptr;
    SymbolPicture* picPassMouseOver_ = nullptr;
    SymbolPicture* picEntryWizardMouseOver_ = nullptr;
    SymbolPicture* picEntryWizard_ = nullptr;
    SymbolPicture* picPass_ = nullptr;
    SymbolPicture* picDropdownMouseOver_ = nullptr;
    SymbolPicture* picDropdown_ = nullptr;

    CharRules rules_;
    TextPair text_;
    TextPair dropDownList_;
    TextPair toolTipText_;
    QString textTyp_ = QStringLiteral("Text");
    QString passwordChar_;
    QString plainPassword_;
    QString parentName_;
    QPointer<Form> parentForm_;
    QFont font_;
    qint32 foreColor_ = 0;
    qint32 backColor_ = 0xFFFFFF;
    qint32 fillColor_ = 0;
    int oleDragMode_ = 0;
    int oleDropMode_ = 0;
    int lastKeyCode_ = 0;
    int mouseDownSelStart_ = 0;
    bool enabled_ = true;
    bool locked_ = false;
    bool regSave_ = true;
    bool entryWizard_ = true;
    bool dropDownSorted_ = false;
    bool dropDownAllowAdding_ = false;
    bool dropDownAllowDoubles_ = false;
    bool dropDownMustChooseFrom_ = false;
    bool hasFocus_ = false;
    bool loadConnected_ = false;
};

}  // namespace vorelle
