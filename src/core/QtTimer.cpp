#include "core/QtTimer.h"

QtTimer::QtTimer(qint32 interval, bool enabled)
{
    // A coarse timer may be 5% late: enough, at the shortest poll intervals, for a poll to
    // come before the time-out tick that is set to come 500 ms ahead of it.
    m_timer.setTimerType(Qt::PreciseTimer);
    m_timer.setInterval(interval);
    QObject::connect(&m_timer, &QTimer::timeout, [this] {
        if (m_tick)
            m_tick();
    });
    setEnabled(enabled);
}

void QtTimer::setInterval(qint32 milliseconds)
{
    m_timer.setInterval(milliseconds);
    apply();
}

void QtTimer::setEnabled(bool enabled)
{
    if (enabled == m_bEnabled)
        return;
    m_bEnabled = enabled;
    apply();
}

// A QTimer with a period of 0 would fire at every turn of the event loop: an enabled timer
// without a period waits, still enabled, until it is given one. Starting restarts the period.
void QtTimer::apply()
{
    if (m_bEnabled && m_timer.interval() > 0)
        m_timer.start();
    else
        m_timer.stop();
}
