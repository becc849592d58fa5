#pragma once

#include <QRect>
#include <QString>
#include <QStringList>
#include <memory>

#include "host/frame/FormControl.h"

namespace vorelle {

class rblPrivate;

/// A group of mutually exclusive options in one control. The options come from one
/// pipe-separated caption list per language; the control paints each option's picture and
/// text itself. Value is the 1-based number of the chosen option.
///
/// Two marks follow the user: the keyboard mark (the option that Space or Return would
/// choose, 0 without focus) and the mouse mark (the option under the mouse, 0 outside).
/// The form's mouse timer drives the mouse (MouseMove, MouseClick, MouseOut); on a form
/// without a FormWizard1 the widget's own mouse does the same.
class VORELLE_EXPORT rbl : public FormControl {
    Q_OBJECT
    Q_CLASSINFO("TypeName", "rbl")
    Q_CLASSINFO("ClassId", "{269014F3-1BCA-497E-B958-03D67BFA830D}")
    Q_CLASSINFO("InterfaceId", "{C9D4A4C7-F175-42AD-A052-72A876BB5989}")
    Q_CLASSINFO("EventInterfaceId", "{475076F6-296B-4D10-96F1-ACD05C135AAD}")
    Q_CLASSINFO("AboutHeader", "ctrlRadioButtonList V 1.09")
    Q_CLASSINFO("AboutDescription", "Auswahlliste mit RadioButtons (internationalisiert)")
    // Persisted, in the order of the property bag.
    Q_PROPERTY(qint32 ForeColor READ ForeColor WRITE setForeColor)
    Q_PROPERTY(QFont Font READ Font WRITE setFontProperty)
    Q_PROPERTY(QString CaptionList_de READ CaptionList_de WRITE setCaptionList_de)
    Q_PROPERTY(QString CaptionList_en READ CaptionList_en WRITE setCaptionList_en)
    Q_PROPERTY(QString CaptionPosY READ CaptionPosY WRITE setCaptionPosY)
    Q_PROPERTY(QString ToolTipText_de READ ToolTipText_de WRITE setToolTipText_de)
    Q_PROPERTY(QString ToolTipText_en READ ToolTipText_en WRITE setToolTipText_en)
    Q_PROPERTY(bool Enabled READ Enabled WRITE setEnabledProperty)
    Q_PROPERTY(int Value READ Value WRITE setValue)
    Q_PROPERTY(bool RegSave READ RegSave WRITE setRegSave)
    Q_PROPERTY(bool AutoSize READ AutoSize WRITE setAutoSize)
    Q_PROPERTY(int Orientation READ Orientation WRITE setOrientation)
    // Not persisted.
    Q_PROPERTY(QString CaptionList READ CaptionList WRITE setCaptionList STORED false)
    Q_PROPERTY(QString Text READ Text WRITE setText STORED false)
    Q_PROPERTY(QString Text_de READ Text_de STORED false)
    Q_PROPERTY(QString Text_en READ Text_en STORED false)
    Q_PROPERTY(bool FontBold READ FontBold WRITE setFontBold STORED false)
    Q_PROPERTY(bool FontItalic READ FontItalic WRITE setFontItalic STORED false)
    Q_PROPERTY(
        bool FontStrikethrough READ FontStrikethrough WRITE setFontStrikethrough STORED false)
    Q_PROPERTY(bool FontUnderline READ FontUnderline WRITE setFontUnderline STORED false)

public:
    /// ForeColor of a new control (an OLE colour number: red + 256 * green + 65536 * blue).
    static constexpr qint32 kDefaultForeColor = 0;
    /// Width of a new control in twips.
    static constexpr qint32 kDefaultWidth = 3000;
    /// Height of a new control in twips.
    static constexpr qint32 kDefaultHeight = 300;

    /// Creates the control; a form's loader passes the form as parent.
    explicit rbl(QWidget* parent = nullptr);
    ~rbl() override;

    /// The text colour of an enabled control (an OLE colour number).
    using ControlBase::ForeColor;
    /// Sets ForeColor and repaints.
    using ControlBase::setForeColor;
    /// The font of the option texts.
    using ControlBase::Font;
    /// Sets the font and repaints.
    using ControlBase::setFontProperty;
    /// Whether the control takes input; a disabled one is grey and passes the focus on.
    using ControlBase::Enabled;
    /// Sets Enabled and repaints.
    using ControlBase::setEnabledProperty;

