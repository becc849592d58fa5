#include "display/brd.h"

#include "host/frame/ControlRegistry.h"
#include "host/frame/Shape.h"

namespace vorelle {

brd::brd(QWidget* parent)
    : FormControl(parent), shpWeiss_(new Shape(this)), shpBlau_(new Shape(this)) {
    // See-through: nothing of the surface is painted, the form shows between the lines.
    setAttribute(Qt::WA_NoSystemBackground);
    setAutoFillBackground(false);
    setFocusPolicy(Qt::NoFocus);
    shpWeiss_->setObjectName(QStringLiteral("shpWeiss"));
    shpBlau_->setObjectName(QStringLiteral("shpBlau"));
    markConstituent(shpWeiss_);
    markConstituent(shpBlau_);
    shpWeiss_->setTwipsGeometry(0, 0, 0, 0);
    shpBlau_->setTwipsGeometry(15, 15, 0, 0);
    shpWeiss_->setBorderColor(kDefaultForeColor);
    shpBlau_->setBorderColor(kDefaultBackColor);
    shpBlau_->raise();  // drawn on top
}

qint32 brd::ForeColor() const {
    return shpWeiss_->BorderColor();
}

void brd::setForeColor(qint32 color) {
    shpWeiss_->setBorderColor(color);
    PropertyChanged(QStringLiteral("ForeColor"));
}

qint32 brd::BackColor() const {
    return shpBlau_->BorderColor();
}

void brd::setBackColor(qint32 color) {
    shpBlau_->setBorderColor(color);
    PropertyChanged(QStringLiteral("BackColor"));
}

void brd::InitProperties() {
    FormControl::InitProperties();
    shpWeiss_->setBorderColor(kDefaultForeColor);
    shpBlau_->setBorderColor(kDefaultBackColor);
}

void brd::ReadProperties(const PropertyBag& bag) {
    FormControl::ReadProperties(bag);
    // Read everything first, so that a value of the wrong type changes nothing.
    const qint32 fore = bag.ReadProperty(QStringLiteral("ForeColor"), kDefaultForeColor).toInt();
    const qint32 back = bag.ReadProperty(QStringLiteral("BackColor"), kDefaultBackColor).toInt();
    readResizing(bag);
    shpWeiss_->setBorderColor(fore);
    shpBlau_->setBorderColor(back);
}

void brd::WriteProperties(PropertyBag& bag) const {
    FormControl::WriteProperties(bag);
    bag.WriteProperty(QStringLiteral("ForeColor"), ForeColor(), kDefaultForeColor);
    bag.WriteProperty(QStringLiteral("BackColor"), BackColor(), kDefaultBackColor);
    writeResizing(bag);
}

void brd::Resize() {
    FormControl::Resize();
    const qint32 w = Width() - 15;
    const qint32 h = Height() - 15;
    shpWeiss_->setWidth(w);
    shpBlau_->setWidth(w);
    shpWeiss_->setHeight(h);
    shpBlau_->setHeight(h);
}

VORELLE_REGISTER_CONTROL(brd)

}  // namespace vorelle
