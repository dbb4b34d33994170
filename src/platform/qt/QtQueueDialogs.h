#pragma once

#include "platform/lbx/IQueueDialogs.h"

// The print application's dialogs as windows, modal over the control's window.
class QtQueueDialogs : public IQueueDialogs
{
public:
    std::optional<QueueRecord> askForNewQueue() override;
    void showProperties(const QueueRecord& record, const QString& reachability) override;
};
