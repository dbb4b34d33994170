#pragma once

#include "platform/lbx/QueueRecord.h"

#include <memory>
#include <optional>

// The print application's own dialogs: adding a printer, and a queue's properties. The
// desktop program installs windows; without one each is a line on standard error.
class IQueueDialogs
{
public:
    virtual ~IQueueDialogs() = default;

    // The queue the user set up, or none when they gave up. Checking the name against the
    // queues there are is the store's business.
    virtual std::optional<QueueRecord> askForNewQueue() = 0;
    // `reachability` says whether the port is up, or why not.
    virtual void showProperties(const QueueRecord& record, const QString& reachability) = 0;

    static IQueueDialogs& process();
    static void install(std::shared_ptr<IQueueDialogs> dialogs);
};
