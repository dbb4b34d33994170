#include "HeadlessMonitor.h"

#include "core/Globals.h"
#include "core/clsComponents.h"
#include "platform/lbx/LbxApplication.h"
#include "platform/lbx/LbxQueues.h"
#include "printing/clsLBXHandler.h"
#include "services/ApplicationOptions.h"
#include "services/EventLoopWait.h"
#include "services/SettingsStore.h"
#include "services/StateHistoryFile.h"

namespace {
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

HeadlessMonitor::HeadlessMonitor()
    : m_control(ControlPorts{m_treePrinters, m_pages, m_menus, m_timer1, m_tmrTimeout})
{}

HeadlessMonitor::~HeadlessMonitor()
{
    m_control.UserControl_Hide();
}

std::unique_ptr<HeadlessMonitor> HeadlessMonitor::onCopyOfStore(QString& problem)
{
    std::unique_ptr<HeadlessMonitor> monitor(new HeadlessMonitor);
    const QString copyPath = monitor->m_folder.filePath(QStringLiteral("store.sqlite"));
    const QString historyPath = StateHistoryFile::pathBeside(SettingsStore::process().filePath());
    if (!monitor->m_folder.isValid() || !SettingsStore::process().backupTo(copyPath, problem)) {
        problem = QStringLiteral("the store could not be copied: %1").arg(problem);
        return nullptr;
    }
    SettingsStore::install(std::make_shared<SettingsStore>(copyPath));
    LoadOptions();
    LibraryStart();
    monitor->m_history = std::make_unique<StateHistoryRecorder>(historyPath);
    InstallApplicationFactory(&LbxApplication::attach);
    // The first poll comes within start-up: the printers' wires must be up by then, or its
    // questions would be lost on the way.
    if (auto* queues = qobject_cast<LbxQueues*>(&GetGlobalLBX().LBX_App().Queues()))
        TurnEventLoopUntil([queues] { return queues->wiresSettled(); }, ConnectWaitMs);
    return monitor;
}

bool HeadlessMonitor::start()
{
    m_control.UserControl_Initialize();
    return g_oComponents && m_timer1.isEnabled();
}

std::shared_ptr<TreeNode> HeadlessMonitor::named(const QString& name, QString& problem)
{
    if (!g_oComponents) {
        problem = QStringLiteral("the monitor has no tree");
        return nullptr;
    }
    QList<TreeNode*> found;
    collectNamed(*g_oComponents, name, found);
    if (found.size() == 1)
        return found.first()->shared_from_this();
    // The id, never shared, tells apart groups or printers of one name.
    if (TreeNode* byId = g_oComponents->Find(name))
        return byId->shared_from_this();
    problem = found.isEmpty()
                  ? QStringLiteral("there is no group or printer named \"%1\"").arg(name)
                  : QStringLiteral("%1 groups or printers are named \"%2\"; give the id of "
                                   "one (see vigilctl status --json)")
                        .arg(found.size())
                        .arg(name);
    return nullptr;
}
