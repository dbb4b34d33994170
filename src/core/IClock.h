#pragma once

#include <QDateTime>

// The present local time. The program reads the system's clock; tests set their own.
class IClock
{
public:
    virtual ~IClock() = default;
    virtual QDateTime now() const = 0;
};
