#pragma once

#include <QFont>
#include <QStringList>

#include "host/frame/FormControl.h"

namespace vorelle {

// A control for the loader tests: a property of each kind the form files carry, and a
// record of its life-cycle steps in one list shared by all instances.
class TestProbe : public FormControl {
    Q_OBJECT
    Q_CLASSINFO("TypeName", "tprobe")
    Q_PROPERTY(qint32 ForeColor READ ForeColor WRITE setForeColor)
    Q_PROPERTY(qint32 BackColor READ BackColor WRITE setBackColor)
    Q_PROPERTY(QString Caption_de READ Caption_de WRITE setCaption_de)
    Q_PROPERTY(QString Caption_en READ Caption_en WRITE setCaption_en)
    Q_PROPERTY(int Count READ Count WRITE setCount)
    Q_PROPERTY(double Ratio READ Ratio WRITE setRatio)
    Q_PROPERTY(bool Flag READ Flag WRITE setFlag)
    Q_PROPERTY(Style Style READ style WRITE setStyle)
    Q_PROPERTY(QFont Font READ Font WRITE setFont_)

public:
    enum Style { Plain, Raised, Sunken };
    Q_ENUM(Style)

    static constexpr qint32 kForeColor = 16777215;
    static constexpr qint32 kBackColor = 16761024;

    explicit TestProbe(QWidget* parent = nullptr);

    // "create", "init:<name>", "read:<name>:<user mode>", "resize:<name>:<w>x<h>", ...
    static QStringList& events();

    qint32 ForeColor() const { return foreColor_; }
    void setForeColor(qint32 c);
    qint32 BackColor() const { return backColor_; }
    void setBackColor(qint32 c);
    QString Caption_de() const { return captionDe_; }
    void setCaption_de(const QString& s);
    QString Caption_en() const { return captionEn_; }
    void setCaption_en(const QString& s);
    int Count() const { return count_; }
    void setCount(int n);
    double Ratio() const { return ratio_; }
    void setRatio(double r);
    bool Flag() const { return flag_; }
    void setFlag(bool on);
    Style style() const { return style_; }
    void setStyle(Style s);
    QFont Font() const { return font_; }
    void setFont_(const QFont& f);

    Q_INVOKABLE void Refresh() { events().append(QStringLiteral("refresh:") + objectName()); }

protected:
    void Initialize() override;
    void ReadProperties(const PropertyBag& bag) override;
    void WriteProperties(PropertyBag& bag) const override;
    void Resize() override;

private:
    qint32 foreColor_ = kForeColor;
    qint32 backColor_ = kBackColor;
    QString captionDe_;
    QString captionEn_;
    int count_ = 0;
    double ratio_ = 0;
    bool flag_ = false;
    Style style_ = Plain;
    QFont font_;
};

}  // namespace vorelle
