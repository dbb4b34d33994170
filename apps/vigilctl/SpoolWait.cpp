#include "SpoolWait.h"

#include "drivers/Queue.h"
#include "drivers/Queues.h"
#include "services/EventLoopWait.h"

namespace {
// Long enough for a printer whose wire is being set up; a printer that isn't there by then
// gets the labels when a program next prints.
constexpr int SendWaitMs = 30000;
} // namespace

SpoolWait::SpoolWait(Queues& queues)
    : m_queues(queues)
{
    for (Queue* queue : queues.List())
        QObject::connect(queue, &Queue::Error, queue, [this, queue](qint32, const QString& text) {
            m_faults.append(queue->Name() + QStringLiteral(": ") + text);
        });
}

bool SpoolWait::untilSent()
{
    return TurnEventLoopUntil(
        [this] {
            qint32 pending = 0;
            for (Queue* queue : m_queues.List())
                pending += queue->PendingItems();
            return pending == 0;
        },
        SendWaitMs);
}
