#pragma once

#include <QtGlobal>

// How long a wire that went down waits before it tries again: one second, doubling with
// each failure up to half a minute, and back to one second once it is up.
class ReconnectDelay
{
public:
    static constexpr int FirstMs = 1000;
    static constexpr int LongestMs = 30000;

    // The wait before the next try; each call doubles the one after.
    int next();
    void reset() { m_nextMs = FirstMs; }

private:
    int m_nextMs = FirstMs;
};
