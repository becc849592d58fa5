#include "host/platform/MessageBox.h"

#include <QApplication>
#include <QMessageBox>
#include <QPointer>
#include <utility>

#include "foundation/ServiceSlot.h"

namespace vorelle {

MessageBoxService::~MessageBoxService() = default;

namespace {

QPointer<QWidget>& currentOwner() {
    static QPointer<QWidget> owner;
    return owner;
}

}  // namespace

QWidget* MessageBoxService::owner() {
    return currentOwner().data();
}

int SystemMessageBox::show(const QString& text, const QString& title, int style) {
    QMessageBox box(owner());
    box.setText(text);
    box.setWindowTitle(title.isEmpty() ? QApplication::applicationName() : title);
    switch (style & 0x70) {
        case 16:
            box.setIcon(QMessageBox::Critical);
            break;
        case 32:
            box.setIcon(QMessageBox::Question);
            break;
        case 48:
            box.setIcon(QMessageBox::Warning);
            break;
        case 64:
            box.setIcon(QMessageBox::Information);
            break;
        default:
            break;
    }
    struct Choice {
        QMessageBox::StandardButton button;
        int result;
    };
    QList<Choice> choices;
    switch (style & 0x0F) {
        case 1:
            choices = {{QMessageBox::Ok, vbOK}, {QMessageBox::Cancel, vbCancel}};
            break;
        case 2:
            choices = {{QMessageBox::Abort, vbAbort},
                       {QMessageBox::Retry, vbRetry},
                       {QMessageBox::Ignore, vbIgnore}};
            break;
        case 3:
            choices = {{QMessageBox::Yes, vbYes},
                       {QMessageBox::No, vbNo},
                       {QMessageBox::Cancel, vbCancel}};
            break;
        case 4:
            choices = {{QMessageBox::Yes, vbYes}, {QMessageBox::No, vbNo}};
            break;
        case 5:
            choices = {{QMessageBox::Retry, vbRetry}, {QMessageBox::Cancel, vbCancel}};
            break;
        default:
            choices = {{QMessageBox::Ok, vbOK}};
            break;
    }
    QMessageBox::StandardButtons buttons;
    for (const Choice& c : choices) {
        buttons |= c.button;
    }
    box.setStandardButtons(buttons);
    const int pressed = box.exec();
    for (const Choice& c : choices) {
        if (pressed == c.button) {
            return c.result;
        }
    }
    // Closed by the window frame: Cancel where there is one, else the only button.
    return choices.size() == 1 ? choices.front().result : vbCancel;
}

void SystemMessageBox::beep() {
    QApplication::beep();
}

VORELLE_DEFINE_SERVICE(MessageBoxService, SystemMessageBox)

int MsgBox(const QString& Text, int Style, const QString& Title, QWidget* Owner) {
    // Nested boxes each have their own owner; the outer one's comes back afterwards.
    const QPointer<QWidget> outer = std::exchange(currentOwner(), QPointer<QWidget>(Owner));
    const int answer = MessageBoxService::instance().show(Text, Title, Style);
    currentOwner() = outer;
    return answer;
}

void Beep() {
    MessageBoxService::instance().beep();
}

}  // namespace vorelle
