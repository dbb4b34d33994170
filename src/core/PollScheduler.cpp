#include "core/PollScheduler.h"

#include "services/ApplicationOptions.h"
#include "services/ErrorBox.h"

#include <cmath>

PollScheduler::PollScheduler(ITimer& timer1, ITimer& tmrTimeout, Hooks hooks)
    : m_timer1(timer1)
    , m_tmrTimeout(tmrTimeout)
    , m_hooks(std::move(hooks))
{
    m_timer1.onTick([this] { Timer1_Timer(); });
    m_tmrTimeout.onTick([this] { tmrTimeout_Timer(); });
}

void PollScheduler::UpdatePollInterval()
{
    RunTrapped(QStringLiteral("AddInControl - UpdatePollInterval"), [this] {
        const qint32 option = GetPollInterval();
        if (m_lPollInterval != option)
            SetPollInterval(option);
    });
}

void PollScheduler::SetPollInterval(qint32 interval)
{
    // A change restarts the period but never starts a stopped timer.
    const bool wasEnabled = m_timer1.isEnabled();
    m_timer1.setEnabled(false);
    m_lPollInterval = interval;
    if (interval > Slice) {
        m_lRemainingInterval = interval - Slice;
        m_timer1.setInterval(Slice);
    } else {
        m_timer1.setInterval(interval);
        m_lRemainingInterval = -1;
    }
    m_timer1.setEnabled(wasEnabled);
}

bool PollScheduler::waitsOutASlice()
{
    if (m_lRemainingInterval < 0)
        return false;
    if (m_lPollInterval >= Slice && m_lRemainingInterval != 0) {
        if (m_lRemainingInterval < LastSliceLimit) {
            m_timer1.setInterval(m_lRemainingInterval);
            m_lRemainingInterval = 0;
        } else {
            m_lRemainingInterval -= Slice;
            m_timer1.setInterval(Slice);
        }
        return true;
    }
    if (m_lPollInterval >= Slice) {
        m_lRemainingInterval = m_lPollInterval - Slice;
        m_timer1.setInterval(Slice);
    } else {
        m_lRemainingInterval = -1;
        m_timer1.setInterval(m_lPollInterval);
    }
    return false;
}

void PollScheduler::Timer1_Timer()
{
    // A failure between stopping the timers and starting them again leaves them stopped.
    RunTrapped(QStringLiteral("AddInControl - Timer1_Timer"), [this] {
        if (waitsOutASlice())
            return;
        if (m_hooks.checkExit())
            return;
        m_timer1.setEnabled(false);
        m_tmrTimeout.setEnabled(false);
        const qint32 poll = GetPollInterval();
        m_tmrTimeout.setInterval(poll - TimeoutLead >= LongestTimeoutPeriod ? LongestTimeoutPeriod
                                                                            : poll - TimeoutLead);
        ProcessComponents();
        m_tmrTimeout.setEnabled(true);
        m_timer1.setEnabled(true);
        m_hooks.checkExit();
    });
}

qint16 PollScheduler::TimeoutSeconds(qint32 pollInterval)
{
    if (pollInterval >= LongestTimeoutPeriod)
        return 5;
    // Halves go to the even neighbour: 4500 ms gives 4.
    return qint16(std::nearbyint(pollInterval / 1000.0 - 1));
}

void PollScheduler::tmrTimeout_Timer()
{
    RunTrapped(QStringLiteral("tmrTimeout_Timer"), [this] {
        const qint16 seconds = TimeoutSeconds(GetPollInterval());
        if (!m_bPollingDisabled)
            m_hooks.processTimeout(seconds);
    });
}

void PollScheduler::ProcessComponents()
{
    RunTrapped(QStringLiteral("AddInControl - ProcessComponents"), [this] {
        if (!m_bPollingDisabled)
            m_hooks.process();
    });
}
