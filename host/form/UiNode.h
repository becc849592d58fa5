#pragma once

#include <QList>
#include <QPair>
#include <QString>
#include <vector>

#include "foundation/Export.h"

namespace vorelle {

// One element of a form file: its tag, attributes in file order, the text of a leaf,
// the line it starts on and its child elements.
class VORELLE_EXPORT UiNode {
public:
    UiNode() = default;
    explicit UiNode(QString tag, int line = 0) : tag(std::move(tag)), line(line) {}

    QString tag;
    QList<QPair<QString, QString>> attributes;
    QString text;
    int line = 0;
    std::vector<UiNode> children;

    QString attribute(const QString& name) const;
    bool hasAttribute(const QString& name) const;
    void setAttribute(const QString& name, const QString& value);

    // The first child with the tag, or nullptr.
    const UiNode* child(const QString& childTag) const;
    UiNode* child(const QString& childTag);
    // A new child at the end.
    UiNode& append(const QString& childTag, const QString& childText = QString());

    // The <property name="..."> child with that name (case-insensitive), or nullptr.
    const UiNode* property(const QString& name) const;
    UiNode* property(const QString& name);
};

}  // namespace vorelle
