#pragma once

#include "core/ITimer.h"

#include <functional>

// The two timers that drive all monitoring. Timer1 starts a poll walk of the whole tree;
// intervals longer than a timer period are waited out in slices. tmrTimeout gives every
// handler a chance, between walks, to notice a reply that hasn't come. Walks never overlap:
// both timers are stopped while one runs.
class PollScheduler
{
public:
    static constexpr qint32 Slice = 65000;
    static constexpr qint32 LastSliceLimit = 65001;
    static constexpr qint32 LongestTimeoutPeriod = 5000;
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

    PollScheduler(ITimer& timer1, ITimer& tmrTimeout, Hooks hooks);

    // Applies the poll interval option if it differs from the one in force.
    void UpdatePollInterval();
    void SetPollInterval(qint32 interval);
    void Timer1_Timer();
    void tmrTimeout_Timer();
    void ProcessComponents();
    void DoEnablePolling() { m_bPollingDisabled = false; }
    void DoDisablePolling() { m_bPollingDisabled = true; }

    bool pollingDisabled() const { return m_bPollingDisabled; }
    qint32 pollInterval() const { return m_lPollInterval; }
    qint32 remainingInterval() const { return m_lRemainingInterval; }

    // The seconds after which a handler counts a reply as lost, for a poll interval.
    static qint16 TimeoutSeconds(qint32 pollInterval);

private:
    // True when this tick only waits out a slice of a long interval.
    bool waitsOutASlice();

    ITimer& m_timer1;
    ITimer& m_tmrTimeout;
    Hooks m_hooks;
    qint32 m_lPollInterval = 0;
    qint32 m_lRemainingInterval = 0;
    bool m_bPollingDisabled = false;
};
