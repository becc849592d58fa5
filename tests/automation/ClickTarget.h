#pragma once

#include <QLineEdit>
#include <QObject>
#include <QPushButton>
#include <QTest>

#include "host/form/Form.h"

namespace vorelle::test {

// A shown form with a button that counts its clicks and a field holding "alpha beta",
// the target of the pointer tests.
struct ClickTarget {
    Form form;
    QPushButton* button = new QPushButton(QStringLiteral("OK"), &form);
    QLineEdit* field = new QLineEdit(QStringLiteral("alpha beta"), &form);
    int clicks = 0;

    explicit ClickTarget(const QString& name = QString()) {
        form.setName(name);
        form.setGeometry(40, 40, 320, 200);
        button->setGeometry(20, 20, 100, 30);
        field->setGeometry(20, 90, 200, 30);
        QObject::connect(button, &QPushButton::clicked, [this] { ++clicks; });
        form.show();
    }
    // Whether the window came up on the screen.
    bool exposed() { return QTest::qWaitForWindowExposed(&form); }
};

}  // namespace vorelle::test
