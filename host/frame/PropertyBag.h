#pragma once

#include <QList>
#include <QString>
#include <QVariant>
#include <stdexcept>

#include "foundation/Export.h"

namespace vorelle {

/// A stored property of the wrong type: names the property, the file and the line.
class VORELLE_EXPORT PropertyError : public std::runtime_error {
public:
    /// A fault of a property value: the message, the property, the file and its line.
    PropertyError(const QString& message, QString property, QString file, int line);
    /// The name of the property.
    const QString& property() const { return property_; }
    /// The file that the value came from, "" for none.
    const QString& file() const { return file_; }
    /// The line of the value in the file, 0 for none.
    int line() const { return line_; }
    /// The description of the fault.
    QString message() const { return QString::fromUtf8(what()); }

private:
    QString property_;
    QString file_;
    int line_;
};

/// The host's store of a control's design-time properties: name, value pairs in the
/// order written. A value equal to its default is not stored.
class VORELLE_EXPORT PropertyBag {
public:
    /// One stored property.
    struct Entry {
        /// The property name.
        QString name;
        /// The value.
        QVariant value;
        /// The line of the value in the file, 0 for none.
        int line = 0;  // where the value stood in its file, 0 when unknown
    };

    PropertyBag() = default;
    /// An empty bag; sourceFile names the file of its values in errors.
    explicit PropertyBag(QString sourceFile) : file_(std::move(sourceFile)) {}

    /// The stored value converted to the type of Default, or Default when the bag has
    /// none. A value that cannot be read as that type throws PropertyError.
    QVariant ReadProperty(const QString& Name, const QVariant& Default) const;
    /// Stores Value, or removes the name when Value equals Default.
    void WriteProperty(const QString& Name, const QVariant& Value, const QVariant& Default);

    /// Raw access for loaders and savers.
    void insert(const QString& name, const QVariant& value, int line = 0);
    /// Whether the bag holds a value of that name.
    bool contains(const QString& name) const;
    /// The stored properties in the order of storing.
    const QList<Entry>& entries() const { return entries_; }
    /// The file that the value came from, "" for none.
    const QString& file() const { return file_; }
    /// Whether the bag holds no value.
    bool isEmpty() const { return entries_.isEmpty(); }
    /// Removes every value.
    void clear() { entries_.clear(); }

    /// Whether two values are equal in the sense of default elision.
    static bool sameValue(const QVariant& a, const QVariant& b);

private:
    const Entry* find(const QString& name) const;

    QString file_;
    QList<Entry> entries_;
};

}  // namespace vorelle
