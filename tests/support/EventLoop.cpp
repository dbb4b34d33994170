#include "support/EventLoop.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QEventLoop>
#include <QTimer>

void EnsureApplication()
{
    static int argc = 1;
    static char name[] = "tests";
    static char* argv[] = {name, nullptr};
    if (!QCoreApplication::instance())
        new QCoreApplication(argc, argv);
}

bool WaitUntil(const std::function<bool()>& condition, int deadlineMs)
{
    EnsureApplication();
    const QDeadlineTimer deadline(deadlineMs);
    while (!condition()) {
        if (deadline.hasExpired())
            return false;
        QEventLoop loop;
        QTimer::singleShot(10, &loop, &QEventLoop::quit);
        loop.exec();
    }
    return true;
}
