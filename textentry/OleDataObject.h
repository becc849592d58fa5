#pragma once

#include <QMimeData>
#include <functional>

#include "foundation/Export.h"

namespace vorelle {

/// The data of a drag that a text field starts: it always offers text, and asks its source
/// for the text (OLESetData, format 1) when a target wants it and none was put in yet.
class VORELLE_EXPORT OleDataObject : public QMimeData {
    Q_OBJECT

public:
    /// The clipboard format number of text.
    static constexpr int kTextFormat = 1;
    /// Called with the format number when a target asks for data that is not there yet;
    /// the callee may put it in with setText().
    using DataRequest = std::function<void(OleDataObject& data, int format)>;

    /// Data with the text; `request` serves later requests.
    explicit OleDataObject(const QString& text, DataRequest request = {});

    /// The formats offered: those put in, and text in any case.
    QStringList formats() const override;
    /// Whether a format is offered (text in any case).
    bool hasFormat(const QString& mimeType) const override;

protected:
    /// The data of a format; for text not yet put in, the source is asked first.
    QVariant retrieveData(const QString& mimeType, QMetaType type) const override;

private:
    DataRequest request_;
};

}  // namespace vorelle
