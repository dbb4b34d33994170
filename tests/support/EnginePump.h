#pragma once

#include "sim/SimEngine.h"
#include "support/FakeApplication.h"

#include <memory>

// A fake queue wired to a simulated printer's engine in this process: what the handler sends
// goes to the engine, and the engine's replies come back as the queue's data, with no wire
// and no delay.
class EnginePump
{
public:
    EnginePump(FakeQueue& queue, std::unique_ptr<SimEngine> engine);

    // Carries every exchange the sent bytes lead to, at that moment of the printer's clock.
    void run(const QDateTime& now);

private:
    FakeQueue& m_queue;
    std::unique_ptr<SimEngine> m_engine;
};
