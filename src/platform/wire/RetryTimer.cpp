#include "platform/wire/RetryTimer.h"

void RetryTimer::schedule(std::function<void()> retry)
{
    m_timer.expires_after(std::chrono::milliseconds(m_delay.next()));
    m_timer.async_wait([retry = std::move(retry)](const std::error_code& code) {
        if (!code)
            retry();
    });
}
