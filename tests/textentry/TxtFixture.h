#pragma once

#include <gtest/gtest.h>

#include <QApplication>
#include <QTest>

#include "foundation/Language.h"
#include "foundation/RegStore.h"
#include "host/input/EntryField.h"
#include "host/form/Form.h"
#include "host/frame/PropertyBag.h"
#include "support/Doubles.h"
#include "textentry/Txt.h"

namespace vorelle::test {

// Stands for the form manager: records the status texts it is given.
class StatusRecorder : public QWidget {
    Q_OBJECT
public:
    using QWidget::QWidget;
    QStringList status1;
    Q_INVOKABLE void Status1(const QString& de, const QString& en) {
        status1.append(de + u'/' + en);
    }
};

// A shown form "frmTest" with a Txt "txtName" and a second field to move the focus to;
// message boxes, beeps, key state and the store are doubles.
class TxtTest : public ::testing::Test {
protected:
    ScopedMemoryStore store;
    FakeMessageBox box;
    ScopedService<MessageBox> boxScope{box};
    FakeKeyState keys;
    ScopedService<KeyState> keyScope{keys};
    Form form;
    Txt* txt = nullptr;
    QLineEdit* other = nullptr;
    int changes = 0;
    QList<int> keyPresses;

    void setLanguage(const QString& language) {
        RegSetApp(QStringLiteral("Config"), QStringLiteral("Sprache"), language);
        LanguageLoad();
    }

    // Creates the field from a property bag; the form is shown and the field focused.
    void make(const QList<std::pair<QString, QVariant>>& properties = {}) {
        form.setName(QStringLiteral("frmTest"));
        form.resize(400, 120);
        txt = new Txt(&form);
        txt->setObjectName(QStringLiteral("txtName"));
        txt->move(10, 10);
        other = new QLineEdit(&form);
        other->setObjectName(QStringLiteral("txtOther"));
        other->move(10, 60);
        PropertyBag bag;
        for (const auto& [name, value] : properties) {
            bag.insert(name, value);
        }
        txt->startFrom(bag);
        QObject::connect(txt, &Txt::Change, [this] { ++changes; });
        QObject::connect(txt, &Txt::KeyPress, [this](int& k) { keyPresses.append(k); });
        form.show();
        QApplication::setActiveWindow(&form);
        field()->setFocus();
        changes = 0;  // showing the form ran its Load, and RegLoading raised Change
        keyPresses.clear();
    }

    // Delivers the keys that the field posted (SendKeysSafe) while the widgets live.
    void deliverPostedKeys() { QCoreApplication::sendPostedEvents(); }
    void TearDown() override { deliverPostedKeys(); }

    EntryField* field() const { return txt->field(); }
    void type(const QString& text) { QTest::keyClicks(field(), text); }
    void leave() { other->setFocus(); }
};

}  // namespace vorelle::test
