#pragma once

#include <QFont>
#include <QString>
#include <memory>

#include "host/frame/FormControl.h"

namespace vorelle {

class des;
class prbPrivate;
class Shape;

/// A progress bar: a green bar over the share Percent of its width with a centred text such
/// as "42% Kopieren", the percentage rounded up. Takes no input and never keeps the focus.
class VORELLE_EXPORT prb : public FormControl {
    Q_OBJECT
    Q_CLASSINFO("TypeName", "prb")
    Q_CLASSINFO("ClassId", "{46F733F1-5C1B-4E57-995A-39727B65E176}")
    Q_CLASSINFO("InterfaceId", "{96CE44B3-AB36-4E32-872E-43B71BA08300}")
    Q_CLASSINFO("EventInterfaceId", "{CE078FD2-CECF-40B9-A048-4DF003F3E528}")
    Q_CLASSINFO("AboutHeader", "ctrlProgressBar V 1.01")
    Q_CLASSINFO("AboutDescription", "Fortschrittsbalken (internationalisiert)")

    // Persisted, in the order of the property bag.
    Q_PROPERTY(double Percent READ Percent WRITE setPercent)
    Q_PROPERTY(int Nachkommastellen READ Nachkommastellen WRITE setNachkommastellen)
    Q_PROPERTY(QString Caption_de READ Caption_de WRITE setCaption_de)
    Q_PROPERTY(QString Caption_en READ Caption_en WRITE setCaption_en)
    Q_PROPERTY(QString ToolTipText_de READ ToolTipText_de WRITE setToolTipText_de)
    Q_PROPERTY(QString ToolTipText_en READ ToolTipText_en WRITE setToolTipText_en)

    // Not persisted.
    Q_PROPERTY(QString Caption READ Caption WRITE setCaption STORED false)
    Q_PROPERTY(QFont Font READ Font STORED false)

public:
    /// Width of a new bar, and the width that a bar narrower than kMinWidth gets, in twips.
    static constexpr qint32 kNewWidth = 3000;
    /// A bar narrower than this (twips) is made kNewWidth wide.
    static constexpr qint32 kMinWidth = 75;
    /// The height of every bar, in twips.
    static constexpr qint32 kHeight = 330;
    /// The greatest Nachkommastellen (a 16-bit value).
    static constexpr int kMaxDigits = 32767;

    /// Creates the bar with its frames, picture and font holder; started by the host.
    explicit prb(QWidget* parent = nullptr);
    ~prb() override;

    /// The share shown, 0 to 1 (0.42 shows 42%).
    double Percent() const;
    /// Sets the share: below 0 becomes 0, 1 or above becomes 1; not a number becomes 0.
    void setPercent(double value);
    /// The decimals of the percentage text.
    int Nachkommastellen() const;
    /// Sets the decimals: below 0 becomes 0, above kMaxDigits becomes kMaxDigits.
    void setNachkommastellen(int digits);
    /// The German caption behind the percentage.
    QString Caption_de() const;
    /// Sets the German caption.
    void setCaption_de(const QString& text);
    /// The English caption behind the percentage.
    QString Caption_en() const;
    /// Sets the English caption.
    void setCaption_en(const QString& text);
    /// The caption of the current language.
    QString Caption() const;
    /// Sets the caption of the current language.
    void setCaption(const QString& text);
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
    /// The font of the text: that of desFontSpeicher ("MS Sans Serif", 10, bold).
    QFont Font() const;

    /// The text that the bar shows: the percentage rounded up with Nachkommastellen
    /// decimals, "%", and " " with the caption of the current language when there is one.
    QString displayText() const;
    /// The bar's length in pixels for the current Percent and width.
    int fillLength() const;

    /// Loads the language again and redraws with its caption.
    Q_INVOKABLE void Refresh() { refreshControl(); }

    /// The light inner frame.
    Shape* shpWeiss() const;
    /// The coloured outer frame.
    Shape* shpBlau() const;
    /// The drawing surface of the bar.
    QWidget* picBar() const;
    /// The holder of the font.
    des* desFontSpeicher() const;

Q_SIGNALS:
    /// Declared for the host; the bar never raises it.
    void Change();

protected:
    void InitProperties() override;
    void ReadProperties(const PropertyBag& bag) override;
    void WriteProperties(PropertyBag& bag) const override;
    void Resize() override;
    void EnterFocus() override;
    void ApplyLanguage() override;
    bool neverTakesFocus() const override { return true; }

private:
    void requestDraw();
    void draw();

    std::unique_ptr<prbPrivate> d;
};

}  // namespace vorelle
