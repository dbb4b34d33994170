#include "core/HeadlessProgressLog.h"

#include "services/HeadlessOutput.h"
#include "services/MessageCatalogue.h"

HeadlessProgressLog::HeadlessProgressLog(FILE* stream)
    : m_stream(stream)
{}

void HeadlessProgressLog::AddStatusItem(const QString& sPrinter, const QString& sMessage,
                                        qint32 eStatus)
{
    // Status 0 leaves the row as it is.
    if (eStatus == 0)
        return;
    const std::optional<qint32> word = StatusMessageId(eStatus);
    WriteHeadlessLine(
        m_stream, QStringLiteral("%1: %2: %3")
                      .arg(sPrinter, sMessage,
                           word ? GetMessage(*word) : QStringLiteral("status %1").arg(eStatus)));
}

void HeadlessProgressLog::AddErrorItem(const QString& sPrinter, const QString& sMessage,
                                       qint32 lCode)
{
    WriteHeadlessLine(m_stream,
                      QStringLiteral("%1: error %2: %3").arg(sPrinter).arg(lCode).arg(sMessage));
}

void HeadlessProgressLog::AddMessageItem(const QString& sPrinter, const QString& sMessage)
{
    if (!sMessage.isEmpty())
        WriteHeadlessLine(m_stream, QStringLiteral("%1: %2").arg(sPrinter, sMessage));
}
