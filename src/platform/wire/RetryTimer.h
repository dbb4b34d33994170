#pragma once

#include "platform/wire/ReconnectDelay.h"

#include <asio/steady_timer.hpp>
#include <functional>

// When a wire that failed tries again: after a delay that grows while the device stays away,
// back to the shortest once it is up.
class RetryTimer
{
public:
    explicit RetryTimer(asio::io_context& context)
        : m_timer(context)
    {}

    // Calls `retry` after the next delay; `retry` must keep what it calls alive.
    void schedule(std::function<void()> retry);
    void succeeded() { m_delay.reset(); }
    void cancel() { m_timer.cancel(); }

private:
    asio::steady_timer m_timer;
    ReconnectDelay m_delay;
};
