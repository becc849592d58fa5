#include <QApplication>
#include <QDir>
#include <QLabel>

#include "host/Form.h"

int main(int argc, char** argv) {
    QApplication app(argc, argv);
    QApplication::setApplicationName(QStringLiteral("VorelleDemo"));
    vorelle::Form form;
    form.setName(QStringLiteral("frmDemo"));
    form.setCaption(QStringLiteral("Vorelle"));
    auto* label = new QLabel(QStringLiteral("Vorelle"), &form);
    label->move(20, 20);
    form.resize(320, 200);
    const QStringList args = QApplication::arguments();
    const int shot = static_cast<int>(args.indexOf(QStringLiteral("--screenshot")));
    if (shot >= 0 && shot + 1 < args.size()) {
        QDir().mkpath(args.at(shot + 1));
        form.grab().save(args.at(shot + 1) + QStringLiteral("/frmDemo.png"));
        return 0;
    }
    form.show();
    return QApplication::exec();
}
