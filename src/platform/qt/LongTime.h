#pragma once

#include <QDateTime>
#include <QString>
#include <QTime>
#include <optional>

// A printer's time of day as the workstation writes it in full ("Long Time"), and read back.
// Both ways go through the default locale, so what is written always reads back.
namespace LongTime {
// Empty while the time is unknown.
QString text(const QDateTime& when);
// What `text` writes, or a plain H:mm or H:mm:ss; none for anything else.
std::optional<QTime> parse(const QString& typed);
} // namespace LongTime
