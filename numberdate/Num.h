#pragma once

#include <QFont>
#include <QString>
#include <QVariant>
#include <memory>

#include "host/frame/FormControl.h"

class QScrollBar;

namespace vorelle {

class EntryField;
class NumPrivate;
class Shape;

/// Entry of a number: a text box that shows the value with the locale's thousands
/// separators, a bar under it that shows the value within its range and can be clicked,
/// and a pair of spin arrows. The value is one double, Zahl; the text is only a view of
/// it. The sign is not in the text: a minus is drawn as a line, and a negative number is
/// red.
class VORELLE_EXPORT Num : public FormControl {
    Q_OBJECT
    Q_CLASSINFO("TypeName", "num")
    Q_CLASSINFO("ClassId", "{EB05DB0C-0AC2-4B8B-9BF4-4E83E20924A2}")
    Q_CLASSINFO("InterfaceId", "{1E813B07-C71F-4E25-A048-CB433DB77A06}")
    Q_CLASSINFO("EventInterfaceId", "{3006DD2B-F78E-44A9-B8A0-D5BDB03A23A8}")
    Q_CLASSINFO("AboutHeader", "ctrlZahl V 1.14")
    Q_CLASSINFO("AboutDescription", "Eingabefeld für numerische Werte (internationalisiert)")

    // Persisted, in the order of the property bag.
    Q_PROPERTY(double Zahl READ Zahl WRITE setZahl)
    Q_PROPERTY(double Min READ Min WRITE setMin)
    Q_PROPERTY(double Max READ Max WRITE setMax)
    Q_PROPERTY(int Nachkommastellen READ Nachkommastellen WRITE setNachkommastellen)
    Q_PROPERTY(bool RegSave READ RegSave WRITE setRegSave)
    Q_PROPERTY(bool Enabled READ Enabled WRITE setEnabledProperty)
    Q_PROPERTY(bool Locked READ Locked WRITE setLocked)
    Q_PROPERTY(QString ToolTipText_de READ ToolTipText_de WRITE setToolTipText_de)
    Q_PROPERTY(QString ToolTipText_en READ ToolTipText_en WRITE setToolTipText_en)
    Q_PROPERTY(qint32 ForeColor READ ForeColor WRITE setForeColor)
    Q_PROPERTY(qint32 BackColor READ BackColor WRITE setBackColor)
    Q_PROPERTY(QFont Font READ Font WRITE setFontProperty)
    Q_PROPERTY(int OLEDragMode READ OLEDragMode WRITE setOLEDragMode)
    Q_PROPERTY(int OLEDropMode READ OLEDropMode WRITE setOLEDropMode)
    Q_PROPERTY(int Alignment READ Alignment WRITE setAlignment)

    // Not persisted.
    Q_PROPERTY(double Number READ Zahl WRITE setZahl STORED false)
    Q_PROPERTY(double Value READ Zahl WRITE setZahl STORED false)
    Q_PROPERTY(QString Text READ Text STORED false)
    Q_PROPERTY(qint32 SelStart READ SelStart WRITE setSelStart STORED false)
    Q_PROPERTY(qint32 SelLength READ SelLength WRITE setSelLength STORED false)
    Q_PROPERTY(QString SelText READ SelText WRITE setSelText STORED false)
    Q_PROPERTY(QString Status2_de READ Status2_de STORED false)
    Q_PROPERTY(QString Status2_en READ Status2_en STORED false)

public:
    /// The smallest value of a new control.
    static constexpr double kDefaultMin = -999999999999.0;
    /// The largest value of a new control.
    static constexpr double kDefaultMax = 999999999999.0;
    /// Zahl of a new control.
    static constexpr double kDefaultZahl = 1.0;
    /// The most decimals the control keeps.
    static constexpr int kMaxNachkommastellen = 15;

    /// Creates the control with its text box, bar, spin arrows, frames and minus line.
    explicit Num(QWidget* parent = nullptr);
    /// Gives the field's hook its last message while the control is whole.
    ~Num() override;

