#include "services/EventLoopWait.h"

#include <QDeadlineTimer>
#include <QEventLoop>
#include <QTimer>

bool TurnEventLoopUntil(const std::function<bool()>& condition, int deadlineMs, int stepMs)
{
    const QDeadlineTimer deadline(deadlineMs);
    while (!condition()) {
        if (deadline.hasExpired())
            return false;
        QEventLoop loop;
        QTimer::singleShot(stepMs, &loop, &QEventLoop::quit);
        loop.exec();
    }
    return true;
}