    /// The German option texts, separated by "|".
    QString CaptionList_de() const;
    /// Sets the German option texts, repaints and raises Change.
    void setCaptionList_de(const QString& list);
    /// The English option texts, separated by "|".
    QString CaptionList_en() const;
    /// Sets the English option texts, repaints and raises Change.
    void setCaptionList_en(const QString& list);
    /// The option texts of the current language.
    QString CaptionList() const;
    /// Sets the option texts of the current language.
    void setCaptionList(const QString& list);
    /// The vertical position of each option in twips, ascending, "|"-separated; empty: even rows.
    QString CaptionPosY() const;
    /// Sets CaptionPosY and repaints.
    void setCaptionPosY(const QString& positions);
    /// The German tooltip; a first character "-" means no tooltip.
    QString ToolTipText_de() const;
    /// Sets the German tooltip.
    void setToolTipText_de(const QString& text);
    /// The English tooltip.
    QString ToolTipText_en() const;
    /// Sets the English tooltip.
    void setToolTipText_en(const QString& text);
    /// The chosen option, counted from 1.
    int Value() const;
    /// Chooses an option; a number above the count beeps and takes the count. Raises Change.
    void setValue(int value);
    /// The text of the chosen option in the current language.
    QString Text() const;
    /// Chooses the option with this text in the current language (none: Value 0).
    void setText(const QString& text);
    /// The German text of the chosen option.
    QString Text_de() const;
    /// The English text of the chosen option.
    QString Text_en() const;
    /// 0 options side by side, 1 options one below the other.
    int Orientation() const;
    /// Sets the orientation and the size that goes with it; other values are refused with a
    /// message and change nothing.
    void setOrientation(int orientation);
    /// Whether a vertical control takes the height and width of its options.
    bool AutoSize() const;
    /// Sets AutoSize.
    void setAutoSize(bool on);
    /// Whether Value is kept in the store from run to run.
    bool RegSave() const;
    /// Sets RegSave.
    void setRegSave(bool on);
    /// Bold texts.
    bool FontBold() const { return font().bold(); }
    /// Sets bold texts.
    void setFontBold(bool on);
    /// Italic texts.
    bool FontItalic() const { return font().italic(); }
    /// Sets italic texts.
    void setFontItalic(bool on);
    /// Struck-through texts.
    bool FontStrikethrough() const { return font().strikeOut(); }
    /// Sets struck-through texts.
    void setFontStrikethrough(bool on);
    /// Underlined texts.
    bool FontUnderline() const { return font().underline(); }
    /// Sets underlined texts.
    void setFontUnderline(bool on);

    /// The option that the keyboard marks, 0 without focus.
    int keyboardMark() const;
    /// The option under the mouse, 0 outside.
    int mouseMark() const;
    /// The option texts of the current language.
    QStringList options() const;
    /// Where option `number` (from 1) is drawn, picture and text, in pixels of the control.
    QRect optionRect(int number) const;
    /// The picture key of option `number` as painted now ("true-over", "false-disabled", ...).
    QString pictureKey(int number) const;
    /// The option at a point in twips of the control, 0 for none.
    int hitTest(double X, double Y) const;

    /// Loads Value from the store (when enabled), then raises Change once more.
    Q_INVOKABLE void RegLoading();
    /// Writes Value to the store.
    Q_INVOKABLE void RegSaving();
    /// Loads the language again and repaints.
    Q_INVOKABLE void Refresh();
    /// The mouse moved over the control: the option under it becomes the mouse mark.
    Q_INVOKABLE void MouseMove(int Button, float X, float Y);
    /// A click: with the left button the option hit becomes Value; Change and Click.
    Q_INVOKABLE void MouseClick(int Button, float X, float Y);
    /// The mouse left the control: no mouse mark.
    Q_INVOKABLE void MouseOut(int Button);

signals:
    /// Value or the option texts were set, or an option was clicked.
    void Change();
    /// An option was clicked (after Change).
    void Click();

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
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    void onParentLoad();
    QList<qint32> positions() const;
    std::unique_ptr<rblPrivate> d;
};

}  // namespace vorelle
