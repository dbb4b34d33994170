#include "core/IProgressLog.h"

#include "core/HeadlessProgressLog.h"
#include "services/ProcessWide.h"

using InstalledLog = ProcessWide<IProgressLog, HeadlessProgressLog>;

IProgressLog& ProgressLog()
{
    return InstalledLog::get();
}

void InstallProgressLog(std::shared_ptr<IProgressLog> log)
{
    InstalledLog::install(std::move(log));
}
