#pragma once

#include <QStringList>

#include "host/form/Form.h"

namespace vorelle::demo {

// The demo's start form (forms/frmDemo.ui): the language switch and the list of every
// form of the demo, each of which opens in its own window.
class DemoForm : public Form {
    Q_OBJECT

public:
    explicit DemoForm(QStringList formFiles, QWidget* parent = nullptr);

    // Reached by the form's Load.
    Q_INVOKABLE void Form_Load2();
    // Reached at each activation, also after a style switch: the style box follows.
    Q_INVOKABLE void Form_Activate2();
    // Reached after each language switch: the radio buttons and the list follow.
    Q_INVOKABLE void LanguageChanged();

    // Opens a form file in a window of its own; a fault is shown in a message box.
    void openForm(const QString& path);

    // The four dialog styles, as they are stored.
    static QStringList dialogStyles();
    // Gives every open form the style and stores it as each form's choice.
    static void applyStyle(const QString& style);

private:
    void fillList();

    QStringList formFiles_;
};

}  // namespace vorelle::demo
