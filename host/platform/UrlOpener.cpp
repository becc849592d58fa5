#include "host/platform/UrlOpener.h"

#include <QDesktopServices>
#include <QUrl>

#include "foundation/ServiceSlot.h"

namespace vorelle {

UrlOpener::~UrlOpener() = default;

VORELLE_DEFINE_SERVICE(UrlOpener, SystemUrlOpener)

void SystemUrlOpener::open(const QString& url, QWidget*) {
    const QUrl target = QUrl::fromUserInput(url.trimmed());
    if (target.isValid()) {
        QDesktopServices::openUrl(target);
    }
}

}  // namespace vorelle
