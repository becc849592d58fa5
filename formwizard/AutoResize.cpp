#include "formwizard/AutoResize.h"

#include <QWidget>
#include <cmath>
#include <optional>

#include "foundation/LateBinding.h"
#include "foundation/RegStore.h"
#include "host/form/Form.h"
#include "host/platform/Environment.h"

namespace vorelle {

namespace {

std::optional<double> numberOf(const QString& text) {
    bool ok = false;
    const double value = text.trimmed().toDouble(&ok);
    if (!ok) {
        return std::nullopt;
    }
    return value;
}

// A stored size of the form as a long integer; the default for a text that is no number.
qint64 formBaseline(const QString& program, const QString& key, const QString& name,
                    qint64 byDefault) {
    const auto value = numberOf(RegGet(program, key, name, QString::number(byDefault)));
    return value ? static_cast<qint64>(std::nearbyint(*value)) : byDefault;
}

}  // namespace

bool AutoResize(Form* form, qint32 MinFormWidth, qint32 MinFormHeight) {
    if (!form || form->WindowState() == 1) {
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
    const QString program = GetModuleAppName(QString());
    const QString key = form->Name() + QStringLiteral("_init");
    const double deltaW =
        double(formW - formBaseline(program, key, QStringLiteral("Width"), 12000));
    const double deltaH =
        double(formH - formBaseline(program, key, QStringLiteral("Height"), 9000));

    static const char* const factorNames[] = {"ResizingMoveHor", "ResizingMoveVert",
                                              "ResizingResizeHor", "ResizingResizeVert"};
    static const char* const placeNames[] = {"Left", "Top", "Width", "Height"};
    // The baseline numbers carry over from one control to the next where a value is no number.
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
        for (int i = 0; i < 4; ++i) {
            if (const auto value =
                    numberOf(RegGet(program, controlKey, QString::fromLatin1(placeNames[i]),
                                    QStringLiteral("defaultValue")))) {
                stored[i] = value;
            }
        }
        const double deltas[4] = {deltaW, deltaH, deltaW, deltaH};
        for (int i = 0; i < 4; ++i) {
            if (factors[i] > 0 && stored[i]) {
                LateSet(control, placeNames[i], deltas[i] * factors[i] + *stored[i]);
            }
        }
    }
    return true;
}

}  // namespace vorelle
