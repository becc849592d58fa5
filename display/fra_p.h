#pragma once

#include <QColor>
#include <QString>

#include "foundation/TextPair.h"

class QLabel;

namespace vorelle {

class PictureBox;

// The data of fra.
class fraPrivate {
public:
    PictureBox* picGrau = nullptr;
    QLabel* desCaption1 = nullptr;
    QLabel* desCaption2 = nullptr;
    TextPair caption{QStringLiteral("Beschriftung_nicht_gesetzt"),
                     QStringLiteral("caption_not_set")};
    TextPair captionUnten;
    // Entries "Name=1" or "Name=0" of the controls that DisableControls switched off.
    QString disabledControlsPsl;
    // The colours of the last paint: the frame with its captions, and the inner panel.
    QColor frameColour;
    QColor panelColour = QColor(0xF0, 0xF0, 0xF0);
    // The effect colours of the style, empty for a style without effect.
    QString firstEffect;
    QString secondEffect;
    QString paintedStyle;  // the dialog style of the last paint
    bool rounded = false;  // whether the corners were rounded by a style's paint
};

}  // namespace vorelle
