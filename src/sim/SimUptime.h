#pragma once

#include <QDateTime>

// How long a simulated printer has been on, counted from the first bytes it gets: that is when
// it is switched on, as far as anyone can tell.
class SimUptime
{
public:
    // Only the first call counts; answers whether it was that one.
    bool powerOn(const QDateTime& now);
    // Whether something that comes `after` seconds on and lasts `lasting` seconds stands at
    // `now`; `after` below 0 is never, `lasting` 0 is for good.
    bool stands(qint64 after, qint64 lasting, const QDateTime& now) const;

private:
    // Whole seconds; 0 before power-on.
    qint64 secondsOn(const QDateTime& now) const;

    QDateTime m_poweredOn;
};
