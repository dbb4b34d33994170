#include "StatusCommand.h"

#include "HeadlessMonitor.h"
#include "PollWatch.h"
#include "StatusReport.h"
#include "StoreGate.h"
#include "core/Globals.h"
#include "core/StateCounts.h"
#include "core/clsComponents.h"
#include "services/ApplicationOptions.h"

#include <QJsonDocument>
#include <QLoggingCategory>

namespace {
const QString JsonFlag = QStringLiteral("--json");
const QString TraceFlag = QStringLiteral("--trace");
const QString CyclesOption = QStringLiteral("--cycles");
constexpr int MostCycles = 1000;
// Beyond the cycles themselves: time for the last rounds to end or time out.
constexpr int SettleMarginMs = 15000;
} // namespace

StatusCommand::StatusCommand(const Console& console)
    : m_console(console)
{}

QString StatusCommand::usage()
{
    return QStringLiteral(
        "Usage: vigilctl status [NAME] [--json] [--cycles N] [--trace]\n"
        "\n"
        "Runs the monitor without a window on a copy of the store (the store itself is left\n"
        "as it is): loads the tree, meets the queues, polls N cycles (default 1) at the\n"
        "configured interval and waits until each printer's round has ended or timed out.\n"
        "Then it answers as a monitoring plugin does, with a first line such as\n"
        "  CRITICAL - 3 printers: 1 good, 1 fault, 1 no answer | good=1 warning=0 fault=1 "
        "noanswer=1 busy=0 disabled=0\n"
        "and below it each node: name, state, the text of its tree item and its alert.\n"
        "With NAME, only that group or printer and what is below it.\n"
        "States: 0 no answer, 1 good, 2 warning, 3 fault, 4 port busy, 5 disabled.\n"
        "With --json: one object a node, {\"id\", \"name\", \"group\", \"printerNumber\",\n"
        "\"handler\", \"state\", \"text\", \"alert\", \"children\"}; the node checked also has\n"
        "\"summary\": {\"verdict\", \"printers\", \"good\", \"warning\", \"fault\", "
        "\"noanswer\",\n"
        "\"busy\", \"disabled\"}.\n"
        "\n"
        "Exit codes, as the first line says: 0 OK, every enabled printer is good; 1 WARNING,\n"
        "the worst is a warning; 2 CRITICAL, the worst is a fault, a busy port or no answer;\n"
        "3 UNKNOWN, the check could not run (no store, no such NAME, a bad command line).\n"
        "A disabled printer is counted but makes nothing worse.\n"
        "\n"
        "With --trace, every byte sent to a printer and every fragment received goes to\n"
        "standard error as it passes, one line each: time, queue, > sent or < received, the\n"
        "bytes in hex and as text (the logging rule vigil.wire.debug=true does the same for\n"
        "the window).\n");
}

int StatusCommand::run(const QStringList& words)
{
    const CommandLine line(words, {JsonFlag, TraceFlag}, {CyclesOption});
    if (line.wantsHelp()) {
        m_console.out << usage();
        return ExitDone;
    }
    if (!line.unknownFlag().isEmpty() || line.positional().size() > 1 ||
        !line.optionWithoutValue().isEmpty())
        return unknown(QStringLiteral("status: see vigilctl status --help"));
    bool ok = true;
    const int cycles = line.value(CyclesOption).value_or(QStringLiteral("1")).toInt(&ok);
    if (!ok || cycles < 1 || cycles > MostCycles)
        return unknown(
            QStringLiteral("status: --cycles takes a number from 1 to %1").arg(MostCycles));
    if (line.has(TraceFlag))
        QLoggingCategory::setFilterRules(QStringLiteral("vigil.wire.debug=true"));
    return check(cycles, line.positional().value(0), line.has(JsonFlag));
}

int StatusCommand::unknown(const QString& problem) const
{
    m_console.out << StateCounts::unknownLine(problem) << Qt::endl;
    return StateCounts::Unknown;
}

int StatusCommand::check(int cycles, const QString& name, bool json)
{
    QString problem;
    if (StoreGate::open(StoreGate::Access::Read, problem) != ExitDone)
        return unknown(problem);
    const std::unique_ptr<HeadlessMonitor> monitor = HeadlessMonitor::onCopyOfStore(problem);
    if (!monitor)
        return unknown(problem);
    PollWatch watch(monitor->control().scheduler(), cycles);
    if (!monitor->start())
        return unknown(QStringLiteral("status: the monitor could not start"));
    // Held, so that it outlasts a removal from the tree while the cycles run.
    std::shared_ptr<TreeNode> checked = g_oComponents;
    if (!name.isEmpty()) {
        checked = HeadlessMonitor::named(name, problem);
        if (!checked)
            return unknown(QStringLiteral("status: ") + problem);
    }
    const qint64 deadline = qint64(cycles) * GetPollInterval() + SettleMarginMs;
    if (!watch.waitUntilSettled(int(std::min<qint64>(deadline, INT_MAX))))
        m_console.err << "vigilctl: status: the last rounds did not settle in time" << Qt::endl;

    const StateCounts counts = StateCounts::of(*checked);
    if (json) {
        QJsonObject report = StatusReport::json(*checked);
        report.insert(QStringLiteral("summary"), counts.json());
        m_console.out << QJsonDocument(report).toJson();
    } else {
        m_console.out << counts.pluginLine() << '\n' << StatusReport::text(*checked);
    }
    m_console.out.flush();
    return counts.verdict();
}
