#pragma once

#include "core/IClock.h"

class SystemClock : public IClock
{
public:
    QDateTime now() const override { return QDateTime::currentDateTime(); }
};
