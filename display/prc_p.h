#pragma once

#include <QImage>

#include "foundation/TextPair.h"

namespace vorelle {

class des;

// The data of prc.
class prcPrivate {
public:
    des* desFontSpeicher = nullptr;
    QImage picture;  // the kept drawing (AutoRedraw), at the device pixel ratio

    double percent = 0;
    int nachkommastellen = 0;
    TextPair toolTipText;
    // The picture shows an older state: drawn again before the next paint.
    bool dirty = true;
};

}  // namespace vorelle
