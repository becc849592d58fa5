#pragma once

#include <QMetaProperty>
#include <QString>
#include <QVariant>

#include "foundation/Export.h"
#include "host/form/UiNode.h"

namespace vorelle {

// Values of <property> elements of a form file and back: string, cstring, number, uInt,
// longLong, uLongLong, bool, double, float, enum, set, color, font, rect, size, point,
// stringlist, date, time and datetime.
//
// The library's colours are 32-bit numbers in the OLE colour form (red in the low byte),
// so a <color> becomes such a number unless the receiving property is a QColor. <enum>
// and <set> become the number of the receiving property's enumerator, or the text when
// the property has none.
class VORELLE_EXPORT UiValue {
public:
    // The value of a <property> node. `target` is the receiving property (may be invalid).
    // A malformed value throws UiFileError naming `file`, the line and the property.
    static QVariant read(const UiNode& property, const QMetaProperty& target, const QString& file);

    // A <property> node holding `value`. `original` is the node as it stood in the file
    // (nullptr when none): its form (say <color> for a colour number) is kept.
    static UiNode write(const QString& name, const QVariant& value, const QMetaProperty& target,
                        const UiNode* original);

    // OLE colour number <-> red, green, blue.
    static qint32 oleColor(int red, int green, int blue);
};

}  // namespace vorelle
