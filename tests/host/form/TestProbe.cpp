#include "TestProbe.h"

#include "host/frame/ControlRegistry.h"

namespace vorelle {

TestProbe::TestProbe(QWidget* parent) : FormControl(parent) {
    events().append(QStringLiteral("create"));
}

QStringList& TestProbe::events() {
    static QStringList list;
    return list;
}

void TestProbe::setForeColor(qint32 c) {
    foreColor_ = c;
    PropertyChanged(QStringLiteral("ForeColor"));
}

void TestProbe::setBackColor(qint32 c) {
    backColor_ = c;
    PropertyChanged(QStringLiteral("BackColor"));
}

void TestProbe::setCaption_de(const QString& s) {
    captionDe_ = s;
    PropertyChanged(QStringLiteral("Caption_de"));
}

void TestProbe::setCaption_en(const QString& s) {
    captionEn_ = s;
    PropertyChanged(QStringLiteral("Caption_en"));
}

void TestProbe::setCount(int n) {
    count_ = n;
    PropertyChanged(QStringLiteral("Count"));
}

void TestProbe::setRatio(double r) {
    ratio_ = r;
    PropertyChanged(QStringLiteral("Ratio"));
}

void TestProbe::setFlag(bool on) {
    flag_ = on;
    PropertyChanged(QStringLiteral("Flag"));
}

void TestProbe::setStyle(Style s) {
    style_ = s;
    PropertyChanged(QStringLiteral("Style"));
}

void TestProbe::setFont_(const QFont& f) {
    font_ = f;
    PropertyChanged(QStringLiteral("Font"));
}

void TestProbe::Initialize() {
    FormControl::Initialize();
    events().append(QStringLiteral("init:") + objectName());
}

void TestProbe::ReadProperties(const PropertyBag& bag) {
    events().append(
        QStringLiteral("read:%1:%2").arg(objectName()).arg(userMode() ? u"run" : u"design"));
    foreColor_ = bag.ReadProperty(QStringLiteral("ForeColor"), kForeColor).toInt();
    backColor_ = bag.ReadProperty(QStringLiteral("BackColor"), kBackColor).toInt();
    captionDe_ = bag.ReadProperty(QStringLiteral("Caption_de"), QString()).toString();
    captionEn_ = bag.ReadProperty(QStringLiteral("Caption_en"), QString()).toString();
    count_ = bag.ReadProperty(QStringLiteral("Count"), 0).toInt();
    ratio_ = bag.ReadProperty(QStringLiteral("Ratio"), 0.0).toDouble();
    flag_ = bag.ReadProperty(QStringLiteral("Flag"), false).toBool();
    style_ = static_cast<Style>(
        bag.ReadProperty(QStringLiteral("Style"), static_cast<int>(Plain)).toInt());
    font_ = bag.ReadProperty(QStringLiteral("Font"), host().AmbientFont()).value<QFont>();
    readResizing(bag);
}

void TestProbe::WriteProperties(PropertyBag& bag) const {
    bag.WriteProperty(QStringLiteral("ForeColor"), foreColor_, kForeColor);
    bag.WriteProperty(QStringLiteral("BackColor"), backColor_, kBackColor);
    bag.WriteProperty(QStringLiteral("Caption_de"), captionDe_, QString());
    bag.WriteProperty(QStringLiteral("Caption_en"), captionEn_, QString());
    bag.WriteProperty(QStringLiteral("Count"), count_, 0);
    bag.WriteProperty(QStringLiteral("Ratio"), ratio_, 0.0);
    bag.WriteProperty(QStringLiteral("Flag"), flag_, false);
    bag.WriteProperty(QStringLiteral("Style"), static_cast<int>(style_), static_cast<int>(Plain));
    bag.WriteProperty(QStringLiteral("Font"), font_, host().AmbientFont());
    writeResizing(bag);
}

void TestProbe::Resize() {
    events().append(QStringLiteral("resize:%1:%2x%3").arg(objectName()).arg(width()).arg(height()));
}

VORELLE_REGISTER_CONTROL(TestProbe)

}  // namespace vorelle
