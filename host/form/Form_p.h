#pragma once

#include <QImage>
#include <QObject>
#include <QPointer>

namespace vorelle {

// The data of Form.
class FormPrivate {
public:
    QImage surface;
    int borderStyle = 2;
    int unloadMode = 0;
    qint32 backColor = static_cast<qint32>(0x8000000F);
    bool userMode = true;
    bool active = false;
    bool loadRan = false;
    bool keyPreview = false;
    bool autoRedraw = false;
    int scaleMode = 1;
    QPointer<QObject> manager;
};

}  // namespace vorelle
