#pragma once

#include <QImage>
#include <QString>
#include <memory>

#include "host/frame/FormControl.h"

namespace vorelle {

class des;
class prcPrivate;

/// A progress clock: a green sector that grows clockwise from 12 o'clock on a grey disc,
/// with the percentage, rounded commercially, in the centre. Always square. Takes no input
/// and never keeps the focus.
class VORELLE_EXPORT prc : public FormControl {
    Q_OBJECT
    Q_CLASSINFO("TypeName", "prc")
    Q_CLASSINFO("ClassId", "{AD5526DC-A7C6-483B-BDA7-390724FBAE1F}")
    Q_CLASSINFO("InterfaceId", "{E00268A9-2982-49E1-88C0-0828D524D030}")
    Q_CLASSINFO("EventInterfaceId", "{1FCFF999-F1E6-402A-9D80-3EF31BAFB7AD}")
    Q_CLASSINFO("AboutHeader", "ctrlProgressClock V 1.01")
    Q_CLASSINFO("AboutDescription", "Fortschrittsuhr (internationalisiert)")

    // Persisted, in the order of the property bag.
    Q_PROPERTY(double Percent READ Percent WRITE setPercent)
    Q_PROPERTY(int Nachkommastellen READ Nachkommastellen WRITE setNachkommastellen)
    Q_PROPERTY(QString ToolTipText_de READ ToolTipText_de WRITE setToolTipText_de)
    Q_PROPERTY(QString ToolTipText_en READ ToolTipText_en WRITE setToolTipText_en)

    // Not persisted.

public:
    /// The smallest width (and so height) of the clock, in twips.
    static constexpr qint32 kMinSize = 600;
    /// The greatest Nachkommastellen (a 16-bit value).
    static constexpr int kMaxDigits = 32767;

    /// Creates the clock with its font holder; started by the host.
    explicit prc(QWidget* parent = nullptr);
    ~prc() override;

    /// The share shown, 0 to 1 (0.42 shows 42%).
    double Percent() const;
    /// Sets the share (below 0 becomes 0, 1 or above becomes 1, not a number becomes 0),
    /// draws the clock and passes the pending messages once, so that a caller updating in a
    /// tight loop keeps its window alive.
    void setPercent(double value);
    /// The decimals of the percentage text.
    int Nachkommastellen() const;
    /// Sets the decimals: below 0 becomes 0, above kMaxDigits becomes kMaxDigits.
    void setNachkommastellen(int digits);
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

    /// The text in the centre: the percentage rounded commercially with Nachkommastellen
    /// decimals, and "%".
    QString displayText() const;
    /// The clock as it is drawn now (drawn first when it is out of date).
    QImage picture();

    /// Loads the language again and redraws.
    Q_INVOKABLE void Refresh() { refreshControl(); }

    /// The holder of the font.
    des* desFontSpeicher() const;

Q_SIGNALS:
    /// Declared for the host; the clock never raises it.
    void Change();

protected:
    void InitProperties() override;
    void ReadProperties(const PropertyBag& bag) override;
    void WriteProperties(PropertyBag& bag) const override;
    void Resize() override;
    void EnterFocus() override;
    bool neverTakesFocus() const override { return true; }
    void paintEvent(QPaintEvent* event) override;

private:
    void requestDraw();
    void draw();

    std::unique_ptr<prcPrivate> d;
};

}  // namespace vorelle
