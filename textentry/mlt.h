#pragma once

#include <QString>
#include <QVariant>
#include <memory>

#include "host/frame/FormControl.h"

namespace vorelle {

class MultilineField;
class mltPrivate;
class Shape;

/// Entry of a text of several lines: a native multi-line text box with the filters,
/// two-language texts and right-click menu of Txt (without list, entry wizard, password
/// mode or storage), and a large editing window opened with Ctrl+E.
class VORELLE_EXPORT mlt : public FormControl {
    Q_OBJECT
    Q_CLASSINFO("TypeName", "mlt")
    Q_CLASSINFO("ClassId", "{2AECC975-B9AE-4DEA-B285-9EB70BC2CCD3}")
    Q_CLASSINFO("InterfaceId", "{164FCCE4-B649-46CD-BCCA-96FA4B6867F6}")
    Q_CLASSINFO("EventInterfaceId", "{AB0760E2-D818-4704-B8D0-163CA3520267}")
    Q_CLASSINFO("AboutHeader", "ctrlMultilineText V 1.06")
    Q_CLASSINFO("AboutDescription", "Mehrzeiliges Eingabefeld für Text (internationalisiert)")

    // Persisted, in the order of the property bag.
    Q_PROPERTY(bool Enabled READ Enabled WRITE setEnabledProperty)
    Q_PROPERTY(bool Locked READ Locked WRITE setLocked)
    Q_PROPERTY(QString TextTyp READ TextTyp WRITE setTextTyp)
    Q_PROPERTY(QString PasswordChar READ PasswordChar WRITE setPasswordChar)
    Q_PROPERTY(QString Text_de READ Text_de WRITE setText_de)
    Q_PROPERTY(QString Text_en READ Text_en WRITE setText_en)
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
    Q_PROPERTY(qint32 SelStart READ SelStart WRITE setSelStart STORED false)
    Q_PROPERTY(qint32 SelLength READ SelLength WRITE setSelLength STORED false)
    Q_PROPERTY(QString SelText READ SelText WRITE setSelText STORED false)
    Q_PROPERTY(QString Status2_de READ Status2_de STORED false)
    Q_PROPERTY(QString Status2_en READ Status2_en STORED false)
    Q_PROPERTY(qint32 hdc READ hdc STORED false)
    Q_PROPERTY(bool HasDC READ HasDC STORED false)

public:
    /// ForeColor of a new control (an OLE colour number: red + 256 * green + 65536 * blue).
    static constexpr qint32 kDefaultForeColor = 0;
    /// BackColor of a new control (an OLE colour number: red + 256 * green + 65536 * blue).
    static constexpr qint32 kDefaultBackColor = 0xFFFFFF;
    /// MaxLength of a new control.
    static constexpr qint32 kDefaultMaxLength = 255;
    /// The name of the form of the enlarged copy.
    static constexpr const char* kEnlargeFormName = "frmEnlargeMultilineText";

    /// Creates the control; a form's loader passes the form as parent.
    explicit mlt(QWidget* parent = nullptr);
    /// Gives the field's hook its last message while the control is whole.
    ~mlt() override;

    /// Whether the control takes input; a disabled entry control passes the focus on.
    using ControlBase::Enabled;
    /// Sets Enabled.
    using ControlBase::setEnabledProperty;
    /// The background colour (an OLE colour number).
    using ControlBase::BackColor;
    /// The font of the control's text.
    using ControlBase::Font;
    /// The text colour (an OLE colour number).
    using ControlBase::ForeColor;
    /// Sets BackColor.
    using ControlBase::setBackColor;
    /// Sets Font.
    using ControlBase::setFontProperty;
    /// Sets ForeColor.
    using ControlBase::setForeColor;

    /// Whether the text can be read but not changed.
    bool Locked() const;
    /// Locks or unlocks the text.
    void setLocked(bool on);
    /// The kind of text the field takes (a label; the rules do the work).
    QString TextTyp() const;
    /// Sets the kind of text.
    void setTextTyp(const QString& kind);
    /// Kept for the native box; a multi-line box shows its text all the same.
    QString PasswordChar() const;
    /// Sets PasswordChar.
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
    /// The longest text, 0 for no limit.
    qint32 MaxLength() const;
    /// Sets the longest text and cuts the text to it.
    void setMaxLength(qint32 length);
    /// 0 manual (OLEDrag starts a drag), 1 automatic (dragging selected text starts one).
    int OLEDragMode() const;
    /// Sets the drag mode.
    void setOLEDragMode(int mode);
    /// 0 no drops; 1 manual: OLEDragOver and OLEDragDrop decide; 2 automatic.
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

    /// True when this control is the copy on the enlarged editing form.
    bool isEnlargedCopy() const;

    /// A click on the control focuses the field.
    Q_INVOKABLE void MouseClick(int Button, float X, float Y);
    /// Starts a drag of the selected text, whatever OLEDragMode is.
    Q_INVOKABLE void OLEDrag();
    /// Loads the language again, shows its texts and redraws.
    Q_INVOKABLE void Refresh();
    /// Opens the large editing window over the field; its text comes back on Ctrl+E or Esc
    /// there, closing it otherwise changes nothing.
    Q_INVOKABLE void Enlarge();

    /// The native text box, txtText.
    MultilineField* field() const;
    /// The inner focus frame, shpWeiss.
    Shape* innerFrame() const;
    /// The outer focus frame, shpBlau.
    Shape* outerFrame() const;

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
    void AfterReadProperties() override;
    void Resize() override;
    void EnterFocus() override;
    void ExitFocus() override;
    void applyForeColor(const QColor& color) override;
    void applyBackColor(const QColor& color) override;
    void applyEnabled(bool on) override;

private:
    void onKeyDown(int& KeyCode, int& Shift);
    void onKeyPress(int& KeyAscii);
    void onChange();
    void onMouseDown(int Button, int Shift, float X, float Y);
    void showContextMenu();
    void showCurrentText();
    void transferAndClose();
    QString status2(bool german) const;

    std::unique_ptr<mltPrivate> d;
};

}  // namespace vorelle
