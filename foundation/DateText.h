#pragma once

#include <QDate>
#include <QDateTime>
#include <QString>

#include <optional>

#include "foundation/Export.h"

namespace vorelle {

// Date and time text of the entry controls, the logs and the password generator.
//
// Date value: the host's day number, a double in which 0 is 30 December 1899 and 1 is
// 31 December 1899, with the fraction as the part of the day (for days before day 0 the
// fraction counts forward from the day, as in -1.25 = 29 December 1899 06:00). An empty
// date is 0.
// Seconds value: the day number rounded to a whole number, times 86400, plus the seconds
// of the day.
// Canonical texts are German whatever the machine shows: "dd.mm.yyyy", "hh:nn:ss",
// date and time split by "/".

// --- Day numbers ----------------------------------------------------------------------
/// The day number of a date: days since 30.12.1899, as the host counts them.
VORELLE_EXPORT double DayNumber(const QDate& date);
/// Wall-clock date and time of the value; its time zone is not looked at.
VORELLE_EXPORT double DayNumber(const QDateTime& dateTime);
/// The date of a day number; invalid when the value is not finite or lies outside the
/// years 100 to 9999.
VORELLE_EXPORT QDate DateOfDayNumber(double value);
/// The date and time of a day number (its fraction is the time of day); invalid as above.
VORELLE_EXPORT QDateTime DateTimeOfDayNumber(double value);

// --- Clock ---------------------------------------------------------------------------
/// Today as "dd.mm.yyyy".
VORELLE_EXPORT QString DatumHeute();
/// Now as "hh:nn:ss".
VORELLE_EXPORT QString ZeitJetzt();
/// DatumHeute, "/", ZeitJetzt.
VORELLE_EXPORT QString NowStamp();
/// ZeitJetzt, ".", the milliseconds of the UTC clock in three digits.
VORELLE_EXPORT QString ZeitstempelMs();

// --- Validity ------------------------------------------------------------------------
/// Whether Year has 29 February.
VORELLE_EXPORT bool IsLeapYear(int Year);
/// 28 to 31; 0 for a month outside 1 to 12.
VORELLE_EXPORT int DaysInMonth(int Month, int Year);
/// "d.m.yyyy": day 0 to 31 (0 deliberately passes), month 1 to 12, year 100 to 9999.
VORELLE_EXPORT bool IsValidDate(const QString& Text);
/// "h:n[...]": hours 0 to 23, minutes 0 to 59; anything after the minutes is not looked at.
VORELLE_EXPORT bool IsValidTime(const QString& Text);
/// Date and time split by "/" or, without one, by " ".
VORELLE_EXPORT bool IsValidDatTim(const QString& Text);

// --- Text to value and back ------------------------------------------------------------
/// The host's date conversion: reads day, month and year in the machine's order with its
/// separators, numeric months or month names (the machine's, German and English, full and
/// abbreviated, any case), two-digit years in 1930 to 2029, and an optional time
/// "h:n[:s]" with AM or PM. Nothing when the text is not a date.
VORELLE_EXPORT std::optional<double> DateFromText(const QString& Text);
///@{
/// Normalises month names for the machine (Text is changed in place) and converts the text;
/// a text that cannot be read gives 1 January 1980.
VORELLE_EXPORT double ParseDate(QString& Text);
VORELLE_EXPORT double ParseDate(const QString& Text);
///@}
/// Part of a day; 0 for a text without ":". "PM" in any case adds 12 hours, even to 12.
VORELLE_EXPORT double ParseTime(const QString& Text);
/// Seconds of "h:n:s"; a missing part counts 0.
VORELLE_EXPORT double TimeToSeconds(const QString& Text);
///@{
/// The date rounded to a whole day (ties to the even day) times 86400. A date of 0 is first
/// replaced by today, in the caller's variable too.
VORELLE_EXPORT double DateToSecondsBase(double& Date);
VORELLE_EXPORT double DateToSecondsBase(const double& Date);
///@}
/// Seconds value of "date/time".
VORELLE_EXPORT double DatTimToSeconds(const QString& Text);
/// "dd.mm.yyyy/hh:nn:ss" of the seconds value that Text starts with; "" outside the years
/// 100 to 9999.
VORELLE_EXPORT QString SecondsToDatTim(const QString& Text);
/// (date + time) * 86400; the literals "DatumHeute" and "ZeitJetzt" stand for today and now.
VORELLE_EXPORT double DateTimeToSerial(const QString& DateText, const QString& TimeText);

// --- Regional settings ------------------------------------------------------------------
/// "GMT+hh:mm" or "GMT-hh:mm" of the machine's time zone now.
VORELLE_EXPORT QString GmtOffset(bool UseDaylight);
/// "dd", "mm", "yyyy" in the machine's order with its separator, e.g. "dd.mm.yyyy".
VORELLE_EXPORT QString LocaleDateFormat();
/// The machine's date separator.
VORELLE_EXPORT QString LocaleDateSep();
/// "hh", "nn", "ss" with the machine's separator, then " AMPM" on a 12-hour machine.
VORELLE_EXPORT QString LocaleTimeFormat();
/// The machine's time separator.
VORELLE_EXPORT QString LocaleTimeSep();
/// The machine's decimal separator.
VORELLE_EXPORT QString LocaleDecimalSep();
/// The machine's thousands separator.
VORELLE_EXPORT QString LocaleThousandSep();

/// Exit code with which the program ends when the regional settings cannot be read.
inline constexpr int kLocaleUnreadableExitCode = 1;

}  // namespace vorelle
