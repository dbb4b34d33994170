#pragma once

#include <QByteArray>
#include <QDateTime>
#include <optional>

// The clock as the printer reads and writes it: seven binary bytes, the century, the year in
// the century, month, day, hour, minute, second.
namespace ASeriesClock {
constexpr qsizetype kSize = 7;

QByteArray bytesOf(const QDateTime& clock);
// On the time zone of `now`; none unless it is exactly seven bytes of a date and time that
// exist, of the years 1 to 9999.
std::optional<QDateTime> clockOf(const QByteArray& bytes, const QDateTime& now);
} // namespace ASeriesClock
