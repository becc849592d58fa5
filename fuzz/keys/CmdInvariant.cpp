#include "keys/CmdInvariant.h"

#include <QObject>

#include "display/Cmd.h"

namespace vorelle::fuzz {

CmdInvariant::CmdInvariant(Cmd* button) : button_(button) {
    QObject::connect(button_, &Cmd::Click, button_, [this] {
        if (!button_->Enabled()) {
            clickWhileDisabled_ = true;
        }
    });
}

QString CmdInvariant::after(const Step&) {
    return clickWhileDisabled_ ? QStringLiteral("a disabled button raised Click") : QString();
}

}  // namespace vorelle::fuzz
