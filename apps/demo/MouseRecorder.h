#pragma once

#include "automation/Mouse.h"
#include "host/form/Form.h"

class QCheckBox;
class QPlainTextEdit;

namespace vorelle::demo {

// The demo's "record and replay the mouse" window: a managed form (with its FormWizard1)
// whose labels react to hover and click through the form's mouse tracking, and a Mouse
// that records a path while Scroll Lock is on and replays it.
class MouseRecorder : public Form {
    Q_OBJECT

public:
    explicit MouseRecorder(QWidget* parent = nullptr);

private:
    void record();
    void replay();

    Mouse mouse_;
    QPlainTextEdit* path_ = nullptr;
    QCheckBox* relative_ = nullptr;
};

}  // namespace vorelle::demo
