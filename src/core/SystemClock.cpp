#include "core/SystemClock.h"

QDateTime SystemClock::now() const
{
    return QDateTime::currentDateTime();
}
