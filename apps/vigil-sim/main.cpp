#include "Console.h"
#include "MakeScenarioCommand.h"
#include "ServeCommand.h"
#include "services/LocalTimeZone.h"
#include "sim/SimRegistry.h"

#include <QCommandLineParser>
#include <QCoreApplication>

namespace {
QString usage()
{
    return QStringLiteral(
               "Usage: vigil-sim SCENARIO.json\n"
               "       vigil-sim --make-scenario N KIND [--port P] [--knobs QUERY]\n"
               "\n"
               "Serves simulated printers over TCP, as a scenario file lists them:\n"
               "  {\"printers\": [{\"name\": \"Line 1\", \"kind\": \"echo\", "
               "\"listen\": \"127.0.0.2:9100\",\n"
               "                 \"knobs\": {\"delay\": 20, \"fragment\": 3}}, ...]}\n"
               "\"name\" (default: the listen address) and \"knobs\" may be left out; port 0\n"
               "takes any free port. Each printer served is told on a line such as\n"
               "  serving echo \"Line 1\" at 127.0.0.2:9100\n"
               "SIGINT or SIGTERM stops it.\n"
               "\n"
               "--make-scenario writes to stdout a scenario of N printers of KIND named\n"
               "\"KIND 1\" to \"KIND N\", at 127.0.0.2, 127.0.0.3, ... on port P (default 9100),\n"
               "with the knobs of QUERY (\"delay=20&fragment=3\").\n"
               "\n"
               "Kinds: %1. The knobs of every kind: delay=MS, fragment=BYTES, gap=MS,\n"
               "silent=BOOL, garbage=EVERY_NTH_REPLY, seed=N.\n"
               "Exit codes: 0 done, 1 no printer could be served, 2 a bad command line or\n"
               "scenario file.\n")
        .arg(SimRegistry::kinds().join(QStringLiteral(", ")));
}
} // namespace

int main(int argc, char* argv[])
{
    ReadLocalTimeZoneOnce();
    QCoreApplication application(argc, argv);
    QTextStream out(stdout);
    QTextStream err(stderr);
    const Console console{out, err};

    QCommandLineParser parser;
    const QCommandLineOption help(QStringList{QStringLiteral("h"), QStringLiteral("help")});
    const QCommandLineOption makeScenario(QStringLiteral("make-scenario"));
    const QCommandLineOption port(QStringLiteral("port"), {}, QStringLiteral("P"));
    const QCommandLineOption knobs(QStringLiteral("knobs"), {}, QStringLiteral("QUERY"));
    parser.addOptions({help, makeScenario, port, knobs});
    if (!parser.parse(application.arguments()))
        return console.fail(QStringLiteral("%1 (see vigil-sim --help)").arg(parser.errorText()),
                            ExitBadInput);

    const QStringList positional = parser.positionalArguments();
    if (parser.isSet(help)) {
        out << usage();
        return ExitDone;
    }
    if (parser.isSet(makeScenario)) {
        if (positional.size() != 2)
            return console.fail(QStringLiteral("--make-scenario needs N and KIND"), ExitBadInput);
        return MakeScenarioCommand(console).run(positional.at(0), positional.at(1),
                                                parser.value(port), parser.value(knobs));
    }
    if (parser.isSet(port) || parser.isSet(knobs))
        return console.fail(QStringLiteral("--port and --knobs go with --make-scenario"),
                            ExitBadInput);
    if (positional.isEmpty()) {
        err << usage();
        return ExitBadInput;
    }
    if (positional.size() > 1)
        return console.fail(QStringLiteral("one scenario file at a time"), ExitBadInput);
    return ServeCommand(console).run(positional.first());
}
