#pragma once

#include <QStringList>

class Queues;

// Waits, turning the event loop, until every queue has sent what the spool gave it, and keeps
// what the queues reported meanwhile, each line led by its queue's name.
class SpoolWait
{
public:
    explicit SpoolWait(Queues& queues);

    // False when a printer hadn't taken its labels in time; they stay in the spool.
    bool untilSent();
    const QStringList& faults() const { return m_faults; }

private:
    Queues& m_queues;
    QStringList m_faults;
};
