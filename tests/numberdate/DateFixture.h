#pragma once

#include <gtest/gtest.h>

#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QTest>

#include "foundation/Language.h"
#include "foundation/RegStore.h"
#include "host/form/Form.h"
#include "host/frame/PropertyBag.h"
#include "host/input/EntryField.h"
#include "numberdate/DateEntry.h"
#include "support/Doubles.h"
#include "support/FakeLocale.h"
#include "support/FakeSleeper.h"
#include "support/QtPrinters.h"

namespace vorelle::test {

// A shown form "frmTest" with one date or time control "ctlWert" and a second field to
// move the focus to; the locale (German unless a test says otherwise), message boxes,
// beeps, key state, clock, waits and the store are doubles.
template <class Control>
class DateTest : public ::testing::Test {
protected:
    ScopedLocale locale;
    ScopedMemoryStore store;
    FakeMessageBox box;
    ScopedService<MessageBox> boxScope{box};
    FakeKeyState keys;
    ScopedService<KeyState> keyScope{keys};
    FakeClock clock;  // 05.03.2005 08:05
    ScopedService<Clock> clockScope{clock};
    FakeSleeper sleeper;
    Form form;
    Control* ctl = nullptr;
    QLineEdit* other = nullptr;
    int changes = 0;

    void setLanguage(const QString& language) {
        RegSetApp(QStringLiteral("Config"), QStringLiteral("Sprache"), language);
        LanguageLoad();
    }

    // Creates the control unlocked from a property bag; the form is shown and the first
    // field focused.
    void make(const QList<std::pair<QString, QVariant>>& properties = {}) {
        form.setName(QStringLiteral("frmTest"));
        form.resize(400, 120);
        ctl = new Control(&form);
        ctl->setObjectName(QStringLiteral("ctlWert"));
        ctl->move(10, 10);
        other = new QLineEdit(&form);
        other->setObjectName(QStringLiteral("txtOther"));
        other->move(10, 60);
        PropertyBag bag;
        bag.insert(QStringLiteral("Locked"), false);
        for (const auto& [name, value] : properties) {
            bag.insert(name, value);
        }
        ctl->startFrom(bag);
        QObject::connect(ctl, &Control::Change, [this] { ++changes; });
        form.show();
        QApplication::setActiveWindow(&form);
        ctl->setFocus();
        reset();
    }
    void reset() {
        changes = 0;
        box.beeps = 0;
        box.shown.clear();
        sleeper.waits.clear();
    }

    void TearDown() override { QCoreApplication::sendPostedEvents(); }

    EntryField* field(DatePart part) const { return ctl->field(part); }
    QString text(DatePart part) const { return field(part)->text(); }
    // Focuses a sub-field (which selects it) and types into it.
    void focus(DatePart part) {
        field(part)->setFocus();
        field(part)->selectAll();
    }
    void type(DatePart part, const QString& keys) {
        focus(part);
        QTest::keyClicks(field(part), keys);
    }
    void key(DatePart part, Qt::Key k, Qt::KeyboardModifiers mods = Qt::NoModifier) {
        focus(part);
        QTest::keyClick(field(part), k, mods);
    }
    // The sub-field that has the focus, nullptr when the focus is outside the control.
    EntryField* focused() const {
        for (DatePart part :
             {DatePart::Day, DatePart::Month, DatePart::Year, DatePart::Hour, DatePart::Minute}) {
            if (field(part) && field(part)->hasFocus()) {
                return field(part);
            }
        }
        return nullptr;
    }
    void leave() { other->setFocus(); }
    QString lastBox() const { return box.shown.isEmpty() ? QString() : box.shown.last().text; }
};

}  // namespace vorelle::test
