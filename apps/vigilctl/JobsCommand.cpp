#include "JobsCommand.h"

#include "StoreGate.h"
#include "platform/lbx/PrintSpool.h"
#include "services/SettingsStore.h"

#include <QFileInfo>
#include <memory>

namespace {
// The spool of the store vigilctl uses; none, and nothing made, when no program has printed.
// ExitDone, or the code with the reason written.
int openSpool(const Console& console, std::unique_ptr<PrintSpool>& spool)
{
    if (const int code = StoreGate::open(StoreGate::Access::Read, console))
        return code;
    const QString path = PrintSpool::defaultFilePath();
    if (!QFileInfo::exists(path))
        return ExitDone;
    spool = std::make_unique<PrintSpool>(path);
    if (!spool->problem().isEmpty())
        return console.fail(
            QStringLiteral("the print spool %1 can't be used: %2").arg(path, spool->problem()),
            ExitUnavailable);
    return ExitDone;
}

QString stateOf(const PrintSpool::Job& job)
{
    if (job.state() == PrintSpool::Job::State::Waiting)
        return QStringLiteral("waiting");
    return QStringLiteral("sending (%1 of %2 sent)").arg(job.sent).arg(job.quantity);
}
} // namespace

JobsCommand::JobsCommand(const Console& console)
    : m_console(console)
{}

QString JobsCommand::usage()
{
    return QStringLiteral(
        "Usage: vigilctl jobs\n"
        "       vigilctl jobs cancel ID\n"
        "\n"
        "  (none)   prints each print job kept in the spool, not yet sent whole: its id, queue,\n"
        "           format, state and the time it was released\n"
        "  cancel   drops a kept job; what a running program has sent of it stays sent\n"
        "\n"
        "Exit codes: 0 done; 1 no job of that id; 2 a bad command line; 3 the store or the\n"
        "spool can't be used.\n");
}

int JobsCommand::run(const QStringList& words)
{
    const CommandLine line(words, {});
    if (line.wantsHelp()) {
        m_console.out << usage();
        return ExitDone;
    }
    if (!line.unknownFlag().isEmpty())
        return m_console.fail(QStringLiteral("jobs: unknown option %1").arg(line.unknownFlag()),
                              ExitBadArguments);
    const QStringList& arguments = line.positional();
    if (arguments.isEmpty())
        return list();
    if (arguments.size() == 2 && arguments.first() == QLatin1String("cancel"))
        return cancel(arguments.at(1));
    return m_console.fail(
        QStringLiteral("jobs: say jobs, or jobs cancel ID (see vigilctl jobs --help)"),
        ExitBadArguments);
}

int JobsCommand::list()
{
    std::unique_ptr<PrintSpool> spool;
    if (const int code = openSpool(m_console, spool))
        return code;
    const QList<PrintSpool::Job> jobs = spool ? spool->list() : QList<PrintSpool::Job>();
    QList<QStringList> rows{{QStringLiteral("ID"), QStringLiteral("QUEUE"),
                             QStringLiteral("FORMAT"), QStringLiteral("STATE"),
                             QStringLiteral("RELEASED")}};
    for (const PrintSpool::Job& job : jobs)
        rows.append({QString::number(job.id), SettingsStore::visibleName(job.queue), job.format,
                     stateOf(job), job.released.toString(QStringLiteral("yyyy-MM-dd HH:mm:ss"))});
    QList<qsizetype> widths(rows.first().size(), 0);
    for (const QStringList& row : std::as_const(rows))
        for (qsizetype column = 0; column < row.size(); ++column)
            widths[column] = std::max(widths.at(column), row.at(column).size() + 2);
    for (const QStringList& row : std::as_const(rows)) {
        QString text;
        for (qsizetype column = 0; column + 1 < row.size(); ++column)
            text += row.at(column).leftJustified(widths.at(column));
        m_console.out << text + row.last() << Qt::endl;
    }
    return ExitDone;
}

int JobsCommand::cancel(const QString& id)
{
    bool ok = false;
    const qint64 number = id.toLongLong(&ok);
    if (!ok)
        return m_console.fail(QStringLiteral("jobs cancel: \"%1\" is no job id").arg(id),
                              ExitBadArguments);
    std::unique_ptr<PrintSpool> spool;
    if (const int code = openSpool(m_console, spool))
        return code;
    if (!spool || !spool->cancel(number))
        return m_console.fail(QStringLiteral("jobs cancel: there is no job %1").arg(number),
                              ExitNotFound);
    return ExitDone;
}
