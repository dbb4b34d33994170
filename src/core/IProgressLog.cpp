#include "core/IProgressLog.h"

#include "core/HeadlessProgressLog.h"

namespace {
std::shared_ptr<IProgressLog>& installed()
{
    static std::shared_ptr<IProgressLog> log = std::make_shared<HeadlessProgressLog>();
    return log;
}
} // namespace

IProgressLog& ProgressLog()
{
    return *installed();
}

void InstallProgressLog(std::shared_ptr<IProgressLog> log)
{
    installed() = log ? std::move(log) : std::make_shared<HeadlessProgressLog>();
}
