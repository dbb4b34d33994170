#pragma once

#include <QString>
#include <memory>
#include <optional>

// The print progress log: a row per printer with what happened last to what was sent there.
// The desktop program shows it as a window; headless, each entry is one line on standard
// error.
class IProgressLog
{
public:
    virtual ~IProgressLog() = default;

    virtual void AddStatusItem(const QString& sPrinter, const QString& sMessage,
                               qint32 eStatus) = 0;
    virtual void AddErrorItem(const QString& sPrinter, const QString& sMessage, qint32 lCode) = 0;
    virtual void AddMessageItem(const QString& sPrinter, const QString& sMessage) = 0;
    virtual void ShowMe() = 0;
};

// The log of this process, g_frmDownloads; headless until a program installs its window.
IProgressLog& ProgressLog();
void InstallProgressLog(std::shared_ptr<IProgressLog> log);

// A print item's status, as the queues report it: waiting, sending, sent, done.
enum PrintItemStatus { PrintItemWaiting = 1, PrintItemSending, PrintItemSent, PrintItemDone };

// The message that names a print item's status: waiting, sending, sent, done. None for a
// status the log has no word for.
std::optional<qint32> StatusMessageId(qint32 eStatus);
