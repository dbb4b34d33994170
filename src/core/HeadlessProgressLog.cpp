#include "core/HeadlessProgressLog.h"

namespace {
QString oneLine(QString text)
{
    return text.replace(QLatin1Char('\r'), QLatin1Char(' '))
        .replace(QLatin1Char('\n'), QLatin1Char(' '));
}

} // namespace

HeadlessProgressLog::HeadlessProgressLog(FILE* stream)
    : m_stream(stream)
{}

void HeadlessProgressLog::AddStatusItem(const QString& sPrinter, const QString& sMessage,
                                        qint32 eStatus)
{
    // Status 0 leaves the row as it is.
    if (eStatus != 0)
        write(QStringLiteral("%1: %2 (status %3)").arg(sPrinter, oneLine(sMessage)).arg(eStatus));
}

void HeadlessProgressLog::AddErrorItem(const QString& sPrinter, const QString& sMessage,
                                       qint32 lCode)
{
    write(QStringLiteral("%1: error %2: %3").arg(sPrinter).arg(lCode).arg(oneLine(sMessage)));
}

void HeadlessProgressLog::AddMessageItem(const QString& sPrinter, const QString& sMessage)
{
    if (!sMessage.isEmpty())
        write(QStringLiteral("%1: %2").arg(sPrinter, oneLine(sMessage)));
}

void HeadlessProgressLog::write(const QString& line)
{
    std::fputs(line.toLocal8Bit().constData(), m_stream);
    std::fputc('\n', m_stream);
    std::fflush(m_stream);
}
