#pragma once

#include <QFont>
#include <QImage>
#include <QString>
#include <memory>

#include "host/frame/FormControl.h"

namespace vorelle {

class PictureBox;
class CmdPrivate;

// The library's push button. It draws itself on its inner picture, picInnen, and reacts to
// the calls that the mouse timer of the form's FormWizard1 makes (MouseOver, MouseOut,
// MouseDown, MouseUp, MouseClick), not to mouse events of its own. It comes as a plain form
// button, a tool button (IsToolButton) or a menu button (IsMenuButton), the last two living
// in the toolbar band. ButtonType gives a form button its standard caption pair, and every
// type a 16 by 16 pixel icon drawn in code.
//
// States: idle, hover (MouseOver), pressed (MouseDown on a plain or tool button). MouseClick
// while pressed raises Click and goes back to hover; MouseOut returns to idle from either.
// A menu button raises Click at once on MouseDown, so that its menu drops on the press.
// A disabled button ignores every call, and so every key.
class VORELLE_EXPORT Cmd : public FormControl {
    Q_OBJECT
    Q_CLASSINFO("TypeName", "cmd")
    Q_CLASSINFO("ClassId", "{80D02640-654F-43FF-9FDE-8EEDB6385DD8}")
    Q_CLASSINFO("InterfaceId", "{22252284-4DBB-4DA7-AD09-B6C141EC496B}")
    Q_CLASSINFO("EventInterfaceId", "{369C0B95-D1A8-4077-A8A2-F6A752FD533B}")
    Q_CLASSINFO("AboutHeader", "ctrlCommandButton V 1.23")
    Q_CLASSINFO("AboutDescription", "Schaltfläche (internationalisiert)")

    // Persisted, in the order of the property bag.
    Q_PROPERTY(bool Enabled READ Enabled WRITE setEnabledProperty)
    Q_PROPERTY(bool IsMenuButton READ IsMenuButton WRITE setIsMenuButton)
    Q_PROPERTY(bool IsToolButton READ IsToolButton WRITE setIsToolButton)
    Q_PROPERTY(QString ButtonType READ ButtonType WRITE setButtonType)
    Q_PROPERTY(QString Caption_de READ Caption_de WRITE setCaption_de)
    Q_PROPERTY(QString Caption_en READ Caption_en WRITE setCaption_en)
    Q_PROPERTY(QString AccessKey_de READ AccessKey_de WRITE setAccessKey_de)
    Q_PROPERTY(QString AccessKey_en READ AccessKey_en WRITE setAccessKey_en)
    Q_PROPERTY(QString ToolTipText_de READ ToolTipText_de WRITE setToolTipText_de)
    Q_PROPERTY(QString ToolTipText_en READ ToolTipText_en WRITE setToolTipText_en)
    Q_PROPERTY(qint32 ForeColor READ ForeColor WRITE setForeColor)
    Q_PROPERTY(qint32 BackColor READ BackColor WRITE setBackColor)
    Q_PROPERTY(QImage Picture READ Picture WRITE setPicture)
    Q_PROPERTY(int PictureAlignHor READ PictureAlignHor WRITE setPictureAlignHor)
    Q_PROPERTY(int PictureAlignVert READ PictureAlignVert WRITE setPictureAlignVert)
    Q_PROPERTY(bool PictureVisible READ PictureVisible WRITE setPictureVisible)
    Q_PROPERTY(QFont Font READ Font WRITE setFontProperty)

