#include "support/EnginePump.h"

EnginePump::EnginePump(FakeQueue& queue, std::unique_ptr<SimEngine> engine)
    : m_queue(queue)
    , m_engine(std::move(engine))
{}

void EnginePump::run(const QDateTime& now)
{
    // Each reply may send the next command; a round has a handful of them.
    for (int exchange = 0; exchange < 32 && !m_queue.sent.isEmpty(); ++exchange)
        for (const QByteArray& command : std::exchange(m_queue.sent, {}))
            for (const QByteArray& reply : m_engine->receive(command, now))
                m_queue.inject(reply);
}
