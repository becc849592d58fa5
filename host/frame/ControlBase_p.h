#pragma once

#include <QMetaObject>
#include <QString>
#include <memory>

#include "host/frame/ControlHost.h"

namespace vorelle {

// The data of ControlBase.
class ControlBasePrivate {
public:
    std::unique_ptr<ControlHost> host;
    QString formName;
    QString controlName;
    QString moduleAppName;
    // The application's focus notification; cut before the control is half destroyed.
    QMetaObject::Connection focusConnection;
    int scaleMode = 1;
    double scaleWidth = 0;
    double scaleHeight = 0;
    bool autoRedraw = false;
    qint32 foreColor = 0;
    qint32 backColor = 0xFFFFFF;
    bool enabled = true;
    bool started = false;
    bool inResize = false;
    bool hasFocus = false;
};

}  // namespace vorelle
