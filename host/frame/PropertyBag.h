#pragma once

#include <QList>
#include <QString>
#include <QVariant>
#include <stdexcept>

#include "foundation/Export.h"

namespace vorelle {

// A stored property of the wrong type: names the property, the file and the line.
class VORELLE_EXPORT PropertyError : public std::runtime_error {
public:
    PropertyError(const QString& message, QString property, QString file, int line);
    const QString& property() const { return property_; }
    const QString& file() const { return file_; }
    int line() const { return line_; }
    QString message() const { return QString::fromUtf8(what()); }

private:
    QString property_;
    QString file_;
    int line_;
};

// The host's store of a control's design-time properties: name, value pairs in the
// order written. A value equal to its default is not stored.
class VORELLE_EXPORT PropertyBag {
public:
    struct Entry {
        QString name;
        QVariant value;
        int line = 0;  // where the value stood in its file, 0 when unknown
    };

    PropertyBag() = default;
    explicit PropertyBag(QString sourceFile) : file_(std::move(sourceFile)) {}

    // The stored value converted to the type of Default, or Default when the bag has
    // none. A value that cannot be read as that type throws PropertyError.
    QVariant ReadProperty(const QString& Name, const QVariant& Default) const;
    // Stores Value, or removes the name when Value equals Default.
    void WriteProperty(const QString& Name, const QVariant& Value, const QVariant& Default);

    // Raw access for loaders and savers.
    void insert(const QString& name, const QVariant& value, int line = 0);
    bool contains(const QString& name) const;
    const QList<Entry>& entries() const { return entries_; }
    const QString& file() const { return file_; }
    bool isEmpty() const { return entries_.isEmpty(); }
    void clear() { entries_.clear(); }

    // Whether two values are equal in the sense of default elision.
    static bool sameValue(const QVariant& a, const QVariant& b);

private:
    const Entry* find(const QString& name) const;

    QString file_;
    QList<Entry> entries_;
};

}  // namespace vorelle
