#include "support/EventLoop.h"

#include "services/EventLoopWait.h"

#include <QCoreApplication>

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
    return TurnEventLoopUntil(condition, deadlineMs);
}
