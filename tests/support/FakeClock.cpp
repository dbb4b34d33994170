#include "support/FakeClock.h"

FakeClock::FakeClock(const QDateTime& now)
    : m_now(now)
{}
