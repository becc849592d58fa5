#include "formwizard/AutoResize.h"

#include "formwizard/StoredNumber_p.h"
#include "foundation/RegistryGroup.h"

#include <QPointer>
#include <QWidget>
#include <algorithm>
#include <cmath>
#include <optional>
#include <vector>

#include "foundation/LateBinding.h"
#include "foundation/RegStore.h"
#include "foundation/RegistryBackend.h"
#include "host/form/Form.h"
#include "host/platform/Environment.h"

namespace vorelle {

namespace {

// A stored size of the form as a long integer; the default for a text that is no number.
qint64 formBaseline(const QString& program, const QString& key, const QString& name,
                    qint64 byDefault) {
    const auto value = StoredNumber(RegGet(program, key, name, QString::number(byDefault)));
    return value ? static_cast<qint64>(std::nearbyint(*value)) : byDefault;
}

}  // namespace

bool AutoResize(Form* form, qint32 MinFormWidth, qint32 MinFormHeight) {
    // A form that is not shown has no outer size yet to measure the growth by.
    if (!form || !form->isVisible() || form->WindowState() == 1) {
        return false;
    }
    LockWindowUpdate(form);
    if (form->Width() < MinFormWidth) {
        form->setWidth(MinFormWidth);
    }
    if (form->Height() < MinFormHeight) {
        form->setHeight(MinFormHeight);
    }
    const qint64 formW = form->Width();
    const qint64 formH = form->Height();

    static const char* const factorNames[] = {"ResizingMoveHor", "ResizingMoveVert",
                                              "ResizingResizeHor", "ResizingResizeVert"};
    static const char* const placeNames[] = {"Left", "Top", "Width", "Height"};
    struct Move {
        QPointer<QWidget> control;
        double value[4];
        bool wanted[4];
    };
    std::vector<Move> moves;
    {
        // Every baseline in one reading of the store, before anything moves.
        RegistryGroup reading(false);
        const QString program = GetModuleAppName(QString());
        const QString key = form->Name() + QStringLiteral("_init");
        const double deltaW =
            double(formW - formBaseline(program, key, QStringLiteral("Width"), 12000));
        const double deltaH =
            double(formH - formBaseline(program, key, QStringLiteral("Height"), 9000));
        const double deltas[4] = {deltaW, deltaH, deltaW, deltaH};
        // The baseline numbers carry over from one control to the next where a value is
        // no number.
        std::optional<double> stored[4];
        for (QWidget* control : form->Controls()) {
            double factors[4];
            bool all = true;
            for (int i = 0; i < 4 && all; ++i) {
                bool ok = false;
                const QVariant value = LateGet(control, factorNames[i], &ok);
                all = ok && value.canConvert<double>();
                factors[i] = value.toDouble();
            }
            if (!all) {
                continue;  // a control without factors
            }
            const QString controlKey = key + u'\\' + control->objectName();
            Move move{control, {}, {}};
            for (int i = 0; i < 4; ++i) {
                if (const auto value =
                        StoredNumber(RegGet(program, controlKey, QString::fromLatin1(placeNames[i]),
                                            QStringLiteral("defaultValue")))) {
                    stored[i] = value;
                }
                move.wanted[i] = factors[i] > 0 && stored[i].has_value();
                const double value = deltas[i] * factors[i] + *stored[i];
                move.wanted[i] = move.wanted[i] && std::isfinite(value);
                move.value[i] =
                    move.wanted[i] ? std::clamp(value, -kStoredTwipsLimit, kStoredTwipsLimit) : 0;
            }
            moves.push_back(move);
        }
    }
    for (const Move& move : moves) {
        for (int i = 0; i < 4 && move.control; ++i) {
            if (move.wanted[i]) {
                LateSet(move.control, placeNames[i], move.value[i]);
            }
        }
    }
    return true;
}

}  // namespace vorelle
