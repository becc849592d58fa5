#include "ProgressDemo.h"

#include <QApplication>
#include <QDir>
#include <QPointer>
#include <QSlider>
#include <cstdio>

#include "foundation/LateBinding.h"
#include "foundation/Zentral.h"
#include "host/form/Form.h"

namespace vorelle::demo {

void ConnectProgressSliders(QWidget* root) {
    for (QSlider* slider : root->findChildren<QSlider*>()) {
        const QString drives = slider->property("drives").toString();
        if (drives.isEmpty()) {
            continue;
        }
        QList<QPointer<QObject>> targets;
        for (int i = 1; i <= PslCount(drives); ++i) {
            const QString name = PslItem(drives, i);
            if (QObject* target = root->findChild<QObject*>(name)) {
                targets.append(target);
            } else {
                std::fprintf(stderr, "vorelle-demo: the slider %s drives no control %s\n",
                             qPrintable(slider->objectName()), qPrintable(name));
            }
        }
        QObject::connect(slider, &QSlider::valueChanged, slider, [slider, targets](int value) {
            const int range = slider->maximum() - slider->minimum();
            const double share = range > 0 ? double(value - slider->minimum()) / range : 0.0;
            for (const QPointer<QObject>& target : targets) {
                if (target) {
                    LateSet(target, "Percent", share);
                }
            }
        });
    }
}

int ProgressShots(Form& form, const QString& dir, const QString& language) {
    auto* slider = form.findChild<QSlider*>(QStringLiteral("sldFortschritt"));
    if (!slider) {
        return 0;
    }
    const int kept = slider->value();
    int failures = 0;
    for (const int percent : {0, 50, 100}) {
        slider->setValue(slider->minimum() +
                         (slider->maximum() - slider->minimum()) * percent / 100);
        QApplication::processEvents();
        const QString file =
            QDir(dir).filePath(QStringLiteral("progress_%1_%2.png").arg(percent).arg(language));
        if (!form.grab().save(file)) {
            std::fprintf(stderr, "vorelle-demo: cannot write %s\n", qPrintable(file));
            ++failures;
        }
    }
    slider->setValue(kept);
    return failures;
}

}  // namespace vorelle::demo
