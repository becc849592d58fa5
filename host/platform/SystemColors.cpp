#include "host/platform/SystemColors.h"

#include <QGuiApplication>

#include <array>

#include "foundation/Zentral.h"

namespace vorelle {

namespace {

struct Source {
    QPalette::ColorGroup group;
    QPalette::ColorRole role;
};

constexpr auto A = QPalette::Active;
constexpr auto I = QPalette::Inactive;
constexpr auto D = QPalette::Disabled;

// By index: scroll bar, desktop, active caption, inactive caption, menu, window, window
// frame, menu text, window text, caption text, active border, inactive border, application
// workspace, highlight, highlight text, button face, button shadow, grey text, button text,
// inactive caption text, button highlight, 3D dark shadow, 3D light, info text, info
// background, (unused), hot light, gradient of active caption, gradient of inactive caption,
// menu highlight, menu bar.
constexpr std::array<Source, 31> kSources{{
    {A, QPalette::Button},
    {A, QPalette::Dark},
    {A, QPalette::Highlight},
    {I, QPalette::Mid},
    {A, QPalette::Window},
    {A, QPalette::Base},
    {A, QPalette::Shadow},
    {A, QPalette::WindowText},
    {A, QPalette::Text},
    {A, QPalette::HighlightedText},
    {A, QPalette::Button},
    {I, QPalette::Button},
    {A, QPalette::Mid},
    {A, QPalette::Highlight},
    {A, QPalette::HighlightedText},
    {A, QPalette::Button},
    {A, QPalette::Dark},
    {D, QPalette::Text},
    {A, QPalette::ButtonText},
    {D, QPalette::WindowText},
    {A, QPalette::Light},
    {A, QPalette::Shadow},
    {A, QPalette::Midlight},
    {A, QPalette::ToolTipText},
    {A, QPalette::ToolTipBase},
    {A, QPalette::AlternateBase},
    {A, QPalette::Link},
    {A, QPalette::Highlight},
    {I, QPalette::Midlight},
    {A, QPalette::Highlight},
    {A, QPalette::Window},
}};

qint32 applicationSysColor(int index) {
    if (!qobject_cast<QGuiApplication*>(QCoreApplication::instance())) {
        return -1;
    }
    return SystemColors::valueOf(index, QGuiApplication::palette());
}

// Registered when the library is loaded.
[[maybe_unused]] const bool kRegistered = (SetSysColorFunction(applicationSysColor), true);

}  // namespace

QColor SystemColors::colorOf(int index, const QPalette& palette) {
    if (index < 0 || index >= static_cast<int>(kSources.size())) {
        return {};
    }
    const Source& s = kSources[static_cast<std::size_t>(index)];
    return palette.color(s.group, s.role);
}

qint32 SystemColors::valueOf(int index, const QPalette& palette) {
    const QColor c = colorOf(index, palette);
    if (!c.isValid()) {
        return -1;
    }
    return c.red() + 256 * c.green() + 65536 * c.blue();
}

}  // namespace vorelle
