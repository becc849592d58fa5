#include "host/form/UiSource.h"

namespace vorelle {

namespace {
const QString kObjectName = QStringLiteral("qt_vorelle_uisource");
}

UiSource::UiSource(UiDocument document, QObject* form)
    : QObject(form), document_(std::move(document)) {
    setObjectName(kObjectName);
}

const UiSource* UiSource::of(const QObject* form) {
    return form ? form->findChild<UiSource*>(kObjectName, Qt::FindDirectChildrenOnly) : nullptr;
}

void UiSource::attach(QObject* form, UiDocument document) {
    delete const_cast<UiSource*>(of(form));
    new UiSource(std::move(document), form);
}

}  // namespace vorelle
