#include "platform/wire/ReconnectDelay.h"

#include <algorithm>

int ReconnectDelay::next()
{
    const int wait = m_nextMs;
    m_nextMs = std::min(m_nextMs * 2, LongestMs);
    return wait;
}
