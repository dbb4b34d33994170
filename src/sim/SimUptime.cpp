#include "sim/SimUptime.h"

bool SimUptime::powerOn(const QDateTime& now)
{
    if (m_poweredOn.isValid())
        return false;
    m_poweredOn = now;
    return true;
}

qint64 SimUptime::secondsOn(const QDateTime& now) const
{
    return m_poweredOn.isValid() ? m_poweredOn.secsTo(now) : 0;
}

bool SimUptime::stands(qint64 after, qint64 lasting, const QDateTime& now) const
{
    const qint64 since = secondsOn(now) - after;
    return after >= 0 && since >= 0 && (lasting == 0 || since < lasting);
}
