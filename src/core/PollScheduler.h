#pragma once

#include "core/ITimer.h"

#include <functional>

// The two timers that drive all monitoring. Timer1 starts a poll walk of the whole tree;
// intervals longer than a timer period are waited out in slices. tmrTimeout gives every
// handler a chance, between walks, to notice a reply that hasn't come. Walks never overlap:
// both timers are stopped while one runs. The scheduler knows nothing of printers: what it
// needs of the control and the tree comes in as hooks, and an empty hook does nothing.
class PollScheduler
{
public:
    // The longest period ever given to Timer1.
    static constexpr qint32 Slice = 65000;
    // A remainder below this is waited out in one last, shorter slice.
    static constexpr qint32 LastSliceLimit = 65001;
    // The longest period of tmrTimeout; from a poll interval of this on, a reply is lost
    // after LongestTimeoutSeconds.
    static constexpr qint32 LongestTimeoutPeriod = 5000;
    static constexpr qint16 LongestTimeoutSeconds = 5;
    // tmrTimeout's period is this much shorter than the poll, so it fires before the next one.
    static constexpr qint32 TimeoutLead = 500;

    struct Hooks
    {
        // The control's CheckExit: true once it is going down.
        std::function<bool()> checkExit;
        // Process on the root group.
        std::function<void()> process;
        // ProcessTimeout on the root group.
        std::function<void(qint16)> processTimeout;
    };

    // Takes the timers' ticks; both timers must outlive the scheduler.
    PollScheduler(ITimer& timer1, ITimer& tmrTimeout, Hooks hooks);
    ~PollScheduler();
    Q_DISABLE_COPY_MOVE(PollScheduler)

    // Applies the poll interval option if it differs from the one in force.
    void UpdatePollInterval();
    void SetPollInterval(qint32 interval);
    void Timer1_Timer();
    void tmrTimeout_Timer();
    void ProcessComponents();
    // Neither touches the timers: the next tick sees the change.
    void DoEnablePolling() { m_bPollingDisabled = false; }
    void DoDisablePolling() { m_bPollingDisabled = true; }

    // For a program that watches the cycles go by: told after each walk of the tree, and
    // after each time-out check.
    void onWalkEnded(std::function<void()> observer) { m_walkEnded = std::move(observer); }
    void onTimeoutsChecked(std::function<void()> observer)
    {
        m_timeoutsChecked = std::move(observer);
    }

    // How long a reply may take at that poll interval before it counts as lost.
    static qint16 timeoutSeconds(qint32 pollInterval);

    qint32 pollInterval() const { return m_lPollInterval; }
    qint32 remainingInterval() const { return m_lRemainingInterval; }
    bool pollingDisabled() const { return m_bPollingDisabled; }

private:
    // Moves a long interval on by one slice; true when the wait is over and this tick polls.
    bool nextSlice();
    bool checkExit() const;

    static qint32 timeoutPeriod(qint32 pollInterval);

    ITimer& m_timer1;
    ITimer& m_tmrTimeout;
    Hooks m_hooks;
    std::function<void()> m_walkEnded;
    std::function<void()> m_timeoutsChecked;
    // The interval in force on Timer1; 0 until the option is first applied.
    qint32 m_lPollInterval = 0;
    // -1: every tick polls. 0 or more: what is left to wait after the current slice.
    qint32 m_lRemainingInterval = 0;
    bool m_bPollingDisabled = false;
};
