#include "host/form/UiDocument.h"

#include <QFile>
#include <QXmlStreamReader>
#include <QXmlStreamWriter>

#include "host/form/UiFileError.h"

namespace vorelle {

namespace {

void writeNode(QXmlStreamWriter& out, const UiNode& node) {
    out.writeStartElement(node.tag);
    for (const auto& [name, value] : node.attributes) {
        out.writeAttribute(name, value);
    }
    if (node.children.empty()) {
        if (!node.text.isEmpty()) {
            out.writeCharacters(node.text);
        }
    } else {
        for (const UiNode& child : node.children) {
            writeNode(out, child);
        }
    }
    out.writeEndElement();
}

}  // namespace

UiDocument UiDocument::parse(const QByteArray& xml, const QString& file) {
    UiDocument doc;
    doc.file = file;
    QXmlStreamReader in(xml);
    std::vector<UiNode*> open;
    bool haveRoot = false;
    while (!in.atEnd()) {
        const auto token = in.readNext();
        if (token == QXmlStreamReader::StartElement) {
            UiNode* node = nullptr;
            if (open.empty()) {
                if (haveRoot) {
                    break;  // the reader reports the second root element as an error
                }
                haveRoot = true;
                node = &doc.root;
                node->tag = in.name().toString();
            } else {
                node = &open.back()->append(in.name().toString());
            }
            node->line = static_cast<int>(in.lineNumber());
            for (const QXmlStreamAttribute& attr : in.attributes()) {
                node->attributes.append({attr.qualifiedName().toString(), attr.value().toString()});
            }
            open.push_back(node);
        } else if (token == QXmlStreamReader::Characters && !open.empty()) {
            open.back()->text += in.text();
        } else if (token == QXmlStreamReader::EndElement && !open.empty()) {
            if (!open.back()->children.empty()) {
                open.back()->text.clear();  // only the indentation between child elements
            }
            open.pop_back();
        }
    }
    if (in.hasError()) {
        const int line = static_cast<int>(in.lineNumber());
        throw UiFileError(QStringLiteral("%1:%2: damaged form file: %3")
                              .arg(file)
                              .arg(line)
                              .arg(in.errorString()),
                          file, line);
    }
    if (!haveRoot) {
        throw UiFileError(QStringLiteral("%1: damaged form file: no XML element in it").arg(file),
                          file, 0);
    }
    return doc;
}

UiDocument UiDocument::read(const QString& path) {
    QFile f(path);
    if (!f.open(QIODevice::ReadOnly)) {
        throw UiFileError(
            QStringLiteral("%1: cannot open the form file: %2").arg(path, f.errorString()), path,
            0);
    }
    return parse(f.readAll(), path);
}

QByteArray UiDocument::toXml() const {
    QByteArray xml;
    QXmlStreamWriter out(&xml);
    out.setAutoFormatting(true);
    out.setAutoFormattingIndent(1);
    out.writeStartDocument();
    writeNode(out, root);
    out.writeEndDocument();
    return xml;
}

}  // namespace vorelle
