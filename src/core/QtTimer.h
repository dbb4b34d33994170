#pragma once

#include "core/ITimer.h"

#include <QTimer>

// The timer of the program, headless or with a window: a QTimer on the event loop's thread.
class QtTimer : public ITimer
{
public:
    explicit QtTimer(qint32 interval = 0, bool enabled = false);
    Q_DISABLE_COPY_MOVE(QtTimer)

    qint32 interval() const override { return m_timer.interval(); }
    void setInterval(qint32 milliseconds) override;
    bool isEnabled() const override { return m_bEnabled; }
    void setEnabled(bool enabled) override;
    void onTick(std::function<void()> tick) override { m_tick = std::move(tick); }

    // Whether the QTimer itself runs: the timer is enabled and has a period.
    bool isActive() const { return m_timer.isActive(); }

private:
    void apply();

    QTimer m_timer;
    bool m_bEnabled = false;
    std::function<void()> m_tick;
};
