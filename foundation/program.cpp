#include "foundation/program.h"

#include <QList>
#include <QObject>
#include <utility>

#include "foundation/GradientFill.h"
#include "foundation/LateBinding.h"
#include "foundation/Zentral.h"

namespace vorelle {

namespace {

EffectStatusFunction& statusFunction() {
    static EffectStatusFunction function = nullptr;
    return function;
}

bool isHexPair(QChar high, QChar low) {
    auto hex = [](QChar c) { return c.isDigit() || (c.toLower() >= u'a' && c.toLower() <= u'f'); };
    return hex(high) && hex(low);
}

// The three channels of a colour text, as the gradient service wants them.
struct Channels {
    quint16 red, green, blue;
};

Channels channelsOf(const QString& colour) {
    if (colour.size() != 6 || !isHexPair(colour[0], colour[1]) ||
        !isHexPair(colour[2], colour[3]) || !isHexPair(colour[4], colour[5])) {
        throw ColorTextError(colour);
    }
    auto channel = [&](int at) { return static_cast<quint16>(HexByteHigh(colour.mid(at, 2))); };
    return {channel(0), channel(2), channel(4)};
}

GradientVertex vertex(qint32 x, qint32 y, const Channels& c) {
    return {x, y, c.red, c.green, c.blue, 0};
}

qint32 readInt(QObject* target, const char* name) {
    return LateGet(target, name).toInt();
}

// Reads HasDC with errors ignored: a surface that cannot say counts as one without.
bool hasDc(QObject* target) {
    bool ok = false;
    const QVariant value = LateGet(target, "HasDC", &ok);
    return ok && value.toBool();
}

// ScaleMode of the surface for the length of a call: 3 (pixels) inside, the old one
// again on every way out.
class PixelScale {
public:
    explicit PixelScale(QObject* target)
        : target_(target), previous_(LateGet(target, "ScaleMode")) {
        LateSet(target_, "AutoRedraw", true);
        LateSet(target_, "ScaleMode", 3);
    }
    ~PixelScale() {
        if (previous_.isValid()) {
            LateSet(target_, "ScaleMode", previous_);
        }
    }
    PixelScale(const PixelScale&) = delete;
    PixelScale& operator=(const PixelScale&) = delete;

private:
    QObject* target_;
    QVariant previous_;
};

void reportShortage(QObject* target) {
    const EffectStatusFunction report = statusFunction();
    if (!report) {
        return;
    }
    QObject* form = target && target->inherits("vorelle::Form") ? target : nullptr;
    report(form,
           QStringLiteral("System-Ressourcen sind erschöpft. Grafikfunktion 'Farbverlauf' kann "
                          "nicht ausgeführt werden. Bitte beenden Sie andere Programme, um "
                          "Ressourcen frei zu machen oder starten Sie den Rechner neu."),
           QStringLiteral("System ressources are used up. The grafical function 'color fading' "
                          "cannot be executed. Please terminate other running programs to free "
                          "ressources or restart Computer."));
}

// The trapped stretch: read hdc and fill. Only the shortage is reported.
void fill(QObject* target, const QList<GradientVertex>& vertices, GradientFillMode mode) {
    bool ok = false;
    const qint32 hdc = LateGet(target, "hdc", &ok).toInt();
    if (!ok) {
        return;
    }
    if (GradientFill::instance().fill(hdc, vertices, mode) == GradientFill::kOutOfResources) {
        reportShortage(target);
    }
}

}  // namespace

ColorTextError::ColorTextError(const QString& text)
    : std::invalid_argument("colour text \"" + text.toStdString() +
                            "\" is not six hexadecimal digits") {}

void ColorFade(QObject* Target, const QString& FirstColor, bool Reversed,
               const QString& SecondColor, qint32& Left, qint32& Top, qint32& Right, qint32& Bottom,
               bool Horizontal) {
    if (!Target) {
        return;
    }
    const PixelScale scale(Target);
    if (Left == -1) {
        Left = 0;
    }
    // Top has no default: a Top of -1 stays and the fill starts one pixel above the
    // surface.
    if (Right == -1) {
        Right = readInt(Target, "ScaleWidth");
    }
    if (Bottom == -1) {
        Bottom = readInt(Target, "ScaleHeight");
    }
    if (!hasDc(Target)) {
        return;
    }
    const Channels first = channelsOf(FirstColor);
    const Channels second = channelsOf(SecondColor);
    // The rectangle reads vertices 0 and 2 only.
    const Channels& c0 = Reversed ? second : first;
    const Channels& c1 = Reversed ? first : second;
    const Channels& c3 = first;
    const QList<GradientVertex> vertices{vertex(Left, Top, c0), vertex(Right, Top, c1),
                                         vertex(Right, Bottom, c1), vertex(Left, Bottom, c3)};
    fill(Target, vertices, Horizontal ? GradientFillRectH : GradientFillRectV);
}

void FontEffect(QObject* Target, const QString& FirstColor, bool Reversed,
                const QString& SecondColor) {
    if (!Target || !hasDc(Target)) {
        return;
    }
    const PixelScale scale(Target);
    const qint32 s = readInt(Target, "ScaleWidth") + readInt(Target, "ScaleHeight");
    const Channels first = channelsOf(FirstColor);
    const Channels second = channelsOf(SecondColor);
    const Channels& corner = Reversed ? second : first;
    const Channels& rest = Reversed ? first : second;
    const QList<GradientVertex> vertices{vertex(0, 0, corner), vertex(s, 0, rest),
                                         vertex(s, s, rest), vertex(0, s, rest)};
    fill(Target, vertices, GradientFillTriangle);
}

EffectStatusFunction SetEffectStatusFunction(EffectStatusFunction function) {
    return std::exchange(statusFunction(), function);
}

}  // namespace vorelle
