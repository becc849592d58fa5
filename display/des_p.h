#pragma once

#include <QImage>
#include <QLine>
#include <QList>
#include <QString>

#include "foundation/TextPair.h"

class QLabel;

namespace vorelle {

class PictureBox;

// The data of des.
class desPrivate {
public:
    QLabel* desDescription = nullptr;
    PictureBox* picMask = nullptr;
    // What the surface shows: its colour and the dotted leader, already cut along the mask
    // when the control is see-through.
    QImage surface;
    // The dotted leaders beside a single line, in pixels.
    QList<QLine> leaders;
    TextPair caption{QStringLiteral("Beschriftung_nicht_gesetzt"),
                     QStringLiteral("caption_not_set")};
    TextPair linkURL;
    TextPair toolTipText;
    QImage mouseIcon;
    int mousePointer = 0;
    int oleDropMode = 0;
    int alignment = 0;
    bool rightToLeft = false;
    bool wordWrap = false;
    bool fillWithPoints = false;
    bool multiline = false;
    bool inLayout = false;
};

}  // namespace vorelle
