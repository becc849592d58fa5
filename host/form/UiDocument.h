#pragma once

#include <QByteArray>
#include <QString>

#include "foundation/Export.h"
#include "host/form/UiNode.h"

namespace vorelle {

// A form file (.ui XML) as a tree of elements with their line numbers. Reading checks the
// XML only; what the elements mean is the loader's business.
class VORELLE_EXPORT UiDocument {
public:
    UiDocument() = default;

    // Parses XML; a damaged document throws UiFileError naming `file` and the line.
    static UiDocument parse(const QByteArray& xml, const QString& file);
    // Reads and parses a file (also Qt resource paths such as ":/forms/x.ui").
    static UiDocument read(const QString& path);

    // The XML text, indented like Qt Designer writes it, or without any indentation.
    QByteArray toXml(bool indented = true) const;

    UiNode root;
    QString file;
};

}  // namespace vorelle
