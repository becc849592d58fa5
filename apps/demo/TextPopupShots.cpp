#include "TextPopupShots.h"

#include <QApplication>
#include <QDir>
#include <QKeyEvent>
#include <QPainter>
#include <QPixmap>
#include <cstdio>

#include "foundation/RegStore.h"
#include "foundation/ServiceSlot.h"
#include "host/form/Form.h"
#include "host/input/EntryField.h"
#include "textentry/EntryHistory.h"
#include "textentry/PopupLoop.h"
#include "textentry/Txt.h"

namespace vorelle::demo {

namespace {

// Shows a pop-up, writes the form with the pop-up over it to a file and closes the pop-up
// with Esc, as a user would.
class ShootingLoop : public PopupLoop {
public:
    ShootingLoop(Form& form, QString file) : form_(form), file_(std::move(file)) {}
    bool saved = false;

    void run(QWidget* popup, QWidget*) override {
        popup->show();
        QApplication::processEvents();
        const QPoint formAt = form_.mapToGlobal(QPoint(0, 0));
        const QRect formRect(formAt, form_.size());
        const QRect all = formRect.united(popup->geometry());
        const qreal ratio = form_.devicePixelRatioF();
        QPixmap canvas(all.size() * ratio);
        canvas.setDevicePixelRatio(ratio);
        canvas.fill(Qt::white);
        {
            QPainter painter(&canvas);
            painter.drawPixmap(formAt - all.topLeft(), form_.grab());
            painter.drawPixmap(popup->geometry().topLeft() - all.topLeft(), popup->grab());
        }
        saved = canvas.save(file_);
        QWidget* keys = popup->focusProxy() ? popup->focusProxy() : popup;
        QKeyEvent esc(QEvent::KeyPress, Qt::Key_Escape, Qt::NoModifier);
        QApplication::sendEvent(keys, &esc);
    }

private:
    Form& form_;
    QString file_;
};

bool pressDown(Form& form, const char* name) {
    auto* txt = qobject_cast<Txt*>(form.Controls(QString::fromLatin1(name)));
    if (!txt) {
        return false;
    }
    txt->field()->setFocus();
    QKeyEvent down(QEvent::KeyPress, Qt::Key_Down, Qt::NoModifier);
    QApplication::sendEvent(txt->field(), &down);
    return true;
}

}  // namespace

int TextPopupShots(Form& form, const QString& dir, const QString& language) {
    int failures = 0;
    auto shoot = [&](const char* control, const char* name) {
        const QString file = QDir(dir).filePath(QString::fromLatin1(name) + u'_' + language +
                                                QStringLiteral(".png"));
        ShootingLoop loop(form, file);
        const ScopedService<PopupLoop> scope(loop);
        if (!pressDown(form, control) || !loop.saved) {
            std::fprintf(stderr, "vorelle-demo: cannot write %s\n", qPrintable(file));
            ++failures;
        }
    };
    shoot("txtDropDown", "dropdown");
    const bool german = language == u"de";
    RegSetApp(QStringLiteral("EntryWizard"), QStringLiteral("txtHistory"), QString());
    for (const char* text : {"Anna Schmidt", "Bernd Müller", "Clara Weber", "Dieter Wagner"}) {
        EntryHistoryAdd(QStringLiteral("txtHistory"), QString::fromUtf8(text));
    }
    EntryHistoryAdd(QStringLiteral("txtHistory"),
                    german ? QStringLiteral("zuletzt eingegeben") : QStringLiteral("entered last"));
    shoot("txtHistory", "history");
    return failures;
}

}  // namespace vorelle::demo
