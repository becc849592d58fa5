#pragma once

#include <vorelle/vorelle.h>

// The application's own form class: the .ui file is loaded into it, and its Load
// reaches Form_Load2.
class HelloForm : public vorelle::Form {
    Q_OBJECT

public:
    using vorelle::Form::Form;

    bool loaded = false;

    Q_INVOKABLE void Form_Load2() {
        loaded = true;
        // The form's own texts: the pair of the current language becomes the caption.
        setCaption(property(vorelle::IsGerman() ? "Caption_de" : "Caption_en").toString());
    }
};
