// A small application on the installed Vorelle package: opens a form and, with
// --check, calls a few routines by name and exits.
#include <vorelle/vorelle.h>

#include <QApplication>
#include <cstdio>

int main(int argc, char** argv) {
    QApplication app(argc, argv);
    QApplication::setApplicationName(QStringLiteral("Hello"));
    vorelle::LanguageLoad();
    vorelle::Form form;
    form.setName(QStringLiteral("frmHello"));
    form.setCaption(vorelle::LangText(QStringLiteral("Hallo"), QStringLiteral("Hello")));
    if (QApplication::arguments().contains(QStringLiteral("--check"))) {
        const bool ok = vorelle::PslCount(QStringLiteral("a|b|")) == 2 &&
                        vorelle::CurrentLanguage() == QStringLiteral("en");
        std::printf("hello: %s\n", ok ? "ok" : "FAILED");
        return ok ? 0 : 1;
    }
    form.show();
    return QApplication::exec();
}
