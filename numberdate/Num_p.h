#pragma once

#include <QPointer>
#include <QString>

#include "numberdate/Num.h"

namespace vorelle {

class EntryField;
class Form;
class Shape;
class SpinScroller;

// The data of Num.
class NumPrivate {
public:
    QWidget* picInnen = nullptr;
    SpinScroller* scrZahl = nullptr;
    EntryField* txtText = nullptr;
    Shape* shpSliRand = nullptr;
    Shape* shpBlau = nullptr;
    Shape* shpWeiss = nullptr;
    QWidget* linMinus = nullptr;

    double zahl = Num::kDefaultZahl;
    double min = Num::kDefaultMin;
    double max = Num::kDefaultMax;
    int nachkommastellen = 0;
    bool regSave = true;
    bool locked = false;
    int oleDragMode = 0;
    int oleDropMode = 0;
    QString toolTipDe;
    QString toolTipEn;
    QString savedToolTipDe;
    QString savedToolTipEn;
    qint32 foreColor = 0;

    // The text is being written by SetZahl.
    bool internalChange = false;
    int lastKeyCode = 0;
    QString parentName;
    QPointer<Form> parentForm;
    bool loadConnected = false;
};

}  // namespace vorelle
