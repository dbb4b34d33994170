#include "sim/ASeriesClock.h"

namespace ASeriesClock {
QByteArray bytesOf(const QDateTime& clock)
{
    const QDate date = clock.date();
    const QTime time = clock.time();
    QByteArray bytes;
    for (const int value : {date.year() / 100, date.year() % 100, date.month(), date.day(),
                            time.hour(), time.minute(), time.second()})
        bytes += char(value);
    return bytes;
}

std::optional<QDateTime> clockOf(const QByteArray& bytes, const QDateTime& now)
{
    if (bytes.size() != kSize)
        return std::nullopt;
    const auto at = [&bytes](qsizetype index) {
        return int(quint8(bytes.at(index)));
    };
    if (at(0) > 99 || at(1) > 99)
        return std::nullopt;
    const QDate date(at(0) * 100 + at(1), at(2), at(3));
    const QTime time(at(4), at(5), at(6));
    if (!date.isValid() || !time.isValid())
        return std::nullopt;
    QDateTime clock = now;
    clock.setDate(date);
    clock.setTime(time);
    return clock;
}
} // namespace ASeriesClock
