#include "HistorySince.h"

#include <QRegularExpression>

namespace {
// Far enough for any history kept, small enough that no date overflows.
constexpr qint64 LongestSpanHours = 100LL * 366 * 24;
} // namespace

std::optional<QDateTime> HistorySince(const QString& word, const QDateTime& now)
{
    static const QRegularExpression span(QStringLiteral("^(\\d{1,9})([dh])$"));
    if (const QRegularExpressionMatch match = span.match(word); match.hasMatch()) {
        const qint64 hours =
            match.captured(1).toLongLong() * (match.captured(2) == QLatin1String("d") ? 24 : 1);
        if (hours > LongestSpanHours)
            return std::nullopt;
        return now.addSecs(-hours * 3600);
    }
    const QDateTime moment = QDateTime::fromString(word, Qt::ISODate);
    if (moment.isValid())
        return moment;
    const QDate day = QDate::fromString(word, Qt::ISODate);
    if (day.isValid())
        return day.startOfDay();
    return std::nullopt;
}
