#include "support/FakeTimer.h"

FakeTimer::FakeTimer(qint32 interval, bool enabled)
    : m_interval(interval)
    , m_enabled(enabled)
{}

void FakeTimer::setInterval(qint32 milliseconds)
{
    m_interval = milliseconds;
    if (m_enabled)
        ++m_restarts;
}

void FakeTimer::setEnabled(bool enabled)
{
    if (enabled && !m_enabled)
        ++m_restarts;
    m_enabled = enabled;
}

bool FakeTimer::fire()
{
    if (!m_enabled || m_interval <= 0 || !m_tick)
        return false;
    // A copy: the tick may hand the timer a new one, or take it away.
    const std::function<void()> tick = m_tick;
    tick();
    return true;
}
