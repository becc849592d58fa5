#include "formwizard/DialogStyle.h"

#include <QPainter>

#include "foundation/LateBinding.h"
#include "foundation/Zentral.h"
#include "foundation/program.h"
#include "host/form/Form.h"

namespace vorelle {

QString& CurrentDialogStyle() {
    static QString style;
    return style;
}

DialogStyleColours DialogStyleColours::of(const QString& style) {
    const QString solid = QStringLiteral("c9c9c9");
    if (style == u"Cool and hot") {
        return {QStringLiteral("0227aa"), QStringLiteral("8888c0"), false, solid, true};
    }
    if (style == u"Winter") {
        return {QStringLiteral("609cff"), QStringLiteral("d9e7ff"), false, solid, false};
    }
    if (style == u"Business") {
        return {QStringLiteral("b0b0b0"), QStringLiteral("ffffff"), true, solid, false};
    }
    return {QString(), QString(), false, solid, false};
}

qint32 DialogStyleFormColour(const QString& style) {
    const QString lower = style.toLower();
    if (lower == u"winter") {
        return 0xFFFFFF;
    }
    if (lower == u"business") {
        return HexColor(QStringLiteral("D3D3D3"));
    }
    if (lower == u"quick and simple") {
        return HexColor(QStringLiteral("D4D4D4"));
    }
    return -1;
}

bool IsKnownDialogStyle(const QString& style) {
    const QString lower = style.toLower();
    return lower == u"cool and hot" || lower == u"winter" || lower == u"business" ||
           lower == u"quick and simple";
}

bool HasToolOrMenuButtons(const Form* form) {
    if (!form) {
        return false;
    }
    for (QWidget* control : form->Controls()) {
        if (LateGet(control, "TypeName").toString() != u"cmd") {
            continue;
        }
        if (LateGet(control, "IsToolButton").toBool() ||
            LateGet(control, "IsMenuButton").toBool()) {
            return true;
        }
    }
    return false;
}

void ToolbarBandDraw(Form* form) {
    if (!form) {
        return;
    }
    const int width = form->width();
    const int bandHeight = 405 / 15;
    const DialogStyleColours colours = DialogStyleColours::of(CurrentDialogStyle());
    if (!colours.bandFirst.isEmpty()) {
        qint32 left = 0, top = 0, right = width, bottom = bandHeight;
        ColorFade(form, colours.bandFirst, false, colours.bandSecond, left, top, right, bottom,
                  true);
    } else {
        QPainter p(&form->surface());
        p.fillRect(0, 0, width, bandHeight, QColor(0xc9, 0xc9, 0xc9));
    }
    {
        QPainter p(&form->surface());
        p.setPen(QColor(113, 111, 100));
        p.drawLine(0, bandHeight, width, bandHeight);
        p.setPen(QColor(172, 168, 153));
        p.drawLine(0, bandHeight + 1, width, bandHeight + 1);
    }
    form->surfaceChanged();
}

}  // namespace vorelle
