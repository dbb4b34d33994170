#include "PrintCommand.h"

#include "SpoolWait.h"
#include "StoreGate.h"
#include "drivers/PrintJob.h"
#include "drivers/Queue.h"
#include "drivers/Queues.h"
#include "platform/lbx/LbxApplication.h"
#include "services/MessageCatalogue.h"
#include "services/VigilError.h"

#include <QPointer>

namespace {
const QString QueueOption = QStringLiteral("--queue");
const QString SetOption = QStringLiteral("--set");
const QString QuantityOption = QStringLiteral("--quantity");
constexpr qint32 MostCopies = 9999;
// "The format %1 is not made for this printer type."
constexpr qint32 MsgFormatForAnotherType = 34;

template <typename Entry> Entry* findByName(QList<Entry>& entries, const QString& name)
{
    for (Entry& entry : entries)
        if (entry.VarName.trimmed().compare(name, Qt::CaseInsensitive) == 0)
            return &entry;
    return nullptr;
}
} // namespace

PrintCommand::PrintCommand(const Console& console)
    : m_console(console)
{}

QString PrintCommand::usage()
{
    return QStringLiteral(
        "Usage: vigilctl print FILE --queue NAME [--set NAME=VALUE]... [--quantity N]\n"
        "\n"
        "Prints a label format (.FMT) or a label set (.LBS) on the queue NAME, as the desktop\n"
        "program does: the job is written to the print spool, then sent when the printer is\n"
        "free. --set gives a value the label asks for (see vigilctl format show FILE); a value\n"
        "not given keeps the one in the file. --quantity prints N copies (1 to 9999, default 1).\n"
        "A label set sends each of its labels to the queue its identifier names.\n"
        "\n"
        "Exit codes: 0 the printers have taken the labels; 1 no such queue, a missing or faulty\n"
        "file, or a format made for another printer type (nothing is sent); 2 a bad command\n"
        "line, or a value the label doesn't ask for or can't take; 3 the store can't be used,\n"
        "or a printer didn't take its labels in time (they stay in the spool, and go when a\n"
        "program next prints).\n");
}

int PrintCommand::run(const QStringList& words)
{
    const CommandLine line(words, {}, {QueueOption, SetOption, QuantityOption});
    if (line.wantsHelp()) {
        m_console.out << usage();
        return ExitDone;
    }
    const std::optional<QString> queueName = line.value(QueueOption);
    bool isNumber = true;
    const qint32 quantity =
        line.value(QuantityOption).value_or(QStringLiteral("1")).toInt(&isNumber);
    if (!line.unknownFlag().isEmpty() || !line.optionWithoutValue().isEmpty() ||
        line.positional().size() != 1 || !queueName)
        return m_console.fail(QStringLiteral("print: see vigilctl print --help"), ExitBadArguments);
    if (!isNumber || quantity < 1 || quantity > MostCopies)
        return m_console.fail(
            QStringLiteral("print: the quantity must be a number from 1 to %1").arg(MostCopies),
            ExitBadArguments);
    if (const int code = StoreGate::open(StoreGate::Access::Read, m_console))
        return code;

    LbxApplication application;
    Queue* queue = application.Queues().Item(*queueName);
    if (!queue)
        return m_console.fail(QStringLiteral("print: no queue \"%1\"").arg(*queueName),
                              ExitNotFound);
    const QString path = line.positional().first();
    std::shared_ptr<PrintJob> job;
    try {
        job = queue->CreateJob(path, quantity, false);
    } catch (const VigilError& error) {
        return m_console.fail(QStringLiteral("print: ") + error.description(), ExitNotFound);
    }
    // A label set names its printers itself; a format must be made for this one.
    if (job->LabelSetElements().isEmpty() && job->PrinterType() != queue->PrinterNumber()) {
        job->Cancel();
        return m_console.fail(FormatMessage(MsgFormatForAnotherType, {path}), ExitNotFound);
    }
    QString problem;
    if (!setValues(*job, line.values(SetOption), problem)) {
        job->Cancel();
        return m_console.fail(QStringLiteral("print: ") + problem, ExitBadArguments);
    }

    SpoolWait wait(application.Queues());
    // Dropped without Cancel: the job goes to the spool, and from there to the printers.
    job.reset();
    const bool taken = wait.untilSent();
    for (const QString& fault : wait.faults())
        m_console.err << "vigilctl: print: " << fault << Qt::endl;
    if (!taken)
        return m_console.fail(QStringLiteral("print: the printer hasn't taken the labels; they "
                                             "stay in the print spool (vigilctl jobs)"),
                              ExitUnavailable);
    m_console.out << QStringLiteral("printed %1 on %2\n").arg(path, *queueName);
    return ExitDone;
}

bool PrintCommand::setValues(PrintJob& job, const QStringList& assignments, QString& problem) const
{
    for (const QString& assignment : assignments) {
        const auto set = NameAndValue(assignment);
        if (!set) {
            problem = QStringLiteral("--set takes NAME=VALUE, not \"%1\"").arg(assignment);
            return false;
        }
        const auto& [name, value] = *set;
        if (PromptedValue* prompt = findByName(job.PromptedValues(), name)) {
            if (!prompt->NoMaxLength && value.size() > prompt->MaxLength) {
                problem = QStringLiteral("\"%1\" takes at most %2 characters")
                              .arg(name)
                              .arg(prompt->MaxLength);
                return false;
            }
            prompt->Value = value;
        } else if (DatabaseKey* key = findByName(job.DatabaseKeys(), name)) {
            key->Value = value;
        } else {
            problem = QStringLiteral("the label asks for no value \"%1\"").arg(name);
            return false;
        }
    }
    return true;
}
