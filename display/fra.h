#pragma once

#include <QFont>
#include <QString>
#include <memory>

#include "host/frame/FormControl.h"

class QLabel;

namespace vorelle {

class PictureBox;
class fraPrivate;

// The container of the library: a title bar (desCaption1), an inner panel (picGrau) that
// carries the contained controls, and a bottom caption (desCaption2), its corners rounded
// in 15-twip steps. Under a dialog style the style gives the frame, caption and panel
// colours; without one, BackColor does. It never keeps the focus: it hands it to the first
// contained control that takes it. DisableControls and ReEnableControls switch the contained
// controls off and back on as a group.
class VORELLE_EXPORT fra : public FormControl {
    Q_OBJECT
    Q_CLASSINFO("TypeName", "fra")
    Q_CLASSINFO("ClassId", "{A99FD8F3-1119-48F5-B46F-607B16AC517E}")
    Q_CLASSINFO("InterfaceId", "{3D6842D9-702C-4928-810A-F0A754C94890}")
    Q_CLASSINFO("EventInterfaceId", "{EBA44EF8-76BE-4353-A394-2004EFD7CD5D}")
    Q_CLASSINFO("AboutHeader", "ctrlFrame V 1.04")
    Q_CLASSINFO("AboutDescription", "Frame/Container (internationalisiert)")

    // Persisted, in the order of the property bag.
    Q_PROPERTY(bool Enabled READ Enabled WRITE setEnabledProperty)
    Q_PROPERTY(qint32 BackColor READ BackColor WRITE setBackColor)
    Q_PROPERTY(qint32 ForeColor READ ForeColor WRITE setForeColor)
    Q_PROPERTY(QFont Font READ Font WRITE setFontProperty)
    Q_PROPERTY(QString Caption_de READ Caption_de WRITE setCaption_de)
    Q_PROPERTY(QString Caption_en READ Caption_en WRITE setCaption_en)
    Q_PROPERTY(QString CaptionUnten_de READ CaptionUnten_de WRITE setCaptionUnten_de)
    Q_PROPERTY(QString CaptionUnten_en READ CaptionUnten_en WRITE setCaptionUnten_en)

    // Not persisted.
    Q_PROPERTY(QString Caption READ Caption WRITE setCaption STORED false)
    Q_PROPERTY(QString CaptionUnten READ CaptionUnten WRITE setCaptionUnten STORED false)
    Q_PROPERTY(qint32 hdc READ hdc STORED false)
    Q_PROPERTY(bool HasDC READ HasDC STORED false)

public:
    /// ForeColor of a new control (an OLE colour number: red + 256 * green + 65536 * blue).
    static constexpr qint32 kDefaultForeColor = 0xFFFFFF;
    /// BackColor of a new control (an OLE colour number: red + 256 * green + 65536 * blue).
    static constexpr qint32 kDefaultBackColor = 0xC00000;

    /// Creates the frame with its captions and inner panel; a form's loader passes the form
    /// as parent.
    explicit fra(QWidget* parent = nullptr);
    ~fra() override;

    // --- Properties ---
    /// Whether the captions are enabled; the contained controls are not touched by it.
    bool Enabled() const;
    /// Enables or disables both captions, without marking the property changed.
    void setEnabledProperty(bool on);
    /// The colour of the frame and its captions where no dialog style is in force.
    using ControlBase::BackColor;
    /// Sets the frame colour and paints (a dialog style overrides it at once).
    using ControlBase::setBackColor;
    /// The text colour of both captions (an OLE colour number).
    using ControlBase::ForeColor;
    /// Sets the text colour of both captions.
    using ControlBase::setForeColor;
    /// The font of the title.
    using ControlBase::Font;
    /// Sets the font of the title.
    using ControlBase::setFontProperty;
    /// The German title.
    QString Caption_de() const;
    /// Sets the German title.
    void setCaption_de(const QString& text);
    /// The English title.
    QString Caption_en() const;
    /// Sets the English title.
    void setCaption_en(const QString& text);
    /// The title as it stands on the frame.
    QString Caption() const;
    /// Sets the title of the current language.
    void setCaption(const QString& text);
    /// The German bottom caption.
    QString CaptionUnten_de() const;
    /// Sets the German bottom caption.
    void setCaptionUnten_de(const QString& text);
    /// The English bottom caption.
    QString CaptionUnten_en() const;
    /// Sets the English bottom caption.
    void setCaptionUnten_en(const QString& text);
    /// The bottom caption as it stands on the frame.
    QString CaptionUnten() const;
    /// Sets the bottom caption of the current language.
    void setCaptionUnten(const QString& text);

    /// The title label, desCaption1.
    QLabel* titleLabel() const;
    /// The bottom label, desCaption2.
    QLabel* bottomLabel() const;
    /// The inner panel, picGrau.
    PictureBox* innerPanel() const;
    /// The colour of the frame and its captions at the last paint.
    QColor frameColor() const;
    /// The entries "Name=1" or "Name=0" of a group disable in force, "" when none is.
    QString disabledControls() const;

    /// The controls dropped onto the frame are its children.
    QWidget* containerArea() const override { return const_cast<fra*>(this); }

    // --- Methods ---
    /// Disables every contained control whose Name is not in the pipe-separated list, and
    /// remembers how each was; does nothing while an earlier disable is in force.
    Q_INVOKABLE void DisableControls(const QString& ButNotAsPSL = QString());
    /// Gives the controls of the last DisableControls their Enabled back and ends it.
    Q_INVOKABLE void ReEnableControls();
    /// Loads the language again, puts the title of the language on the frame and paints;
    /// the bottom caption keeps its text.
    Q_INVOKABLE void Refresh();

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

private:
    void paint();
    bool applyStyle();
    void paintPanel();
    void setCaptionBack(const QColor& colour);
    std::unique_ptr<fraPrivate> d;
};

}  // namespace vorelle
