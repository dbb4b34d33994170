#pragma once

#include <QtGlobal>
#include <functional>

// A timer that ticks on the program's one thread. Stopping it and starting it again, or
// giving it a new interval while it runs, starts its period anew.
class ITimer
{
public:
    virtual ~ITimer() = default;

    virtual qint32 interval() const = 0;
    virtual void setInterval(qint32 milliseconds) = 0;
    virtual bool isEnabled() const = 0;
    virtual void setEnabled(bool enabled) = 0;
    virtual void onTick(std::function<void()> tick) = 0;
};
