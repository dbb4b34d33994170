#include "platform/lbx/HeadlessQueueDialogs.h"

#include "services/HeadlessOutput.h"
#include "services/ProcessWide.h"

using InstalledQueueDialogs = ProcessWide<IQueueDialogs, HeadlessQueueDialogs>;

IQueueDialogs& IQueueDialogs::process()
{
    return InstalledQueueDialogs::get();
}

void IQueueDialogs::install(std::shared_ptr<IQueueDialogs> dialogs)
{
    InstalledQueueDialogs::install(std::move(dialogs));
}

HeadlessQueueDialogs::HeadlessQueueDialogs(FILE* stream)
    : m_stream(stream)
{}

std::optional<QueueRecord> HeadlessQueueDialogs::askForNewQueue()
{
    WriteHeadlessLine(m_stream, QStringLiteral("Add printer: no window to ask in; use "
                                               "vigilctl queue add NAME --port PORT --type "
                                               "NUMBER"));
    return std::nullopt;
}

void HeadlessQueueDialogs::showProperties(const QueueRecord& record, const QString& reachability)
{
    WriteHeadlessLine(m_stream, QStringLiteral("Queue %1 (%2): port %3, printer type %4, %5")
                                    .arg(record.name, record.friendlyName, record.portName)
                                    .arg(record.printerNumber)
                                    .arg(reachability));
}
