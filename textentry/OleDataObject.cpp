#include "textentry/OleDataObject.h"

namespace vorelle {

namespace {

const QString kText = QStringLiteral("text/plain");

}  // namespace

OleDataObject::OleDataObject(const QString& text, DataRequest request)
    : request_(std::move(request)) {
    if (!text.isEmpty()) {
        setText(text);
    }
}

QStringList OleDataObject::formats() const {
    QStringList list = QMimeData::formats();
    if (!list.contains(kText)) {
        list.append(kText);
    }
    return list;
}

bool OleDataObject::hasFormat(const QString& mimeType) const {
    return mimeType == kText || QMimeData::formats().contains(mimeType);
}

QVariant OleDataObject::retrieveData(const QString& mimeType, QMetaType type) const {
    if (mimeType == kText && !QMimeData::formats().contains(kText) && request_) {
        // Asking the source puts the text in; retrieving is const only in name.
        auto* self = const_cast<OleDataObject*>(this);
        const DataRequest request = request_;
        request(*self, kTextFormat);
    }
    return QMimeData::retrieveData(mimeType, type);
}

}  // namespace vorelle
