#include "HoverLabel.h"

#include "foundation/Language.h"
#include "host/hooks/WindowHandle.h"

namespace vorelle::demo {

HoverLabel::HoverLabel(const QString& de, const QString& en, QWidget* parent)
    : QLabel(parent), de_(de), en_(en) {
    setAlignment(Qt::AlignCenter);
    setAutoFillBackground(true);
    setFrameShape(QFrame::Box);
    paintState(false);
}

qint32 HoverLabel::hwnd() const {
    return HwndOf(this);
}

void HoverLabel::MouseOver(short&) {
    paintState(true);
}

void HoverLabel::MouseOut(short&) {
    paintState(false);
}

void HoverLabel::MouseClick(short& Button, float&, float&) {
    ++clicks_;
    paintState(true);
}

void HoverLabel::paintState(bool over) {
    QPalette p = palette();
    p.setColor(QPalette::Window, over ? QColor(0xff, 0xcc, 0x00) : QColor(0xf0, 0xf0, 0xf0));
    setPalette(p);
    QString text = LangText(de_, en_);
    if (clicks_ > 0) {
        text += QStringLiteral(" (%1 %2)")
                    .arg(clicks_)
                    .arg(LangText(QStringLiteral("Klicks"), QStringLiteral("clicks")));
    }
    setText(text);
}

}  // namespace vorelle::demo
