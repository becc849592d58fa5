#pragma once

#include <QString>
#include <memory>

#include "host/frame/FormControl.h"

namespace vorelle {

class chbPrivate;

/// A two-language check box that draws itself: a box picture chosen by value, enabled state
/// and mouse, and the caption beside it on the form's background.
///
/// The form's mouse timer drives the mouse (MouseOver, MouseOut, MouseClick); on a form
/// without a FormWizard1 a press and release of the left button on the control does the same.
/// A click inverts Value (Change) and raises Click; Space and Return invert Value with
/// Change only.
class VORELLE_EXPORT chb : public FormControl {
    Q_OBJECT
    Q_CLASSINFO("TypeName", "chb")
    Q_CLASSINFO("ClassId", "{3A227442-C3E9-4DF9-A174-E8C87CF9D20C}")
    Q_CLASSINFO("InterfaceId", "{883FB687-7343-4C5C-9901-912BE889695B}")
    Q_CLASSINFO("EventInterfaceId", "{738870CF-A35C-4964-A4C2-A881F0A4291B}")
    Q_CLASSINFO("AboutHeader", "ctrlCheckbox V 1.07")
    Q_CLASSINFO("AboutDescription", "Ankreuzfeld/Checkbox (internationalisiert)")
    // Persisted, in the order of the property bag.
    Q_PROPERTY(qint32 ForeColor READ ForeColor WRITE setForeColor)
    Q_PROPERTY(QFont Font READ Font WRITE setFontProperty)
    Q_PROPERTY(int MousePointer READ MousePointer WRITE setMousePointer)
    Q_PROPERTY(int OLEDropMode READ OLEDropMode WRITE setOLEDropMode)
    Q_PROPERTY(bool RightToLeft READ RightToLeft WRITE setRightToLeft)
    Q_PROPERTY(bool WordWrap READ WordWrap WRITE setWordWrap)
    Q_PROPERTY(QString Caption_de READ Caption_de WRITE setCaption_de)
    Q_PROPERTY(QString Caption_en READ Caption_en WRITE setCaption_en)
    Q_PROPERTY(QString ToolTipText_de READ ToolTipText_de WRITE setToolTipText_de)
    Q_PROPERTY(QString ToolTipText_en READ ToolTipText_en WRITE setToolTipText_en)
    Q_PROPERTY(bool Enabled READ Enabled WRITE setEnabledProperty)
    Q_PROPERTY(bool Value READ Value WRITE setValue)
    Q_PROPERTY(bool RegSave READ RegSave WRITE setRegSave)
    // Not persisted.
    Q_PROPERTY(QString Caption READ Caption WRITE setCaption STORED false)

public:
    /// ForeColor of a new control (an OLE colour number: red + 256 * green + 65536 * blue).
    static constexpr qint32 kDefaultForeColor = 0;
    /// The German caption of a new control.
    static constexpr const char16_t* kCaptionNotSetDe = u"Beschriftung_nicht_gesetzt";
    /// The English caption of a new control.
    static constexpr const char16_t* kCaptionNotSetEn = u"caption_not_set";

    /// Creates the control; a form's loader passes the form as parent.
    explicit chb(QWidget* parent = nullptr);
    ~chb() override;

    /// The caption colour of an enabled box (an OLE colour number).
    using ControlBase::ForeColor;
    /// Sets ForeColor and repaints.
    using ControlBase::setForeColor;
    /// The caption font.
    using ControlBase::Font;
    /// Sets the caption font; the control sizes itself anew.
    using ControlBase::setFontProperty;
    /// Whether the box takes input; a disabled box shows a grey caption and passes the focus on.
    using ControlBase::Enabled;
    /// Sets Enabled and repaints.
    using ControlBase::setEnabledProperty;
    /// Whether the box is ticked.
    bool Value() const;
    /// Sets the value, shows the picture for the mouse outside and raises Change.
    void setValue(bool on);
    /// Whether the value is kept in the store from run to run.
    bool RegSave() const;
    /// Sets RegSave.
    void setRegSave(bool on);
    /// The German caption.
    QString Caption_de() const;
    /// Sets the German caption and repaints.
    void setCaption_de(const QString& text);
    /// The English caption.
    QString Caption_en() const;
    /// Sets the English caption and repaints.
    void setCaption_en(const QString& text);
    /// The caption of the current language.
    QString Caption() const;
    /// Sets the caption of the current language.
    void setCaption(const QString& text);
    /// The German tooltip; a first character "-" means no tooltip.
    QString ToolTipText_de() const;
    /// Sets the German tooltip.
    void setToolTipText_de(const QString& text);
    /// The English tooltip.
    QString ToolTipText_en() const;
    /// Sets the English tooltip.
    void setToolTipText_en(const QString& text);
    /// The mouse pointer number over the control (0 default).
    int MousePointer() const;
    /// Sets MousePointer.
    void setMousePointer(int pointer);
    /// The drop mode (0 none); kept for the host.
    int OLEDropMode() const;
    /// Sets OLEDropMode.
    void setOLEDropMode(int mode);
    /// Whether the text runs from right to left.
    bool RightToLeft() const;
    /// Sets RightToLeft.
    void setRightToLeft(bool on);
    /// Whether a long caption wraps; kept for the host.
    bool WordWrap() const;
    /// Sets WordWrap.
    void setWordWrap(bool on);

    /// The key of the picture shown now ("true-over", "false-disabled", ...).
    QString pictureKey() const;
    /// True while the focus mark is shown.
    bool focusMarkShown() const;

    /// Loads the value from the store (when enabled): Change for the value, then once more.
    Q_INVOKABLE void RegLoading();
    /// Writes the value to the store, "1" or "0".
    Q_INVOKABLE void RegSaving();
    /// Loads the language again, shows its caption and repaints.
    Q_INVOKABLE void Refresh();
    /// A click: with the left button Value is inverted (Change), the picture for the mouse
    /// over is shown, the box takes the focus and Click is raised.
    Q_INVOKABLE void MouseClick(int Button, float X, float Y);
    /// The mouse came over the box: the picture for the mouse over.
    Q_INVOKABLE void MouseOver(int Button);
    /// The mouse left the box: the picture for the mouse outside.
    Q_INVOKABLE void MouseOut(int Button);

signals:
    /// The box was clicked (after Change).
    void Click();
    /// Value was set.
    void Change();

protected:
    void InitProperties() override;
    void ReadProperties(const PropertyBag& bag) override;
    void WriteProperties(PropertyBag& bag) const override;
    void Resize() override;
    void ApplyLanguage() override;
    void EnterFocus() override;
    void ExitFocus() override;
    void applyForeColor(const QColor& color) override;
    void applyFont(const QFont& font) override;
    void applyEnabled(bool on) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    void onParentLoad();
    void sizeToCaption();
    std::unique_ptr<chbPrivate> d;
};

}  // namespace vorelle
