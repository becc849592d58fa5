#include "TextShots.h"

#include <QApplication>
#include <QDir>
#include <cstdio>

#include "host/form/Form.h"
#include "host/input/CursorState.h"
#include "numberdate/Num.h"
#include "textentry/Txt.h"
#include "textentry/frmEnlargeMultilineText.h"
#include "textentry/frmGenPassword.h"
#include "textentry/mlt.h"

namespace vorelle::demo {

namespace {

// A pointer that walks a diagonal zigzag, one step for each look at it, so that the
// generator finds movement without a hand on the mouse.
class WalkingCursor : public CursorState {
public:
    QPoint pos() const override {
        ++step_;
        return QPoint(100 + step_ * 3, 100 + step_ * 5 + (step_ * 7919 % 3));
    }
    void setPos(const QPoint&) override {}

private:
    mutable int step_ = 0;
};

bool save(QWidget& window, const QString& dir, const QString& name, const QString& language) {
    QApplication::processEvents();
    const QString file = QDir(dir).filePath(name + u'_' + language + QStringLiteral(".png"));
    if (window.grab().save(file)) {
        return true;
    }
    std::fprintf(stderr, "vorelle-demo: cannot write %s\n", qPrintable(file));
    return false;
}

}  // namespace

int TextShots(Form& form, const QString& dir, const QString& language) {
    auto* password = qobject_cast<Txt*>(form.Controls(QStringLiteral("txtKind13")));
    if (!password) {
        return 0;
    }
    int failures = 0;
    password->setPassword(QStringLiteral("Geheim!"));
    failures += save(form, dir, QStringLiteral("text_password"), language) ? 0 : 1;

    {
        frmGenPassword generator;
        generator.show();
        failures += save(generator, dir, QStringLiteral("genpassword"), language) ? 0 : 1;
        WalkingCursor walk;
        CursorState* previous = CursorState::setInstance(&walk);
        generator.lengthChooser()->setZahl(12);
        generator.Generate();
        CursorState::setInstance(previous);
        failures += save(generator, dir, QStringLiteral("genpassword_done"), language) ? 0 : 1;
    }
    {
        frmEnlargeMultilineText editor;
        editor.field()->setText(
            language == u"de"
                ? QStringLiteral("Ein längerer Text,\nüber mehrere Zeilen.\n\nEsc übernimmt ihn.")
                : QStringLiteral("A longer text,\nover several lines.\n\nEsc transfers it."));
        editor.show();
        failures += save(editor, dir, QStringLiteral("enlarge"), language) ? 0 : 1;
    }
    return failures;
}

}  // namespace vorelle::demo
