#pragma once

#include <QElapsedTimer>

class PollScheduler;

// Follows the control's poll cycles until the last one asked for has settled: every
// printer's round has ended (its queue wants no more reply), or enough time has gone by
// since the walk that a round still open has been timed out.
class PollWatch
{
public:
    // Must be made before the control starts: its first walk is part of start-up.
    PollWatch(PollScheduler& scheduler, int cycles);

    // Turns the event loop until the cycles have settled or `deadlineMs` is over; false
    // when the deadline came first.
    bool waitUntilSettled(int deadlineMs);

private:
    bool settled() const;
    static bool everyRoundEnded();

    PollScheduler& m_scheduler;
    int m_cycles;
    int m_walks = 0;
    QElapsedTimer m_sinceLastWalk;
    bool m_bTimedOutSinceLastWalk = false;
};
