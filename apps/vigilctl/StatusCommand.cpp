#include "StatusCommand.h"

#include "PollWatch.h"
#include "StatusReport.h"
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
} // namespace

StatusCommand::StatusCommand(const Console& console)
    : m_console(console)
{}

QString StatusCommand::usage()
{
    return QStringLiteral(
        "Usage: vigilctl status [--json] [--cycles N]\n"
        "\n"
        "Runs the monitor without a window on a copy of the store (the store itself is left\n"
        "as it is): loads the tree, meets the queues, polls N cycles (default 1) at the\n"
        "configured interval, waits until each printer's round has ended or timed out, and\n"
        "prints each node: name, state, the text of its tree item and its alert.\n"
        "States: 0 no answer, 1 good, 2 warning, 3 fault, 4 port busy, 5 disabled.\n"
        "With --json: one object a node, {\"id\", \"name\", \"group\", \"printerNumber\",\n"
        "\"handler\", \"state\", \"text\", \"alert\", \"children\"}.\n"
        "\n"
        "Exit codes: 0 every enabled printer is good, 1 the worst is a warning, 2 the worst\n"
        "is a fault, a busy port or no answer, 3 the check itself could not run.\n");
}

int StatusCommand::run(const QStringList& words)
{
    const CommandLine line(words, {JsonFlag}, {CyclesOption});
    if (line.wantsHelp()) {
        m_console.out << usage();
        return ExitDone;
    }
    if (!line.unknownFlag().isEmpty() || !line.positional().isEmpty() ||
        !line.optionWithoutValue().isEmpty())
        return m_console.fail(QStringLiteral("status: see vigilctl status --help"),
                              ExitCode(StatusReport::CheckFailed));
    bool ok = true;
    const int cycles = line.value(CyclesOption).value_or(QStringLiteral("1")).toInt(&ok);
    if (!ok || cycles < 1 || cycles > MostCycles)
        return m_console.fail(
            QStringLiteral("status: --cycles takes a number from 1 to %1").arg(MostCycles),
            ExitCode(StatusReport::CheckFailed));
    return check(cycles, line.has(JsonFlag));
}

int StatusCommand::check(int cycles, bool json)
{
    SettingsStore& live = SettingsStore::process();
    if (!live.isAvailable())
        return m_console.fail(
            QStringLiteral("the store %1 can't be used: %2").arg(live.filePath(), live.problem()),
            ExitCode(StatusReport::CheckFailed));
    // The monitor saves as it goes; its saves go to the copy.
    QTemporaryDir folder;
    QString problem;
    const QString copyPath = folder.filePath(QStringLiteral("store.sqlite"));
    if (!folder.isValid() || !live.backupTo(copyPath, problem))
        return m_console.fail(QStringLiteral("the store could not be copied: %1").arg(problem),
                              ExitCode(StatusReport::CheckFailed));
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
        return m_console.fail(QStringLiteral("status: the monitor could not start"),
                              ExitCode(StatusReport::CheckFailed));
    }
    const qint64 deadline = qint64(cycles) * GetPollInterval() + SettleMarginMs;
    if (!watch.waitUntilSettled(int(std::min<qint64>(deadline, INT_MAX))))
        m_console.err << "vigilctl: status: the last rounds did not settle in time" << Qt::endl;

    if (json)
        m_console.out << QJsonDocument(StatusReport::json(*g_oComponents)).toJson();
    else
        m_console.out << StatusReport::text(*g_oComponents);
    const StatusReport::Verdict verdict = StatusReport::verdict(*g_oComponents);
    control.UserControl_Hide();
    return verdict;
}
