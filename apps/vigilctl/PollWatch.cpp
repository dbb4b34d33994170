#include "PollWatch.h"

#include "core/PollScheduler.h"
#include "drivers/Application.h"
#include "drivers/Queue.h"
#include "drivers/Queues.h"
#include "printing/clsLBXHandler.h"
#include "services/ApplicationOptions.h"
#include "services/EventLoopWait.h"

PollWatch::PollWatch(PollScheduler& scheduler, int cycles)
    : m_scheduler(scheduler)
    , m_cycles(cycles)
{
    m_scheduler.onWalkEnded([this] {
        ++m_walks;
        m_sinceLastWalk.start();
        m_bTimedOutSinceLastWalk = false;
    });
    // A handler times a round out once its reply is as many whole seconds late as the
    // interval allows; a check that comes that long after the walk has seen to every round.
    m_scheduler.onTimeoutsChecked([this] {
        const qint64 limitMs = PollScheduler::timeoutSeconds(GetPollInterval()) * 1000LL;
        if (m_sinceLastWalk.isValid() && m_sinceLastWalk.elapsed() >= limitMs)
            m_bTimedOutSinceLastWalk = true;
    });
}

bool PollWatch::waitUntilSettled(int deadlineMs)
{
    if (!TurnEventLoopUntil([this] { return settled(); }, deadlineMs))
        return false;
    m_scheduler.onWalkEnded({});
    m_scheduler.onTimeoutsChecked({});
    return true;
}

bool PollWatch::settled() const
{
    return m_walks >= m_cycles && (m_bTimedOutSinceLastWalk || everyRoundEnded());
}

bool PollWatch::everyRoundEnded()
{
    for (const Queue* queue : GetGlobalLBX().LBX_App().Queues().List())
        if (queue->ReplyWanted())
            return false;
    return true;
}
