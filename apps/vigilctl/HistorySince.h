#pragma once

#include <QDateTime>
#include <optional>

// When a period of the history begins, as an administrator writes it: an ISO date
// ("2026-11-20", from midnight), an ISO date and time ("2026-11-20T06:00"), or a span back
// from now in days or hours ("7d", "12h"). None for anything else.
std::optional<QDateTime> HistorySince(const QString& word, const QDateTime& now);
