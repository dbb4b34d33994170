#pragma once

#include "core/IClock.h"

// A clock that stands still at the time a test gives it.
class FakeClock : public IClock
{
public:
    explicit FakeClock(const QDateTime& now = {});

    QDateTime now() const override { return m_now; }
    void setNow(const QDateTime& now) { m_now = now; }

private:
    QDateTime m_now;
};
