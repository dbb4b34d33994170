#include "CommandLine.h"
#include "FormatCommand.h"
#include "HistoryCommand.h"
#include "JobsCommand.h"
#include "MessageCommand.h"
#include "PrintCommand.h"
#include "QueueCommand.h"
#include "SendCommand.h"
#include "StatusCommand.h"
#include "StoreCommand.h"
#include "services/LocalTimeZone.h"

#include <QCoreApplication>

namespace {
QString usage()
{
    return QStringLiteral(
        "Usage: vigilctl COMMAND [ARG...]\n"
        "\n"
        "The administrator's command line of Korvex Vigil.\n"
        "\n"
        "Commands:\n"
        "  store     read and change the settings store\n"
        "  queue     list, add and remove the printers' queues\n"
        "  jobs      list the print jobs kept in the spool, and cancel one\n"
        "  status    poll the printers without a window and print what they say\n"
        "  message   print a message of the catalogue\n"
        "  format    show what a label format or a label set asks for\n"
        "  print     print a label format or a label set on a queue\n"
        "  send      assign label files in the tree and send them, as the window does\n"
        "  history   the printers' changes of state, and the share of time in each state\n"
        "\n"
        "'vigilctl COMMAND --help' tells more of each.\n"
        "Exit codes: 0 done; 1 the key, value, queue, job or message asked for is missing, or a\n"
        "label file is missing or faulty; 2 a bad command line; 3 the store or a file can't be\n"
        "used, or the history is missing or damaged; 4 a change by someone who is no\n"
        "administrator. vigilctl status answers as a monitoring plugin (see its --help).\n");
}
} // namespace

int main(int argc, char* argv[])
{
    ReadLocalTimeZoneOnce();
    QCoreApplication application(argc, argv);
    QTextStream out(stdout);
    QTextStream err(stderr);
    const Console console{out, err};

    const QStringList args = application.arguments().mid(1);
    const QString command = args.value(0);
    if (command == QLatin1String("store"))
        return StoreCommand(console).run(args.mid(1));
    if (command == QLatin1String("queue"))
        return QueueCommand(console).run(args.mid(1));
    if (command == QLatin1String("jobs"))
        return JobsCommand(console).run(args.mid(1));
    if (command == QLatin1String("status"))
        return StatusCommand(console).run(args.mid(1));
    if (command == QLatin1String("history"))
        return HistoryCommand(console).run(args.mid(1));
    if (command == QLatin1String("message"))
        return MessageCommand(console).run(args.mid(1));
    if (command == QLatin1String("format"))
        return FormatCommand(console).run(args.mid(1));
    if (command == QLatin1String("print"))
        return PrintCommand(console).run(args.mid(1));
    if (command == QLatin1String("send"))
        return SendCommand(console).run(args.mid(1));
    if (command == QLatin1String("--help") || command == QLatin1String("-h") ||
        command == QLatin1String("help")) {
        out << usage();
        return ExitDone;
    }
    if (command.isEmpty()) {
        err << usage();
        return ExitBadArguments;
    }
    return console.fail(QStringLiteral("unknown command \"%1\" (see vigilctl --help)").arg(command),
                        ExitBadArguments);
}
