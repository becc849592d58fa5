#pragma once

#include <QString>
#include <stdexcept>

#include "foundation/Export.h"

class QObject;

namespace vorelle {

/// A colour text whose pairs are not hexadecimal digits, given to ColorFade or FontEffect.
class VORELLE_EXPORT ColorTextError : public std::invalid_argument {
public:
    /// `text` is the colour text as it was given.
    explicit ColorTextError(const QString& text);
};

/// Fills a rectangle of `Target`'s drawing surface with a straight gradient from
/// FirstColor to SecondColor (the other way round when Reversed), horizontally or
/// vertically. The surface is any object offering HasDC, hdc, AutoRedraw, ScaleMode,
/// ScaleWidth and ScaleHeight, reached by name. Edges are pixels; Left -1 becomes 0,
/// Right -1 the surface's width and Bottom -1 its height (written back); Top is left as
/// it is (-1 starts one pixel above). Callers wanting the whole surface pass four
/// variables at -1. AutoRedraw stays True afterwards; ScaleMode is restored. A surface whose HasDC
/// is False is left unpainted. Throws ColorTextError for a colour text that is not six
/// hexadecimal digits, before anything is painted. Colours are texts such as "8888c0".
VORELLE_EXPORT void ColorFade(QObject* Target, const QString& FirstColor, bool Reversed,
                              const QString& SecondColor, qint32& Left, qint32& Top, qint32& Right,
                              qint32& Bottom, bool Horizontal);

/// Lays one diagonal gradient over the whole surface of `Target`: FirstColor in the upper
/// left corner changing towards SecondColor at the lower right (swapped when Reversed).
/// Same surface members, failure and restore rules as ColorFade.
VORELLE_EXPORT void FontEffect(QObject* Target, const QString& FirstColor, bool Reversed,
                               const QString& SecondColor);

/// Where the shortage message of ColorFade and FontEffect goes: the status line of `form`
/// (nullptr: the active form). The host installs it; returns the previous one.
using EffectStatusFunction = void (*)(QObject* form, const QString& TextDe, const QString& TextEn);
VORELLE_EXPORT EffectStatusFunction SetEffectStatusFunction(EffectStatusFunction function);

}  // namespace vorelle
