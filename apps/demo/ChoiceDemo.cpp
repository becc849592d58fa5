#include "ChoiceDemo.h"

#include <QApplication>
#include <QDir>
#include <cstdio>

#include "choice/frmSprachwahl.h"
#include "choice/rbl.h"
#include "foundation/LateBinding.h"
#include "host/frame/ControlBase.h"

namespace vorelle::demo {

namespace {

bool save(QWidget& window, const QString& dir, const QString& name) {
    QApplication::processEvents();
    const QString file = QDir(dir).filePath(name);
    if (!window.grab().save(file)) {
        std::fprintf(stderr, "vorelle-demo: cannot write %s\n", qPrintable(file));
        return false;
    }
    return true;
}

// The mouse over option `number` of a radio button list.
void hoverOption(QObject* control, int number) {
    auto* list = qobject_cast<rbl*>(control);
    if (!list) {
        return;
    }
    const QPoint centre = list->optionRect(number).center();
    list->MouseMove(0, PixelsToTwips(centre.x()), PixelsToTwips(centre.y()));
}

}  // namespace

int ChoiceShots(Form& form, const QString& dir, const QString& language) {
    int failures = 0;
    QObject* box = form.Controls(QStringLiteral("chbNewsletter"));
    LateCall(box, "MouseOver", {0});
    hoverOption(form.Controls(QStringLiteral("rblZahlung")), 3);
    hoverOption(form.Controls(QStringLiteral("rblVersand")), 2);
    failures += !save(form, dir, QStringLiteral("auswahl_hover_") + language + ".png");
    LateCall(box, "MouseOut", {0});
    LateCall(form.Controls(QStringLiteral("rblZahlung")), "MouseOut", {0});
    LateCall(form.Controls(QStringLiteral("rblVersand")), "MouseOut", {0});

    frmSprachwahl choice;
    choice.show();
    failures += !save(choice, dir, QStringLiteral("sprachwahl_") + language + ".png");
    return failures;
}

}  // namespace vorelle::demo
