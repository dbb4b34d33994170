#include "core/PollScheduler.h"

#include "services/ApplicationOptions.h"
#include "services/ErrorBox.h"

PollScheduler::PollScheduler(ITimer& timer1, ITimer& tmrTimeout, Hooks hooks)
    : m_timer1(timer1)
    , m_tmrTimeout(tmrTimeout)
    , m_hooks(std::move(hooks))
{
    m_timer1.onTick([this] { Timer1_Timer(); });
    m_tmrTimeout.onTick([this] { tmrTimeout_Timer(); });
}

PollScheduler::~PollScheduler()
{
    // A tick that comes after us must find nothing to call.
    m_timer1.onTick({});
    m_tmrTimeout.onTick({});
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
    // Stopping restarts the period; putting the old state back never starts a stopped timer.
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

bool PollScheduler::nextSlice()
{
    if (m_lPollInterval >= Slice && m_lRemainingInterval != 0) {
        if (m_lRemainingInterval < LastSliceLimit) {
            m_timer1.setInterval(m_lRemainingInterval);
            m_lRemainingInterval = 0;
        } else {
            m_lRemainingInterval -= Slice;
            m_timer1.setInterval(Slice);
        }
        return false;
    }
    if (m_lPollInterval >= Slice) {
        m_lRemainingInterval = m_lPollInterval - Slice;
        m_timer1.setInterval(Slice);
    } else {
        // Also the first tick at start-up, with no interval applied yet.
        m_lRemainingInterval = -1;
        m_timer1.setInterval(m_lPollInterval);
    }
    return true;
}

bool PollScheduler::checkExit() const
{
    return m_hooks.checkExit && m_hooks.checkExit();
}

void PollScheduler::Timer1_Timer()
{
    RunTrapped(QStringLiteral("AddInControl - Timer1_Timer"), [this] {
        if (m_lRemainingInterval >= 0 && !nextSlice())
            return;
        if (checkExit())
            return;
        // Both timers stay stopped during the walk, so walks never overlap and no tick piles
        // up behind a slow walk or an open box. A failure before they start again leaves
        // them stopped: polling ends there.
        m_timer1.setEnabled(false);
        m_tmrTimeout.setEnabled(false);
        m_tmrTimeout.setInterval(timeoutPeriod(GetPollInterval()));
        ProcessComponents();
        m_tmrTimeout.setEnabled(true);
        m_timer1.setEnabled(true);
        if (m_walkEnded)
            m_walkEnded();
        checkExit();
    });
}

void PollScheduler::ProcessComponents()
{
    RunTrapped(QStringLiteral("AddInControl - ProcessComponents"), [this] {
        if (!m_bPollingDisabled && m_hooks.process)
            m_hooks.process();
    });
}

void PollScheduler::tmrTimeout_Timer()
{
    RunTrapped(QStringLiteral("tmrTimeout_Timer"), [this] {
        const qint16 seconds = timeoutSeconds(GetPollInterval());
        if (!m_bPollingDisabled && m_hooks.processTimeout)
            m_hooks.processTimeout(seconds);
        if (m_timeoutsChecked)
            m_timeoutsChecked();
    });
}

qint32 PollScheduler::timeoutPeriod(qint32 pollInterval)
{
    const qint32 period = pollInterval - TimeoutLead;
    return period >= LongestTimeoutPeriod ? LongestTimeoutPeriod : period;
}

// pollInterval / 1000 - 1, halves to the even neighbour (4500 ms gives 4). In whole
// milliseconds, so that no floating rounding mode decides the half.
qint16 PollScheduler::timeoutSeconds(qint32 pollInterval)
{
    if (pollInterval >= LongestTimeoutPeriod)
        return LongestTimeoutSeconds;
    const qint64 milliseconds = qint64(pollInterval) - 1000;
    qint64 seconds = milliseconds / 1000;
    qint64 rest = milliseconds % 1000;
    if (rest < 0) {
        --seconds;
        rest += 1000;
    }
    if (rest > 500 || (rest == 500 && seconds % 2 != 0))
        ++seconds;
    return qint16(seconds);
}
