// A small application on the installed Vorelle package: opens its form from a .ui file
// (with a brd on it) and, with --check, verifies a few routines by name and exits.
#include <vorelle/vorelle.h>

#include <QApplication>
#include <QFile>
#include <QLabel>
#include <cstdio>

#include "HelloForm.h"

namespace {

int failures = 0;

void check(bool ok, const char* what) {
    std::printf("hello: %-52s %s\n", what, ok ? "ok" : "FAILED");
    failures += ok ? 0 : 1;
}

void showTexts(HelloForm& form) {
    if (auto* label = form.findChild<QLabel*>(QStringLiteral("lblGruss"))) {
        label->setText(label->property(vorelle::IsGerman() ? "text_de" : "text_en").toString());
    }
}

}  // namespace

int main(int argc, char** argv) {
    QApplication app(argc, argv);
    QApplication::setApplicationName(QStringLiteral("Hello"));
    vorelle::LanguageLoad();

    HelloForm form;
    try {
        vorelle::FormLoader::loadInto(form, QStringLiteral(":/hello/frmHello.ui"));
    } catch (const vorelle::UiFileError& e) {
        std::fprintf(stderr, "hello: %s\n", e.what());
        return 1;
    }
    showTexts(form);

    if (!QApplication::arguments().contains(QStringLiteral("--check"))) {
        form.show();
        return QApplication::exec();
    }

    QObject* border = form.Controls(QStringLiteral("brdRahmen"));
    check(form.Name() == QStringLiteral("frmHello") && form.loaded,
          "form loaded, Form_Load2 reached");
    check(vorelle::LateGet(border, "TypeName").toString() == QStringLiteral("brd"),
          "brdRahmen is a brd");
    check(vorelle::LateGet(border, "BackColor").toInt() == 0xA06000,
          "BackColor read from the file");
    check(vorelle::LateGet(border, "ForeColor").toInt() == 0xFFFFFF, "ForeColor at its default");
    check(vorelle::LateGet(border, "Width").toInt() == 296 * 15, "Width in twips");
    check(vorelle::PslCount(QStringLiteral("a|b|")) == 2, "PslCount");
    check(vorelle::LangText(QStringLiteral("a%1"), QStringLiteral("b%1"), QStringLiteral("x|y"),
                            QStringLiteral("de")) == QStringLiteral("ax"),
          "LangText");

    // The language switch: write the setting, refresh the controls and the form's texts.
    vorelle::RegSetApp(QStringLiteral("Config"), QStringLiteral("Sprache"), QStringLiteral("de"));
    vorelle::LanguageLoad();
    for (QWidget* control : form.Controls()) {
        vorelle::LateCall(control, "Refresh");  // brd has none: no error
    }
    showTexts(form);
    form.Form_Load2();
    check(vorelle::CurrentLanguage() == QStringLiteral("de") &&
              form.Caption() == QStringLiteral("Hallo"),
          "switched to German");

    // Saved and loaded again, the form is the same.
    const QByteArray saved = vorelle::FormLoader::toXml(form);
    check(saved.contains("<class>vorelle::brd</class>") && !saved.contains("ForeColor"),
          "saved without the default values");

    // A silent error report only logs: one line in error.log, and the program goes on.
    const QString log = vorelle::LogFolder() + QStringLiteral("/error.log");
    QFile::remove(log);
    const int answer =
        vorelle::ErrorDialog(QStringLiteral("Hello.Check"), QStringLiteral("Prüfung|Check"), 99999,
                             QStringLiteral("no harm"), QString(), true, 48);
    QFile file(log);
    const QString line =
        file.open(QIODevice::ReadOnly) ? QString::fromLatin1(file.readAll()) : QString();
    check(answer == 0 && line.count(u'\n') == 1 &&
              line.contains(QStringLiteral("@Hello.Check@LZF: '")) &&
              line.contains(QStringLiteral("DebugInfo: 99999, Pr\u00fcfung|Check [no harm].")),
          "silent ErrorDialog logged one line and returned");

    std::printf("hello: %s\n", failures == 0 ? "ok" : "FAILED");
    return failures == 0 ? 0 : 1;
}
