#pragma once

#include <QObject>

#include "foundation/Export.h"
#include "host/form/UiDocument.h"

namespace vorelle {

// The form file a form was loaded from, kept on the form (as a hidden child object) so
// that saving can write the plain widgets back as they were.
class VORELLE_EXPORT UiSource : public QObject {
    Q_OBJECT

public:
    UiSource(UiDocument document, QObject* form);

    const UiDocument& document() const { return document_; }

    // The source kept on `form`, or nullptr.
    static const UiSource* of(const QObject* form);
    // Keeps `document` on `form`, replacing an earlier one.
    static void attach(QObject* form, UiDocument document);

private:
    UiDocument document_;
};

}  // namespace vorelle