    // Not persisted.
    Q_PROPERTY(QString Caption READ Caption WRITE setCaption STORED false)
    Q_PROPERTY(QString ToolTipText READ ToolTipText STORED false)
    Q_PROPERTY(QString Status2_de READ Status2_de STORED false)
    Q_PROPERTY(QString Status2_en READ Status2_en STORED false)
    Q_PROPERTY(bool FontBold READ FontBold WRITE setFontBold STORED false)
    Q_PROPERTY(bool FontItalic READ FontItalic WRITE setFontItalic STORED false)
    Q_PROPERTY(
        bool FontStrikethrough READ FontStrikethrough WRITE setFontStrikethrough STORED false)
    Q_PROPERTY(bool FontUnderline READ FontUnderline WRITE setFontUnderline STORED false)
    Q_PROPERTY(QString FontName READ FontName WRITE setFontName STORED false)
    Q_PROPERTY(double FontSize READ FontSize WRITE setFontSize STORED false)

public:
    /// ForeColor of a new control (an OLE colour number: red + 256 * green + 65536 * blue).
    static constexpr qint32 kDefaultForeColor = 0;
    /// BackColor of a new control (an OLE colour number: red + 256 * green + 65536 * blue).
    static constexpr qint32 kDefaultBackColor = static_cast<qint32>(0x8000000F);
    /// Width of a new control in twips.
    static constexpr qint32 kDefaultWidth = 1215;
    /// Height of a new control in twips.
    static constexpr qint32 kDefaultHeight = 390;

    /// Creates the control with its inner picture; a form's loader passes the form as parent.
    explicit Cmd(QWidget* parent = nullptr);
    ~Cmd() override;

    // --- Properties ---
    /// Whether the button takes calls; a disabled button ignores the mouse and the keys.
    using ControlBase::Enabled;
    /// Sets Enabled and repaints.
    using ControlBase::setEnabledProperty;
    /// Whether this is a menu button of the toolbar band: it acts at the press.
    bool IsMenuButton() const;
    /// Makes the button a menu button, or not.
    void setIsMenuButton(bool on);
    /// Whether this is a tool button of the toolbar band.
    bool IsToolButton() const;
    /// Makes the button a tool button, or not.
    void setIsToolButton(bool on);
    /// The standard type: it picks the icon and, on a form button, the caption pair.
    QString ButtonType() const;
    /// Sets the type. A form button takes the type's caption pair; a value that none of the
    /// three lists knows is refused with a message, the value then standing as both captions.
    void setButtonType(const QString& type);
    /// The German caption.
    QString Caption_de() const;
    /// Sets the German caption.
    void setCaption_de(const QString& text);
    /// The English caption.
    QString Caption_en() const;
    /// Sets the English caption.
    void setCaption_en(const QString& text);
    /// The caption of the current language.
    QString Caption() const;
    /// Sets the caption of the current language.
    void setCaption(const QString& text);
    /// The German key text ("Alt+S", "Strg+Umschalt+D"), written by the form's manager.
    QString AccessKey_de() const;
    /// Sets the German key text.
    void setAccessKey_de(const QString& key);
    /// The English key text ("Alt+S", "Ctrl+Shift+D").
    QString AccessKey_en() const;
    /// Sets the English key text.
    void setAccessKey_en(const QString& key);
    /// The German tooltip; a first character "-" means no tooltip.
    QString ToolTipText_de() const;
    /// Sets the German tooltip.
    void setToolTipText_de(const QString& text);
    /// The English tooltip.
    QString ToolTipText_en() const;
    /// Sets the English tooltip.
    void setToolTipText_en(const QString& text);
    /// The tooltip of the current language.
    QString ToolTipText() const;
    /// The caption colour (an OLE colour number).
    using ControlBase::ForeColor;
    /// Sets ForeColor and repaints.
    using ControlBase::setForeColor;
    /// The colour the face is derived from (an OLE colour number).
    using ControlBase::BackColor;
    /// Sets BackColor and repaints.
    using ControlBase::setBackColor;
    /// The caption font.
    using ControlBase::Font;
    /// Sets the caption font and repaints.
    using ControlBase::setFontProperty;
    /// The icon set by the form's author; null when none (the type's own icon is drawn).
    QImage Picture() const;
    /// Sets the icon and repaints.
    void setPicture(const QImage& picture);
    /// Where the icon sits across: 0 left, 1 right, 2 centre.
    int PictureAlignHor() const;
    /// Sets the icon's place across; values outside 0 to 2 count as 0.
    void setPictureAlignHor(int align);
    /// Where the icon sits up and down: 0 top, 1 bottom, 2 centre.
    int PictureAlignVert() const;
    /// Sets the icon's place up and down; values outside 0 to 2 count as 0.
    void setPictureAlignVert(int align);
    /// Whether the icon is drawn.
    bool PictureVisible() const;
    /// Shows or hides the icon.
    void setPictureVisible(bool on);
    /// The German hint for the status line.
    QString Status2_de() const;
    /// The English hint for the status line.
    QString Status2_en() const;
    /// Bold caption.
    bool FontBold() const { return font().bold(); }
    /// Sets a bold caption.
    void setFontBold(bool on);
    /// Italic caption.
    bool FontItalic() const { return font().italic(); }
    /// Sets an italic caption.
    void setFontItalic(bool on);
    /// Struck-through caption.
    bool FontStrikethrough() const { return font().strikeOut(); }
    /// Sets a struck-through caption.
    void setFontStrikethrough(bool on);
    /// Underlined caption.
    bool FontUnderline() const { return font().underline(); }
    /// Sets an underlined caption.
    void setFontUnderline(bool on);
    /// The font family of the caption.
    QString FontName() const { return font().family(); }
    /// Sets the font family of the caption.
    void setFontName(const QString& name);
    /// The font size of the caption in points.
    double FontSize() const { return font().pointSizeF(); }
    /// Sets the font size of the caption in points (sizes of 0 or less are ignored).
    void setFontSize(double points);

