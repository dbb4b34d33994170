#pragma once

#include "platform/lbx/IQueueDialogs.h"

#include <cstdio>

// Without a window nobody can be asked: adding a printer points to vigilctl, and a queue's
// properties are one line.
class HeadlessQueueDialogs : public IQueueDialogs
{
public:
    explicit HeadlessQueueDialogs(FILE* stream = stderr);

    std::optional<QueueRecord> askForNewQueue() override;
    void showProperties(const QueueRecord& record, const QString& reachability) override;

private:
    FILE* m_stream;
};
