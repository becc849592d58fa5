#pragma once

#include <QLocale>
#include <QString>

#include <optional>

#include "foundation/Export.h"

namespace vorelle {

/// The user's regional settings as the date, time and number routines read them.
/// Settings come as the machine's text; nothing (std::nullopt) when a setting cannot be read.
class VORELLE_EXPORT Locale {
public:
    virtual ~Locale();

    /// Order of the short date: "0" month first, "1" day first, "2" year first.
    virtual std::optional<QString> dateOrder() const = 0;
    /// Separator between day, month and year of the short date.
    virtual std::optional<QString> dateSeparator() const = 0;
    /// Clock of the time format: "0" 12-hour with AM/PM, "1" 24-hour.
    virtual std::optional<QString> clockFormat() const = 0;
    /// Separator between hours, minutes and seconds.
    virtual std::optional<QString> timeSeparator() const = 0;
    /// True on a German machine (user language 1031).
    virtual bool isGermanMachine() const = 0;
    /// Name of a month 1 to 12 as the machine writes it; "" for any other month.
    virtual QString monthName(int month, bool abbreviated) const = 0;
    /// The decimal separator; nothing when the machine does not say.
    virtual std::optional<QString> decimalSeparator() const = 0;
    /// The thousands separator; nothing when the machine does not say.
    virtual std::optional<QString> thousandSeparator() const = 0;

    /// The implementation in use: the system one unless setInstance() put another in place.
    static Locale& instance();
    /// Puts another implementation in place (nullptr restores the system one); returns the previous
    /// one.
    static Locale* setInstance(Locale* locale);
};

/// The machine's own settings through QLocale::system(), read afresh at every call; or the
/// settings of one given QLocale.
class VORELLE_EXPORT SystemLocale : public Locale {
public:
    SystemLocale() = default;
    /// The locale settings of locale (by default the system one).
    explicit SystemLocale(const QLocale& locale) : fixed_(locale) {}

    std::optional<QString> dateOrder() const override;
    std::optional<QString> dateSeparator() const override;
    std::optional<QString> clockFormat() const override;
    std::optional<QString> timeSeparator() const override;
    bool isGermanMachine() const override;
    QString monthName(int month, bool abbreviated) const override;
    std::optional<QString> decimalSeparator() const override;
    std::optional<QString> thousandSeparator() const override;

private:
    QLocale current() const { return fixed_ ? *fixed_ : QLocale::system(); }
    std::optional<QLocale> fixed_;
};

}  // namespace vorelle
