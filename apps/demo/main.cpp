// vorelle-demo: the library's forms, built from the .ui files of apps/demo/forms.
//   vorelle-demo                  the start form with the language switch and the list of forms
//   vorelle-demo --screenshot DIR every form rendered offscreen in each dialog style and
//                                 both languages to DIR/<form>_<style>_de.png and
//                                 DIR/<form>_<style>_en.png, on a settings store in memory
//                                 (the user's settings stay untouched); a form with
//                                 doResizing also larger, to DIR/<form>_gross_<language>.png,
//                                 the progress form at 0%, 50% and 100%, to
//                                 DIR/progress_<percent>_<language>.png, and a form with
//                                 demoLocales on a German machine's number format and, in
//                                 the first style, also on a US machine's, to
//                                 DIR/<form>_localeUS_<language>.png; the choice form
//                                 with the mouse over its controls, to
//                                 DIR/auswahl_hover_<language>.png, the language choice
//                                 form, to DIR/sprachwahl_<language>.png, and the text
//                                 fields' drop-down list and history open, to
//                                 DIR/dropdown_<language>.png and DIR/history_<language>.png
#include <QApplication>
#include <QDir>
#include <QFileInfo>
#include <QMouseEvent>
#include <QTimer>
#include <cstdio>

#include "ChoiceDemo.h"
#include "DemoForm.h"
#include "DemoTexts.h"
#include "MouseRecorder.h"
#include "ProgressDemo.h"
#include "TextPopupShots.h"
#include "TextShots.h"
#include "formwizard/HintWindows.h"
#include "formwizard/ModuleSwitches.h"
#include "foundation/Language.h"
#include "foundation/LateBinding.h"
#include "foundation/LibraryInfo.h"
#include "foundation/Locale.h"
#include "foundation/MemoryRegistry.h"
#include "foundation/RegStore.h"
#include "host/form/FormLoader.h"
#include "host/frame/ControlBase.h"
#include "numberdate/DateEntry.h"

using namespace vorelle;

