#pragma once

#include "core/IClock.h"

// The workstation's own clock, in local time.
class SystemClock : public IClock
{
public:
    QDateTime now() const override;
};
