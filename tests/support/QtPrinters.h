#pragma once

// Readable failure output of GoogleTest for Qt values.

#include <ostream>

#include <QByteArray>
#include <QPoint>
#include <QSize>
#include <QString>
#include <QStringList>

inline void PrintTo(const QString& value, std::ostream* os) {
    *os << '"' << value.toStdString() << '"';
}
inline void PrintTo(const QStringList& value, std::ostream* os) {
    *os << '{';
    for (qsizetype i = 0; i < value.size(); ++i) {
        *os << (i ? ", \"" : "\"") << value[i].toStdString() << '"';
    }
    *os << '}';
}
inline void PrintTo(const QPoint& value, std::ostream* os) {
    *os << '(' << value.x() << ", " << value.y() << ')';
}
inline void PrintTo(const QSize& value, std::ostream* os) {
    *os << value.width() << 'x' << value.height();
}