namespace {

const QString kStartForm = QStringLiteral(":/forms/frmDemo.ui");

// Every form of the demo, the start form first, the others by name.
QStringList demoForms() {
    QStringList forms{kStartForm};
    const QDir dir(QStringLiteral(":/forms"));
    for (const QString& name : dir.entryList({QStringLiteral("*.ui")}, QDir::Files, QDir::Name)) {
        const QString path = dir.filePath(name);
        if (path != kStartForm) {
            forms.append(path);
        }
    }
    return forms;
}

std::unique_ptr<Form> openForm(const QString& path, const QStringList& forms) {
    if (path == kStartForm) {
        auto start = std::make_unique<demo::DemoForm>(forms.mid(1));
        FormLoader::loadInto(*start, path);
        return start;
    }
    std::unique_ptr<Form> form = FormLoader::load(path);
    demo::ConnectProgressSliders(form.get());
    demo::ApplyFormTexts(form.get());
    return form;
}

// A form may name the control that has the focus in its screenshots: the dynamic
// property "demoFocus" on the form's top widget.
void focusForShot(Form& form) {
    const QString name = form.property("demoFocus").toString();
    auto* control = name.isEmpty() ? nullptr : qobject_cast<QWidget*>(form.Controls(name));
    if (control) {
        QApplication::setActiveWindow(&form);
        control->setFocus();
        QApplication::processEvents();
    }
}

// The controls of a form show their values anew, after a change of the locale.
void refreshControls(Form& form) {
    for (QWidget* control : form.Controls()) {
        if (auto* dates = qobject_cast<DateEntry*>(control)) {
            dates->showAnew();
        } else if (qobject_cast<ControlBase*>(control)) {
            LateCall(control, "Refresh");
        }
    }
    QApplication::processEvents();
}

// "Quick and simple" gives "QuickAndSimple".
QString styleFileName(const QString& style) {
    QString name;
    for (const QString& word : style.split(u' ', Qt::SkipEmptyParts)) {
        name += word.left(1).toUpper() + word.mid(1);
    }
    return name;
}

// The tooltip and the caption expansion as they appear over a form, to
// DIR/tooltip_<language>.png and DIR/captionexpand_<language>.png.
int hintShots(Form& form, const QString& dir, const QString& language) {
    auto* windows = dynamic_cast<SystemHintWindows*>(&HintWindows::instance());
    if (!windows) {
        return 0;
    }
    int failures = 0;
    auto save = [&](QWidget* window, const char* name) {
        const QString file = QDir(dir).filePath(QString::fromLatin1(name) + u'_' + language +
                                                QStringLiteral(".png"));
        if (!window || !window->grab().save(file)) {
            std::fprintf(stderr, "vorelle-demo: cannot write %s\n", qPrintable(file));
            ++failures;
        }
    };
    ToolTipShow(QString(), &form,
                QStringLiteral("Der Kunde, an den die Rechnung geht.\r\nPflichtfeld"),
                QStringLiteral("The customer the invoice goes to.\r\nRequired field"));
    save(windows->toolTipWindow(), "tooltip");
    ToolTipHide();
    CaptionExpansion expansion;
    expansion.typeName = QStringLiteral("des");
    expansion.text = language == u"de"
                         ? QStringLiteral("Eine Beschriftung, die ihr Feld nicht fasst")
                         : QStringLiteral("A caption too long for its field");
    expansion.font = QFont(QStringLiteral("MS Sans Serif"));
    expansion.font.setPointSizeF(8.25);
    expansion.rect = QRect(form.geometry().topLeft() + QPoint(20, 40), QSize(80, 16));
    CaptionExpandShow(expansion);
    save(windows->captionExpandWindow(), "captionexpand");
    CaptionExpandHide();
    return failures;
}

// The dialog menu of a right click on the form's empty surface, to
// DIR/dialogmenu_<language>.png; the menu is closed again without a choice.
int dialogMenuShot(Form& form, const QString& dir, const QString& language) {
    QPoint empty(-1, -1);
    for (int y = 4; y < form.height() && empty.x() < 0; y += 8) {
        for (int x = 4; x < form.width(); x += 8) {
            if (!form.childAt(x, y)) {
                empty = QPoint(x, y);
                break;
            }
        }
    }
    if (empty.x() < 0) {
        return 0;
    }
    const QString file =
        QDir(dir).filePath(QStringLiteral("dialogmenu_") + language + QStringLiteral(".png"));
    bool saved = false;
    int tries = 0;
    QTimer closer;
    closer.setInterval(50);
    QObject::connect(&closer, &QTimer::timeout, [&] {
        if (QWidget* popup = QApplication::activePopupWidget()) {
            saved = popup->grab().save(file);
            popup->close();
        }
        if (++tries > 40) {
            closer.stop();
        }
    });
    closer.start();
    const QPointF local(empty);
    QMouseEvent press(QEvent::MouseButtonPress, local, form.mapToGlobal(local), Qt::RightButton,
                      Qt::RightButton, Qt::NoModifier);
    QApplication::sendEvent(&form, &press);
    QMouseEvent release(QEvent::MouseButtonRelease, local, form.mapToGlobal(local), Qt::RightButton,
                        Qt::NoButton, Qt::NoModifier);
    QApplication::sendEvent(&form, &release);
    closer.stop();
    if (!saved) {
        std::fprintf(stderr, "vorelle-demo: cannot write %s\n", qPrintable(file));
        return 1;
    }
    return 0;
}

// The button form as the user sees it, then with buttons under the cursor and pressed (as
// the form's mouse tracking would call them), to DIR/knoepfe_<language>.png,
// DIR/knoepfe_hover_<language>.png and DIR/knoepfe_pressed_<language>.png.
int buttonShots(Form& form, const QString& dir, const QString& language) {
    LateCall(form.Controls(QStringLiteral("FormWizard1")), "SetDialogStyle",
             {QStringLiteral("Cool and hot")});
    const QList<QObject*> shown{form.Controls(QStringLiteral("cmdOK")),
                                form.Controls(QStringLiteral("cmdToolHome")),
                                form.Controls(QStringLiteral("cmdMenuDokument"))};
    int failures = 0;
    auto save = [&](const QString& name) {
        QApplication::processEvents();
        const QString file = QDir(dir).filePath(name + language + QStringLiteral(".png"));
        if (!form.grab().save(file)) {
            std::fprintf(stderr, "vorelle-demo: cannot write %s\n", qPrintable(file));
            ++failures;
        }
    };
    save(QStringLiteral("knoepfe_"));
    for (QObject* button : shown) {
        LateCall(button, "MouseOver", {0});
    }
    save(QStringLiteral("knoepfe_hover_"));
    for (QObject* button : shown.mid(0, 2)) {  // a menu button clicks at the press instead
        LateCall(button, "MouseDown", {1, 0.0, 0.0});
    }
    save(QStringLiteral("knoepfe_pressed_"));
    for (QObject* button : shown) {
        LateCall(button, "MouseOut", {0});
    }
    return failures;
}

int screenshots(const QString& dir) {
    MemoryRegistry store;
    RegistryBackend* previous = RegistryBackend::setInstance(&store);
    if (!QDir().mkpath(dir)) {
        std::fprintf(stderr, "vorelle-demo: cannot create %s\n", qPrintable(dir));
        RegistryBackend::setInstance(previous);
        return 1;
    }
    int failures = 0;
    SystemLocale german(QLocale(QLocale::German, QLocale::Germany));
    SystemLocale unitedStates(QLocale(QLocale::English, QLocale::UnitedStates));
    const QStringList forms = demoForms();
    for (const QString& path : forms) {
        const QString base = QFileInfo(path).completeBaseName();
        // Each language on a freshly loaded form, so that the status bar speaks it from
        // the start; the styles one after the other, as a user would switch them.
        for (const QString& language : {QStringLiteral("de"), QStringLiteral("en")}) {
            demo::SwitchLanguage(language);
            std::unique_ptr<Form> form;
            try {
                form = openForm(path, forms);
            } catch (const UiFileError& e) {
                std::fprintf(stderr, "vorelle-demo: %s\n", e.what());
                ++failures;
                break;
            }
            // A form that shows numbers in the machine's format names it with the dynamic
            // property "demoLocales": it is shot on a German machine, and once more below
            // on a US machine.
            const bool locales = form->property("demoLocales").toBool();
            Locale* machine = locales ? Locale::setInstance(&german) : nullptr;
            form->show();
            focusForShot(*form);
            if (locales) {
                refreshControls(*form);
            }
            for (const QString& style : demo::DemoForm::dialogStyles()) {
                LateCall(form->Controls(QStringLiteral("FormWizard1")), "SetDialogStyle", {style});
                QApplication::processEvents();
                const QString file = QDir(dir).filePath(base + u'_' + styleFileName(style) + u'_' +
                                                        language + QStringLiteral(".png"));
                if (!form->grab().save(file)) {
                    std::fprintf(stderr, "vorelle-demo: cannot write %s\n", qPrintable(file));
                    ++failures;
                }
            }
            if (locales) {
                Locale::setInstance(&unitedStates);
                refreshControls(*form);
                LateCall(form->Controls(QStringLiteral("FormWizard1")), "SetDialogStyle",
                         {demo::DemoForm::dialogStyles().constFirst()});
                QApplication::processEvents();
                const QString file = QDir(dir).filePath(base + QStringLiteral("_localeUS_") +
                                                        language + QStringLiteral(".png"));
                if (!form->grab().save(file)) {
                    std::fprintf(stderr, "vorelle-demo: cannot write %s\n", qPrintable(file));
                    ++failures;
                }
                Locale::setInstance(machine);
            }
            if (base == u"frmKnoepfe") {
                failures += buttonShots(*form, dir, language);
            }
            if (base == u"frmDemo") {
                failures += hintShots(*form, dir, language);
                failures += dialogMenuShot(*form, dir, language);
            }
            if (base == u"frmTextTypes") {
                failures += demo::TextPopupShots(*form, dir, language);
                failures += demo::TextShots(*form, dir, language);
            }
            if (base == u"frmFortschritt") {
                failures += demo::ProgressShots(*form, dir, language);
            }
            if (base == u"frmAuswahl") {
                failures += demo::ChoiceShots(*form, dir, language);
            }
            // A form that resizes its controls is shown once more at one and a half times
            // its size, to DIR/<form>_gross_<language>.png.
            QObject* wizard = form->Controls(QStringLiteral("FormWizard1"));
            if (LateGet(wizard, "doResizing").toBool()) {
                form->resize(form->size() * 3 / 2);
                QApplication::processEvents();
                const QString file = QDir(dir).filePath(base + QStringLiteral("_gross_") +
                                                        language + QStringLiteral(".png"));
                if (!form->grab().save(file)) {
                    std::fprintf(stderr, "vorelle-demo: cannot write %s\n", qPrintable(file));
                    ++failures;
                }
            }
        }
    }
    RegistryBackend::setInstance(previous);
    return failures == 0 ? 0 : 1;
}

}  // namespace

