#pragma once

#include <QFont>
#include <QImage>
#include <QString>
#include <memory>

#include "host/frame/FormControl.h"

class QLabel;

namespace vorelle {

class PictureBox;
class desPrivate;

// A description: one line or several lines of two-language text, which turns into a link
// when the current language has a LinkURL. It never takes the focus.
//
// The text stands on the label desDescription. BackColor 0xFF00FF (the default) makes the
// control see-through: only the shape of its text and of its dotted leader shows, the rest
// of the control lets the form's background through. The shape is drawn as a black-on-white
// picture, picMask, which the control's surface is cut along. FillWithPoints draws a dotted
// leader to the left and right of a single line. A control taller than wide turns
// Multiline on, one lower than 195 twips turns it off.
//
// A link is blue and underlined; the calls of the form's mouse timer (MouseOver, MouseOut,
// MouseDown, MouseClick) give it the hand cursor and its hover and press colours, and a
// click opens the URL of the current language through UrlOpener.
class VORELLE_EXPORT des : public FormControl {
    Q_OBJECT
    Q_CLASSINFO("TypeName", "des")
    Q_CLASSINFO("ClassId", "{D2225648-4021-4AB2-88A5-FA4485F82C95}")
    Q_CLASSINFO("InterfaceId", "{A379685B-788A-433B-AF6C-D84A4FD41CA7}")
    Q_CLASSINFO("EventInterfaceId", "{3E384071-743C-449D-8167-7654A3B125FF}")
    Q_CLASSINFO("AboutHeader", "ctrlDescription V 1.08")
    Q_CLASSINFO("AboutDescription", "Beschreibungstext oder Link (internationalisiert)")

    // Persisted, in the order of the property bag.
    Q_PROPERTY(bool Enabled READ Enabled WRITE setEnabledProperty)
    Q_PROPERTY(QFont Font READ Font WRITE setFontProperty)
    Q_PROPERTY(qint32 ForeColor READ ForeColor WRITE setForeColor)
    Q_PROPERTY(qint32 BackColor READ BackColor WRITE setBackColor)
    Q_PROPERTY(QImage MouseIcon READ MouseIcon WRITE setMouseIcon)
    Q_PROPERTY(int MousePointer READ MousePointer WRITE setMousePointer)
    Q_PROPERTY(int OLEDropMode READ OLEDropMode WRITE setOLEDropMode)
    Q_PROPERTY(bool RightToLeft READ RightToLeft WRITE setRightToLeft)
    Q_PROPERTY(bool WordWrap READ WordWrap WRITE setWordWrap)
    Q_PROPERTY(bool FillWithPoints READ FillWithPoints WRITE setFillWithPoints)
    Q_PROPERTY(bool Multiline READ Multiline WRITE setMultiline)
    Q_PROPERTY(QString Caption_de READ Caption_de WRITE setCaption_de)
    Q_PROPERTY(QString Caption_en READ Caption_en WRITE setCaption_en)
    Q_PROPERTY(QString LinkURL_de READ LinkURL_de WRITE setLinkURL_de)
    Q_PROPERTY(QString LinkURL_en READ LinkURL_en WRITE setLinkURL_en)
    Q_PROPERTY(QString ToolTipText_de READ ToolTipText_de WRITE setToolTipText_de)
    Q_PROPERTY(QString ToolTipText_en READ ToolTipText_en WRITE setToolTipText_en)
    Q_PROPERTY(int Alignment READ Alignment WRITE setAlignment)

    // Not persisted.
    Q_PROPERTY(QString Caption READ Caption WRITE setCaption STORED false)
    Q_PROPERTY(QString Text READ Text WRITE setText STORED false)
    Q_PROPERTY(QString LinkURL READ LinkURL WRITE setLinkURL STORED false)
    Q_PROPERTY(QString ToolTipText READ ToolTipText STORED false)
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
    /// BackColor of a new control, and the marker of a see-through control.
    static constexpr qint32 kDefaultBackColor = 0xFF00FF;
    /// BackColor that makes the control see-through.
    static constexpr qint32 kSeeThrough = 0xFF00FF;
    /// ForeColor that a link takes (blue).
    static constexpr qint32 kLinkColor = 0xFF0000;

    /// Creates the control with its label and mask picture; a form's loader passes the form
    /// as parent.
    explicit des(QWidget* parent = nullptr);
    ~des() override;