    // --- Properties ---
    /// The value.
    double Zahl() const;
    /// Sets the value through SetZahl.
    void setZahl(double value);
    /// The smallest value accepted on leaving.
    double Min() const;
    /// Sets Min; a value below it is raised to it.
    void setMin(double value);
    /// The largest value; anything above snaps to it at once.
    double Max() const;
    /// Sets Max; a value above it is lowered to it.
    void setMax(double value);
    /// Decimals kept (cut, not rounded), 0 to kMaxNachkommastellen.
    int Nachkommastellen() const;
    /// Sets the decimals and shows the value anew.
    void setNachkommastellen(int digits);
    /// Whether the value is stored under the form's key on leaving and loaded at Load.
    bool RegSave() const;
    /// Switches storing of the value.
    void setRegSave(bool on);
    /// Whether the control takes input; a disabled control passes the focus on.
    using ControlBase::Enabled;
    /// Sets Enabled; the text box and the spin arrows follow.
    using ControlBase::setEnabledProperty;
    /// Whether the value can be read but not changed.
    bool Locked() const;
    /// Locks or unlocks the value; the spin arrows follow.
    void setLocked(bool on);
    /// The German tooltip ("-" while the mouse is over the bar).
    QString ToolTipText_de() const;
    /// Sets the German tooltip.
    void setToolTipText_de(const QString& text);
    /// The English tooltip ("-" while the mouse is over the bar).
    QString ToolTipText_en() const;
    /// Sets the English tooltip.
    void setToolTipText_en(const QString& text);
    /// The background colour (an OLE colour number).
    using ControlBase::BackColor;
    /// The font of the digits.
    using ControlBase::Font;
    /// The text colour (an OLE colour number); a negative value is shown red.
    using ControlBase::ForeColor;
    /// Sets BackColor.
    using ControlBase::setBackColor;
    /// Sets Font.
    using ControlBase::setFontProperty;
    /// Sets ForeColor.
    using ControlBase::setForeColor;
    /// 0 manual, 1 automatic dragging of the text.
    int OLEDragMode() const;
    /// Sets the drag mode.
    void setOLEDragMode(int mode);
    /// 0 none, otherwise drops are taken.
    int OLEDropMode() const;
    /// Sets the drop mode.
    void setOLEDropMode(int mode);
    /// 0 left, 1 right, 2 centred; written but not read back from the property bag.
    int Alignment() const;
    /// Sets the alignment.
    void setAlignment(int alignment);
    /// The text of the text box.
    QString Text() const;
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

    /// Whether the minus line shows: the digits count as negative.
    bool minusShown() const;
    /// True while the focus frame shows (the focus is inside).
    bool hasFocusFrame() const;

    // --- Methods ---
    /// The main operation: cuts the value to Nachkommastellen, snaps it to Max, writes the
    /// text with thousands separators keeping the caret on its digit, shows the sign and
    /// the bar.
    Q_INVOKABLE void SetZahl(double value);
    /// Loads the stored value from the form's key; raises Change.
    Q_INVOKABLE void RegLoading();
    /// Stores the value under the form's key when it lies within Min and Max.
    Q_INVOKABLE void RegSaving();
    /// Puts the bar in place and colour for the value.
    Q_INVOKABLE void ChangeSlider();
    /// A click on the control focuses the field.
    Q_INVOKABLE void MouseClick(int Button, float X, float Y);
    /// The mouse moved over the control (twips): over the bar it shows the value there
    /// and, with button 1 down, takes it.
    Q_INVOKABLE void MouseMove(int Button, float X, float Y);
    /// The mouse left the control: pointer and tooltips come back.
    Q_INVOKABLE void MouseOut(int Button);
    /// Starts dragging (nothing here).
    Q_INVOKABLE void OLEDrag() {}
    /// Reloads the language and redraws.
    Q_INVOKABLE void Refresh();

    // --- Constituents ---
    /// The native text box, txtText.
    EntryField* field() const;
    /// The inner focus frame, shpWeiss.
    Shape* innerFrame() const;
    /// The outer focus frame, shpBlau.
    Shape* outerFrame() const;
    /// The coloured bar, picInnen.
    QWidget* bar() const;
    /// The spin arrows, scrZahl.
    QScrollBar* spin() const;
    /// The minus sign, linMinus.
    QWidget* minusLine() const;
    /// The value the bar stands for at X twips from the control's left edge, cut to
    /// Nachkommastellen and held to Min and Max.
    double valueAtBar(double x) const;

signals:
    /// The text or the value changed.
    void Change();
    /// Declared; never raised.
    void Click();
    /// Declared; never raised.
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
    /// A digit or the decimal separator after the filters; 0 drops it.
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
    void mousePressEvent(QMouseEvent* event) override;

private:
    void onKeyDown(int& KeyCode, int& Shift);
    void onKeyPress(int& KeyAscii);
    void onChange();
    void onMouseDown(int Button, int Shift, float X, float Y);
    void onMouseUp(int Button, int Shift, float X, float Y);
    void onSpin(int direction);
    void onParentLoad();
    void StepUp(double amount);
    void StepDown(double amount);
    void applySign();
    void restoreToolTips();
    // The name a screen reader gives the text box: the tooltip of the language, else the
    // control's name.
    void updateAccessibleName();
    bool overBar(double x, double y) const;
    QString status2(bool german) const;

    std::unique_ptr<NumPrivate> d;
};

}  // namespace vorelle
