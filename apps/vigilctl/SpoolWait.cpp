#include "SpoolWait.h"

#include "drivers/Queue.h"
#include "drivers/Queues.h"
#include "platform/lbx/LbxQueue.h"
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
    // Taken by the printer: out of the spool, and out of the program's own write buffers,
    // which go when the program ends.
    return TurnEventLoopUntil(
        [this] {
            for (Queue* queue : m_queues.List()) {
                const auto* wire = qobject_cast<LbxQueue*>(queue);
                if (queue->PendingItems() > 0 || (wire && !wire->wireDrained()))
                    return false;
            }
            return true;
        },
        SendWaitMs);
}
