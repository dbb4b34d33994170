#pragma once

#include <QDateTime>
#include <QString>

// The clock of the reply a printer owes. It runs from a send to the first data that comes
// back; a reply that hasn't begun when its time-out comes is lost. The loss is kept, with
// the stage that was in hand and the time of the last send, until the printer sends
// something again.
class ReplyClock
{
public:
    // The stage of a printer whose protocol has none.
    static constexpr qint32 NoStage = -1;

    // A command has gone out, now.
    void start();
    // Data has come: the clock stops, and the printer answers again.
    void dataArrived();
    bool isRunning() const { return m_bRunning; }
    // True when the reply awaited since the start is `seconds` or more late: it is then lost
    // at `stage`, and the clock stops.
    bool expire(qint16 seconds, qint32 stage);
    // A loss known otherwise: a reply that began and never ended, or none yet at all.
    void markLost(qint32 stage);
    bool timedOut() const { return m_bTimedOut; }
    // Message 9 with the lost stage (empty without stages) and the time of its send; empty
    // while the printer answers.
    QString timeoutMessage() const;

private:
    bool m_bRunning = false;
    QDateTime m_dtLastSend;
    bool m_bTimedOut = false;
    qint32 m_nLostStage = NoStage;
    QDateTime m_dtLostSend;
};
