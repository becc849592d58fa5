#include "host/form/UiNode.h"

namespace vorelle {

QString UiNode::attribute(const QString& name) const {
    for (const auto& [key, value] : attributes) {
        if (key == name) {
            return value;
        }
    }
    return QString();
}

bool UiNode::hasAttribute(const QString& name) const {
    for (const auto& attr : attributes) {
        if (attr.first == name) {
            return true;
        }
    }
    return false;
}

void UiNode::setAttribute(const QString& name, const QString& value) {
    for (auto& attr : attributes) {
        if (attr.first == name) {
            attr.second = value;
            return;
        }
    }
    attributes.append({name, value});
}

const UiNode* UiNode::child(const QString& childTag) const {
    for (const UiNode& c : children) {
        if (c.tag == childTag) {
            return &c;
        }
    }
    return nullptr;
}

UiNode* UiNode::child(const QString& childTag) {
    return const_cast<UiNode*>(static_cast<const UiNode*>(this)->child(childTag));
}

UiNode& UiNode::append(const QString& childTag, const QString& childText) {
    UiNode& c = children.emplace_back(childTag);
    c.text = childText;
    return c;
}

const UiNode* UiNode::property(const QString& name) const {
    for (const UiNode& c : children) {
        if (c.tag == u"property" &&
            c.attribute(QStringLiteral("name")).compare(name, Qt::CaseInsensitive) == 0) {
            return &c;
        }
    }
    return nullptr;
}

UiNode* UiNode::property(const QString& name) {
    return const_cast<UiNode*>(static_cast<const UiNode*>(this)->property(name));
}

}  // namespace vorelle
