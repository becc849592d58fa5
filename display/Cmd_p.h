#pragma once

#include <QColor>
#include <QImage>
#include <QString>

#include "foundation/TextPair.h"

namespace vorelle {

class PictureBox;

// The data of Cmd.
class CmdPrivate {
public:
    PictureBox* picInnen = nullptr;
    TextPair caption;
    TextPair accessKey;
    TextPair toolTipText;
    QString buttonType;
    QString paintedStyle;  // the dialog style of the last paint
    QColor faceMiddle;     // the colour in the middle of the face of the last paint
    QImage picture;
    // The caption colour of picInnen outside a press.
    QString savedForeColor = QStringLiteral("000000");
    int pictureAlignHor = 0;
    int pictureAlignVert = 0;
    int keyDown = 0;  // the key that began a press from the keyboard, 0 for none
    bool isMenuButton = false;
    bool isToolButton = false;
    bool pictureVisible = true;
    bool pressed = false;
    bool hover = false;
};

}  // namespace vorelle