    // --- Properties ---
    /// Whether the text is drawn in ForeColor (true) or grey, and whether a link reacts.
    using ControlBase::Enabled;
    /// Sets Enabled and refreshes.
    using ControlBase::setEnabledProperty;
    /// The font of the text.
    using ControlBase::Font;
    /// Sets the font of the text and redraws.
    using ControlBase::setFontProperty;
    /// The text colour (an OLE colour number).
    using ControlBase::ForeColor;
    /// Sets the text colour and redraws.
    using ControlBase::setForeColor;
    /// The surface colour (an OLE colour number); 0xFF00FF is see-through.
    using ControlBase::BackColor;
    /// Sets the surface colour, or see-through with 0xFF00FF, and redraws.
    using ControlBase::setBackColor;
    /// True while BackColor is the see-through marker.
    bool isSeeThrough() const;
    /// The cursor picture shown over the text when MousePointer is 99.
    QImage MouseIcon() const;
    /// Sets the cursor picture.
    void setMouseIcon(const QImage& icon);
    /// The cursor over the text: 0 default, 1 arrow, 2 cross, 3 I-beam, 11 hourglass,
    /// 99 MouseIcon; other values show the arrow.
    int MousePointer() const;
    /// Sets the cursor over the text.
    void setMousePointer(int pointer);
    /// Kept for the property bag only.
    int OLEDropMode() const;
    /// Sets the kept value.
    void setOLEDropMode(int mode);
    /// Whether the text runs from right to left.
    bool RightToLeft() const;
    /// Sets the direction of the text.
    void setRightToLeft(bool on);
    /// Whether a single line wraps at the control's width.
    bool WordWrap() const;
    /// Sets whether the text wraps.
    void setWordWrap(bool on);
    /// Whether dotted leaders fill the room beside a single line.
    bool FillWithPoints() const;
    /// Sets the dotted leaders and redraws.
    void setFillWithPoints(bool on);
    /// Whether the text fills the control over several lines.
    bool Multiline() const;
    /// Sets several lines; true also clears FillWithPoints. The layout follows.
    void setMultiline(bool on);
    /// The German text.
    QString Caption_de() const;
    /// Sets the German text.
    void setCaption_de(const QString& text);
    /// The English text.
    QString Caption_en() const;
    /// Sets the English text.
    void setCaption_en(const QString& text);
    /// The text of the current language.
    QString Caption() const;
    /// Sets the text of the current language.
    void setCaption(const QString& text);
    /// The text on the label (the same as Caption).
    QString Text() const;
    /// Sets the text of the current language (the same as setCaption).
    void setText(const QString& text) { setCaption(text); }
    /// The German link target; empty for no link.
    QString LinkURL_de() const;
    /// Sets the German link target; the link colours follow the current language's URL.
    void setLinkURL_de(const QString& url);
    /// The English link target; empty for no link.
    QString LinkURL_en() const;
    /// Sets the English link target; the link colours follow the current language's URL.
    void setLinkURL_en(const QString& url);
    /// The link target of the current language.
    QString LinkURL() const;
    /// Sets the link target of the current language.
    void setLinkURL(const QString& url);
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
    /// Where a single line sits: 0 left, 1 right, 2 centre.
    int Alignment() const;
    /// Sets where a single line sits; values outside 0 to 2 count as 0.
    void setAlignment(int alignment);
    /// Bold text.
    bool FontBold() const { return font().bold(); }
    /// Sets bold text.
    void setFontBold(bool on);
    /// Italic text.
    bool FontItalic() const { return font().italic(); }
    /// Sets italic text.
    void setFontItalic(bool on);
    /// Struck-through text.
    bool FontStrikethrough() const { return font().strikeOut(); }
    /// Sets struck-through text.
    void setFontStrikethrough(bool on);
    /// Underlined text.
    bool FontUnderline() const { return font().underline(); }
    /// Sets underlined text.
    void setFontUnderline(bool on);
    /// The font family of the text.
    QString FontName() const { return font().family(); }
    /// Sets the font family of the text.
    void setFontName(const QString& name);
    /// The font size of the text in points.
    double FontSize() const { return font().pointSizeF(); }
    /// Sets the font size in points (sizes of 0 or less are ignored).
    void setFontSize(double points);

    /// The label that shows the text.
    QLabel* label() const;
    /// The black-on-white picture of the text's shape, picMask.
    PictureBox* maskPicture() const;
    /// The colour the text is drawn in now (ForeColor, grey when disabled, or a link's
    /// hover and press colour).
    QColor textColor() const;

    // --- Methods ---
    /// Loads the language again, shows its text and redraws.
    Q_INVOKABLE void Refresh();
    /// The cursor entered a link: hand cursor on the form, hover colour.
    Q_INVOKABLE void MouseOver(int Button);
    /// The cursor left a link: default cursor, link colour.
    Q_INVOKABLE void MouseOut(int Button);
    /// A press with the left button on a link: press colour.
    Q_INVOKABLE void MouseDown(int Button, float X, float Y);
    /// A click with the left button on a link opens its URL.
    Q_INVOKABLE void MouseClick(int Button, float X, float Y);

signals:
    /// The label or the surface was clicked.
    void Click();
    /// The label or the surface was double-clicked.
    void DblClick();
    /// The label's text changed (raised after the redraw).
    void Change();

protected:
    void InitProperties() override;
    void ReadProperties(const PropertyBag& bag) override;
    void WriteProperties(PropertyBag& bag) const override;
    void Resize() override;
    void ApplyLanguage() override;
    void EnterFocus() override;
    bool neverTakesFocus() const override { return true; }
    void applyForeColor(const QColor& color) override;
    void applyBackColor(const QColor& color) override;
    void applyFont(const QFont& font) override;
    void applyEnabled(bool on) override;
    void paintEvent(QPaintEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;

private:
    void showText(const QString& text);
    void linkChanged(const QString& baseName);
    void align();
    void redraw();
    void applyCursor();
    void setTextColour(const QColor& colour);
    void composeSurface(const QColor& colour);
    std::unique_ptr<desPrivate> d;
};

}  // namespace vorelle
