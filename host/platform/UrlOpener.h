#pragma once

#include <QString>

#include "foundation/Export.h"

class QWidget;

namespace vorelle {

/// Opens a link target (a web address, a mail address, a file) in the program the desktop
/// gives it. The answer is not looked at: a bad target gives no message.
class VORELLE_EXPORT UrlOpener {
public:
    virtual ~UrlOpener();
    /// Hands `url` to the desktop on behalf of the window `owner` (may be nullptr).
    virtual void open(const QString& url, QWidget* owner) = 0;

    /// The implementation in use: the system one unless setInstance() put another in place.
    static UrlOpener& instance();
    /// Puts another implementation in place (nullptr restores the system one); returns the
    /// previous one.
    static UrlOpener* setInstance(UrlOpener* opener);
};

/// Opens links through the desktop services of the platform.
class VORELLE_EXPORT SystemUrlOpener : public UrlOpener {
public:
    /// Opens `url` through QDesktopServices; text without a scheme is read as the user
    /// would type it.
    void open(const QString& url, QWidget* owner) override;
};

}  // namespace vorelle
