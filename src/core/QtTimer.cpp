#include "core/QtTimer.h"

QtTimer::QtTimer(qint32 interval, bool enabled)
{
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
    m_bEnabled = enabled;
    apply();
}

// An enabled timer with a period of 0 would fire at every turn of the event loop: it waits,
// enabled, until it is given a period. Starting restarts the period.
void QtTimer::apply()
{
    if (m_bEnabled && m_timer.interval() > 0)
        m_timer.start();
    else
        m_timer.stop();
}
