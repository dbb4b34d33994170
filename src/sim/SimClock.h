#pragma once

#include <QDateTime>

// A printer's own clock, kept as how far it runs from the host's, so that it runs on.
class SimClock
{
public:
    QDateTime at(const QDateTime& now) const { return now.addMSecs(m_offsetMs); }
    void set(const QDateTime& printerNow, const QDateTime& now)
    {
        m_offsetMs = now.msecsTo(printerNow);
    }

private:
    qint64 m_offsetMs = 0;
};
