#pragma once

// A Locale whose every setting a test sets. The presets are a German machine (day first,
// "." and ":"), a US machine (month first, "/", 12-hour clock) and a Japanese-style machine
// (year first, "/").

#include <QString>
#include <QStringList>

#include <optional>

#include "foundation/Locale.h"
#include "foundation/ServiceSlot.h"

namespace vorelle::test {

class FakeLocale : public Locale {
public:
    std::optional<QString> order = QStringLiteral("1");
    std::optional<QString> dateSep = QStringLiteral(".");
    std::optional<QString> clock = QStringLiteral("1");
    std::optional<QString> timeSep = QStringLiteral(":");
    bool german = true;
    QStringList longMonths = {
        QStringLiteral("Januar"),  QStringLiteral("Februar"),  QStringLiteral("März"),
        QStringLiteral("April"),   QStringLiteral("Mai"),      QStringLiteral("Juni"),
        QStringLiteral("Juli"),    QStringLiteral("August"),   QStringLiteral("September"),
        QStringLiteral("Oktober"), QStringLiteral("November"), QStringLiteral("Dezember")};
    QStringList shortMonths = {QStringLiteral("Jan"), QStringLiteral("Feb"), QStringLiteral("Mrz"),
                               QStringLiteral("Apr"), QStringLiteral("Mai"), QStringLiteral("Jun"),
                               QStringLiteral("Jul"), QStringLiteral("Aug"), QStringLiteral("Sep"),
                               QStringLiteral("Okt"), QStringLiteral("Nov"), QStringLiteral("Dez")};
    std::optional<QString> decimal = QStringLiteral(",");
    std::optional<QString> thousand = QStringLiteral(".");

    static FakeLocale germany() { return FakeLocale(); }

    static FakeLocale unitedStates() {
        FakeLocale l;
        l.order = QStringLiteral("0");
        l.dateSep = QStringLiteral("/");
        l.clock = QStringLiteral("0");
        l.german = false;
        l.longMonths = {
            QStringLiteral("January"), QStringLiteral("February"), QStringLiteral("March"),
            QStringLiteral("April"),   QStringLiteral("May"),      QStringLiteral("June"),
            QStringLiteral("July"),    QStringLiteral("August"),   QStringLiteral("September"),
            QStringLiteral("October"), QStringLiteral("November"), QStringLiteral("December")};
        l.shortMonths.clear();
        for (const QString& name : l.longMonths) {
            l.shortMonths.append(name.left(3));
        }
        l.decimal = QStringLiteral(".");
        l.thousand = QStringLiteral(",");
        return l;
    }

    // Day first like Germany, English names and a non-German user language.
    static FakeLocale unitedKingdom() {
        FakeLocale l = unitedStates();
        l.order = QStringLiteral("1");
        l.clock = QStringLiteral("1");
        return l;
    }

    static FakeLocale yearFirst() {
        FakeLocale l = unitedStates();
        l.order = QStringLiteral("2");
        l.dateSep = QStringLiteral("-");
        l.clock = QStringLiteral("1");
        return l;
    }

    std::optional<QString> dateOrder() const override { return order; }
    std::optional<QString> dateSeparator() const override { return dateSep; }
    std::optional<QString> clockFormat() const override { return clock; }
    std::optional<QString> timeSeparator() const override { return timeSep; }
    bool isGermanMachine() const override { return german; }
    QString monthName(int month, bool abbreviated) const override {
        const QStringList& names = abbreviated ? shortMonths : longMonths;
        return month >= 1 && month <= names.size() ? names.at(month - 1) : QString();
    }
    std::optional<QString> decimalSeparator() const override { return decimal; }
    std::optional<QString> thousandSeparator() const override { return thousand; }
};

// Puts a locale in place for the lifetime of a test.
class ScopedLocale {
public:
    explicit ScopedLocale(FakeLocale l = FakeLocale::germany()) : locale(std::move(l)) {
        previous_ = Locale::setInstance(&locale);
    }
    ~ScopedLocale() { Locale::setInstance(previous_); }
    ScopedLocale(const ScopedLocale&) = delete;
    ScopedLocale& operator=(const ScopedLocale&) = delete;

    FakeLocale locale;

private:
    Locale* previous_ = nullptr;
};

}  // namespace vorelle::test
