#include "StatusCommand.h"

#include "PollWatch.h"
#include "StateCounts.h"
#include "StatusReport.h"
#include "StoreGate.h"
#include "core/AddInControl.h"
#include "core/Globals.h"
#include "core/MemoryContextMenus.h"
#include "core/MemoryPagePane.h"
#include "core/MemoryTreeView.h"
#include "core/QtTimer.h"
#include "core/clsComponents.h"
#include "platform/lbx/LbxApplication.h"
#include "printing/clsLBXHandler.h"
#include "services/ApplicationOptions.h"
#include "services/EventLoopWait.h"
#include "services/SettingsStore.h"

#include <QJsonDocument>
#include <QTemporaryDir>

namespace {
const QString JsonFlag = QStringLiteral("--json");
const QString CyclesOption = QStringLiteral("--cycles");
constexpr int MostCycles = 1000;
// Beyond the cycles themselves: time for the last rounds to end or time out.
constexpr int SettleMarginMs = 15000;
constexpr int ConnectWaitMs = 3000;

void collectNamed(TreeNode& node, const QString& name, QList<TreeNode*>& found)
{
    if (node.m_sName == name)
        found.append(&node);
    if (node.isGroup())
        for (const auto& child : static_cast<clsComponents&>(node).Col().snapshot())
            collectNamed(*child, name, found);
}
} // namespace

StatusCommand::StatusCommand(const Console& console)
    : m_console(console)
{}

QString StatusCommand::usage()
{
    return QStringLiteral(
        "Usage: vigilctl status [NAME] [--json] [--cycles N]\n"
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
        "A disabled printer is counted but makes nothing worse.\n");
}

int StatusCommand::run(const QStringList& words)
{
    const CommandLine line(words, {JsonFlag}, {CyclesOption});
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
    // The monitor saves as it goes; its saves go to the copy.
    QTemporaryDir folder;
    const QString copyPath = folder.filePath(QStringLiteral("store.sqlite"));
    if (!folder.isValid() || !SettingsStore::process().backupTo(copyPath, problem))
        return unknown(QStringLiteral("the store could not be copied: %1").arg(problem));
    SettingsStore::install(std::make_shared<SettingsStore>(copyPath));
    LoadOptions();
    LibraryStart();
    InstallApplicationFactory(&LbxApplication::attach);
    // The first poll comes within start-up: the printers' wires must be up by then, or its
    // questions would be lost on the way.
    if (auto* queues = qobject_cast<LbxQueues*>(&GetGlobalLBX().LBX_App().Queues()))
        TurnEventLoopUntil([queues] { return queues->wiresSettled(); }, ConnectWaitMs);

    MemoryTreeView treePrinters;
    MemoryPagePane pages;
    MemoryContextMenus menus;
    QtTimer timer1(200, false);
    QtTimer tmrTimeout(0, false);
    AddInControl control(ControlPorts{treePrinters, pages, menus, timer1, tmrTimeout});
    PollWatch watch(control.scheduler(), cycles);
    control.UserControl_Initialize();
    if (!g_oComponents || !timer1.isEnabled()) {
        control.UserControl_Hide();
        return unknown(QStringLiteral("status: the monitor could not start"));
    }
    // Held, so that it outlasts a removal from the tree while the cycles run.
    std::shared_ptr<TreeNode> checked = g_oComponents;
    if (!name.isEmpty()) {
        checked = named(name, problem);
        if (!checked) {
            control.UserControl_Hide();
            return unknown(problem);
        }
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
    control.UserControl_Hide();
    return counts.verdict();
}

std::shared_ptr<TreeNode> StatusCommand::named(const QString& name, QString& problem)
{
    QList<TreeNode*> found;
    collectNamed(*g_oComponents, name, found);
    if (found.size() == 1)
        return found.first()->shared_from_this();
    // The id, never shared, tells apart groups or printers of one name.
    if (TreeNode* byId = g_oComponents->Find(name))
        return byId->shared_from_this();
    problem = found.isEmpty()
                  ? QStringLiteral("status: there is no group or printer named \"%1\"").arg(name)
                  : QStringLiteral("status: %1 groups or printers are named \"%2\"; give the id "
                                   "of one (see --json)")
                        .arg(found.size())
                        .arg(name);
    return nullptr;
}
