#include "core/PresentTime.h"

#include "core/IClock.h"
#include "core/SystemClock.h"

namespace {
std::shared_ptr<IClock>& installed()
{
    static std::shared_ptr<IClock> clock = std::make_shared<SystemClock>();
    return clock;
}
} // namespace

QDateTime PresentTime()
{
    return installed()->now();
}

void InstallClock(std::shared_ptr<IClock> clock)
{
    installed() = clock ? std::move(clock) : std::make_shared<SystemClock>();
}
