#pragma once

#include <QtGlobal>
#include <functional>

// A timer that ticks on the program's one thread. An enabled timer with a period of 0 or
// less doesn't tick. Stopping it and starting it again, or giving it an interval while it
// runs, starts its period anew; enabling a timer that already runs changes nothing.
class ITimer
{
public:
    virtual ~ITimer() = default;

    virtual qint32 interval() const = 0;
    virtual void setInterval(qint32 milliseconds) = 0;
    virtual bool isEnabled() const = 0;
    virtual void setEnabled(bool enabled) = 0;
    // Called at each tick; an empty function lets go of the previous one.
    virtual void onTick(std::function<void()> tick) = 0;
};
