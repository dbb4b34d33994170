#pragma once

#include <QDate>
#include <QString>
#include <QTime>
#include <optional>

// Dates and times as a printer writes them, which follows the printer's configuration:
// day/month/year or month/day/year (or year first), separated by "/", "." or "-", with two-
// or four-digit years; 24-hour times with or without seconds.
namespace PrinterDateTime {
// A date of three numbers. When both day-first and month-first would make a date, as
// 03/04/2026 does, the workstation's own order settles it, as a person at that workstation
// would read it; a reading that makes no date (13/04/2026 month-first) gives way to the
// other. A four-digit first number means year, month, day. Two-digit years are 2000 to 2069
// and 1970 to 1999.
std::optional<QDate> parseDate(const QString& text, bool monthFirst);
std::optional<QTime> parseTime(const QString& text);
// Whether the workstation writes the month before the day.
bool localeWritesMonthFirst();
} // namespace PrinterDateTime
