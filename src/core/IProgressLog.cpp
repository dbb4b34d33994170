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

std::optional<qint32> StatusMessageId(qint32 eStatus)
{
    switch (eStatus) {
    case PrintItemWaiting:
        return 401;
    case PrintItemSending:
        return 398;
    case PrintItemSent:
        return 400;
    case PrintItemDone:
        return 399;
    default:
        return std::nullopt;
    }
}
