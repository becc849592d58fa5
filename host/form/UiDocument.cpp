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

// The names that come again and again in a form file, made once: a node takes a shared
// copy instead of a text of its own.
QString interned(QStringView name) {
    static const QStringList known = {
        QStringLiteral("widget"), QStringLiteral("property"),  QStringLiteral("string"),
        QStringLiteral("rect"),   QStringLiteral("x"),         QStringLiteral("y"),
        QStringLiteral("width"),  QStringLiteral("height"),    QStringLiteral("bool"),
        QStringLiteral("number"), QStringLiteral("color"),     QStringLiteral("red"),
        QStringLiteral("green"),  QStringLiteral("blue"),      QStringLiteral("font"),
        QStringLiteral("class"),  QStringLiteral("name"),      QStringLiteral("stdset"),
        QStringLiteral("enum"),   QStringLiteral("set"),       QStringLiteral("item"),
        QStringLiteral("layout"), QStringLiteral("attribute"), QStringLiteral("pointsize"),
        QStringLiteral("double"), QStringLiteral("size"),      QStringLiteral("notr"),
    };
    for (const QString& k : known) {
        if (k == name) {
            return k;
        }
    }
    return name.toString();
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
                node = &open.back()->append(interned(in.name()));
            }
            node->line = static_cast<int>(in.lineNumber());
            const QXmlStreamAttributes attributes = in.attributes();
            node->attributes.reserve(attributes.size());
            for (const QXmlStreamAttribute& attr : attributes) {
                node->attributes.append({interned(attr.qualifiedName()), attr.value().toString()});
            }
            open.push_back(node);
        } else if (token == QXmlStreamReader::Characters && !open.empty()) {
            // Indentation after a child element is dropped at the end anyway.
            if (open.back()->children.empty() || !in.isWhitespace()) {
                open.back()->text += in.text();
            }
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

QByteArray UiDocument::toXml(bool indented) const {
    QByteArray xml;
    QXmlStreamWriter out(&xml);
    out.setAutoFormatting(indented);
    out.setAutoFormattingIndent(1);
    out.writeStartDocument();
    writeNode(out, root);
    out.writeEndDocument();
    return xml;
}

}  // namespace vorelle
