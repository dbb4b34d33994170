#pragma once

#include "core/ITimer.h"

// A timer driven by hand: fire() ticks it as the event loop would once its period is up.
class FakeTimer : public ITimer
{
public:
    explicit FakeTimer(qint32 interval = 0, bool enabled = false);

    qint32 interval() const override { return m_interval; }
    void setInterval(qint32 milliseconds) override;
    bool isEnabled() const override { return m_enabled; }
    void setEnabled(bool enabled) override;
    void onTick(std::function<void()> tick) override { m_tick = std::move(tick); }

    // Ticks only when a real timer would: enabled, with a period, and someone listening.
    // Answers whether it ticked.
    bool fire();
    bool hasTick() const { return bool(m_tick); }
    // How many times a period was started: by enabling, or by an interval while enabled.
    int restarts() const { return m_restarts; }

private:
    qint32 m_interval;
    bool m_enabled;
    int m_restarts = 0;
    std::function<void()> m_tick;
};
