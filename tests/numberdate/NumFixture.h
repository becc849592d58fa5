#pragma once

#include <gtest/gtest.h>

#include <QApplication>
#include <QLineEdit>
#include <QTest>

#include "foundation/Language.h"
#include "foundation/RegStore.h"
#include "foundation/Zentral.h"
#include "host/form/Form.h"
#include "host/frame/PropertyBag.h"
#include "host/input/EntryField.h"
#include "numberdate/Num.h"
#include "support/Doubles.h"
#include "support/FakeLocale.h"
#include "support/FakeSleeper.h"

namespace vorelle::test {

// Stands for the form manager: records the status texts it is given.
class NumStatus : public QWidget {
    Q_OBJECT
public:
    using QWidget::QWidget;
    QStringList status1;
    Q_INVOKABLE void Status1(const QString& de, const QString& en) {
        status1.append(de + u'/' + en);
    }
};

// A shown form "frmTest" with a Num "numWert", a second field to move the focus to and a
// manager that records the status line; the locale (German unless a test says otherwise),
// beeps, key state, waits and the store are doubles.
class NumTest : public ::testing::Test {
protected:
    ScopedLocale locale;
    ScopedMemoryStore store;
    FakeMessageBox box;
    ScopedService<MessageBox> boxScope{box};
    FakeKeyState keys;
    ScopedService<KeyState> keyScope{keys};
    FakeSleeper sleeper;
    Form form;
    NumStatus* status = nullptr;
    Num* num = nullptr;
    QLineEdit* other = nullptr;
    int changes = 0;
    QList<int> keyPresses;

    void setLanguage(const QString& language) {
        RegSetApp(QStringLiteral("Config"), QStringLiteral("Sprache"), language);
        LanguageLoad();
    }
    void useEnglishLocale() { locale.locale = FakeLocale::unitedStates(); }

    // Creates the control from a property bag; the form is shown and the field focused
    // (which selects the whole text).
    void make(const QList<std::pair<QString, QVariant>>& properties = {}) {
        form.setName(QStringLiteral("frmTest"));
        form.resize(400, 120);
        status = new NumStatus(&form);
        status->setObjectName(QStringLiteral("FormWizard1"));
        status->setGeometry(0, 100, 400, 20);
        num = new Num(&form);
        num->setObjectName(QStringLiteral("numWert"));
        num->move(10, 10);
        other = new QLineEdit(&form);
        other->setObjectName(QStringLiteral("txtOther"));
        other->move(10, 60);
        PropertyBag bag;
        for (const auto& [name, value] : properties) {
            bag.insert(name, value);
        }
        num->startFrom(bag);
        num->setWidth(3000);
        QObject::connect(num, &Num::Change, [this] { ++changes; });
        QObject::connect(num, &Num::KeyPress, [this](int& k) { keyPresses.append(k); });
        form.show();
        QApplication::setActiveWindow(&form);
        field()->setFocus();
        changes = 0;
        keyPresses.clear();
        status->status1.clear();
        box.beeps = 0;
    }

    void deliverPostedKeys() { QCoreApplication::sendPostedEvents(); }
    void TearDown() override { deliverPostedKeys(); }

    EntryField* field() const { return num->field(); }
    QString text() const { return field()->text(); }
    void type(const QString& keys) { QTest::keyClicks(field(), keys); }
    void key(Qt::Key k, Qt::KeyboardModifiers mods = Qt::NoModifier) {
        QTest::keyClick(field(), k, mods);
    }
    void leave() { other->setFocus(); }
    // Puts the caret at a place without a selection.
    void caretAt(int position) { field()->setCursorPosition(position); }
    QColor textColor() const { return field()->palette().color(QPalette::Text); }
    QString lastStatus() const {
        return status->status1.isEmpty() ? QString() : status->status1.last();
    }
    // The value that the text stands for, read as the change handler reads it.
    double textValue() const {
        QString t = text();
        t.remove(locale.locale.thousand.value_or(QString()));
        t.replace(locale.locale.decimal.value_or(QStringLiteral(".")), QStringLiteral("."));
        const double v = Val(t);
        return num->minusShown() ? -v : v;
    }
};

}  // namespace vorelle::test