int main(int argc, char** argv) {
    bool shot = false;
    for (int i = 1; i < argc; ++i) {
        shot = shot || QByteArray(argv[i]) == "--screenshot";
    }
    if (shot && qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) {
        qputenv("QT_QPA_PLATFORM", "offscreen");
    }
    QApplication app(argc, argv);
    QApplication::setApplicationName(QStringLiteral("VorelleDemo"));
    // The demo carries the library's version: the managed forms show it in their titles.
    QApplication::setApplicationVersion(
        QStringLiteral("%1.%2.%3").arg(kVersionMajor).arg(kVersionMinor).arg(kRevision));
    const QStringList args = QApplication::arguments();
    const qsizetype at = args.indexOf(QStringLiteral("--screenshot"));
    if (at >= 0) {
        if (at + 1 >= args.size()) {
            std::fprintf(stderr, "usage: vorelle-demo [--screenshot DIR]\n");
            return 2;
        }
        return screenshots(args.at(at + 1));
    }

    LanguageLoad();
    const QStringList forms = demoForms();
    std::unique_ptr<Form> start;
    try {
        start = openForm(kStartForm, forms);
    } catch (const UiFileError& e) {
        std::fprintf(stderr, "vorelle-demo: %s\n", e.what());
        return 1;
    }
    start->show();
    demo::MouseRecorder recorder;  // hover, click, record and replay through the tracker
    recorder.move(start->geometry().topRight() + QPoint(20, 0));
    recorder.show();
    return QApplication::exec();
}
