#pragma once

#include "TestProbe.h"
#include "host/form/Form.h"

namespace vorelle {

// An application's own form: records its Load and its Form_Load2 routine.
class ProbeForm : public Form {
    Q_OBJECT

public:
    explicit ProbeForm(QWidget* parent = nullptr) : Form(parent) {
        connect(this, &Form::Load, this,
                [] { TestProbe::events().append(QStringLiteral("Load")); });
    }

    Q_INVOKABLE void Form_Load2() { TestProbe::events().append(QStringLiteral("Form_Load2")); }
};

}  // namespace vorelle
