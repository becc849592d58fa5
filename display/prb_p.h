#pragma once

#include "foundation/TextPair.h"

namespace vorelle {

class PictureBox;
class des;
class Shape;

// The data of prb.
class prbPrivate {
public:
    des* desFontSpeicher = nullptr;
    PictureBox* picBar = nullptr;
    Shape* shpBlau = nullptr;
    Shape* shpWeiss = nullptr;

    double percent = 0;
    int nachkommastellen = 0;
    TextPair caption;
    TextPair toolTipText;
    // The picture shows an older state: drawn again before the next paint.
    bool dirty = true;
};

}  // namespace vorelle
