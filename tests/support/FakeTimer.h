#pragma once

#include "core/ITimer.h"

// A timer driven by hand: fire() ticks it as the event loop would once its period is up.
class FakeTimer : public ITimer
{
public:
    FakeTimer(qint32 interval = 0, bool enabled = false)
        : m_interval(interval)
        , m_enabled(enabled)
    {}

    qint32 interval() const override { return m_interval; }
    void setInterval(qint32 milliseconds) override
    {
        m_interval = milliseconds;
        if (m_enabled)
            ++m_restarts;
    }
    bool isEnabled() const override { return m_enabled; }
    void setEnabled(bool enabled) override
    {
        if (enabled && !m_enabled)
            ++m_restarts;
        m_enabled = enabled;
    }
    void onTick(std::function<void()> tick) override { m_tick = std::move(tick); }

    // Ticks only if enabled, as a real timer would.
    void fire()
    {
        if (m_enabled && m_tick)
            m_tick();
    }
    // How many times a period was started.
    int restarts() const { return m_restarts; }

private:
    qint32 m_interval;
    bool m_enabled;
    int m_restarts = 0;
    std::function<void()> m_tick;
};
