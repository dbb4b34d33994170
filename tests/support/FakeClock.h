#pragma once

#include "core/IClock.h"

class FakeClock : public IClock
{
public:
    QDateTime now() const override { return m_now; }
    void setNow(const QDateTime& now) { m_now = now; }

private:
    QDateTime m_now;
};
