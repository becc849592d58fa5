#pragma once

#include <QImage>
#include <QObject>
#include <QPointer>

namespace vorelle {

// The data of Form.
class FormPrivate {
public:
    QImage surface;
    // Cls() blanks the surface without giving its memory back; a blank one is not drawn.
    bool surfaceBlank = true;
    // The content of the surface when a repaint was last asked for, as a hash (0: blank),
    // and whether a comparison is queued: a redraw that leaves the picture as it was (a
    // clear and the same gradient again) repaints nothing.
    size_t shownHash = 0;
    bool checkQueued = false;
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