    /// True while the cursor is over the button (after MouseOver, until MouseOut).
    bool isHovered() const;
    /// True between a press and the click that ends it, or MouseOut.
    bool isPressed() const;
    /// The inner picture, picInnen, that the button draws on.
    PictureBox* innerPicture() const;
    /// The index in `caption` of the letter that `key` names, or -1: for "Alt+X" the first
    /// character whose lower case is x, with a shift modifier the first upper-case X.
    static int accessLetterIndex(const QString& caption, const QString& key);
    /// The caption pair that a form button of `type` gets, or false for an unlisted type.
    static bool standardCaptions(const QString& type, QString& de, QString& en);
    /// The types offered for form buttons.
    static QStringList formButtonTypes();
    /// The types offered for menu buttons.
    static QStringList menuButtonTypes();
    /// The types offered for tool buttons.
    static QStringList toolButtonTypes();

    // --- Methods ---
    /// Loads the language again and repaints.
    Q_INVOKABLE void Refresh();
    /// Draws the caption and the icon onto the face.
    Q_INVOKABLE void PrintText2();
    /// Stops the form's mouse tracking (tooltip and caption expansion go).
    Q_INVOKABLE void LockMouseEvent();
    /// Lets the form's mouse tracking run again.
    Q_INVOKABLE void UnlockMouseEvent();
    /// The cursor entered the button: hover face.
    Q_INVOKABLE void MouseOver(int Button);
    /// The cursor left the button: idle face, the press is forgotten.
    Q_INVOKABLE void MouseOut(int Button);
    /// Nothing of its own.
    Q_INVOKABLE void MouseMove(int Button, float X, float Y) {}
    /// A press with the left button: pressed face, or Click at once on a menu button.
    Q_INVOKABLE void MouseDown(int Button, float X, float Y);
    /// Nothing of its own; MouseClick follows.
    Q_INVOKABLE void MouseUp(int Button, float X, float Y) {}
    /// The end of a press with the left button: Click.
    Q_INVOKABLE void MouseClick(int Button, float X, float Y);
    /// A whole click as an access key or an assistive tool gives it: MouseDown, MouseUp and
    /// MouseClick with the left button.
    Q_INVOKABLE void click();

signals:
    /// The button was clicked (once per click).
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
    void applyBackColor(const QColor& color) override;
    void applyFont(const QFont& font) override;
    void applyEnabled(bool on) override;
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;

private:
    // Draws the whole face: background by the dialog style, frame lines, caption and icon.
    void paint();
    QString status2(bool german) const;
    std::unique_ptr<CmdPrivate> d;
};

}  // namespace vorelle
