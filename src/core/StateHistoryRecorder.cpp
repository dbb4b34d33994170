#include "core/StateHistoryRecorder.h"

#include "core/Globals.h"
#include "core/NodeStatusFeed.h"
#include "core/PresentTime.h"
#include "core/clsComponent.h"
#include "core/clsComponents.h"
#include "services/ApplicationOptions.h"
#include "services/ErrorBox.h"
#include "services/SettingsAccess.h"
#include "services/StateHistoryFile.h"

namespace {
const QString HistoryDaysValue = QStringLiteral("HistoryDays");
const QString HistoryContext = QStringLiteral("History");

qint32 keepDaysOption()
{
    QVariant days;
    TransferValueEx(HKEY_LOCAL_MACHINE, OptionsKey, TransferRead, REG_DWORD, HistoryDaysValue, days,
                    StateHistoryRecorder::DefaultKeepDays, false);
    return days.toInt() > 0 ? days.toInt() : StateHistoryRecorder::DefaultKeepDays;
}
} // namespace

StateHistoryRecorder::StateHistoryRecorder(const QString& path)
    : m_file(std::make_unique<StateHistoryFile>(path, StateHistoryFile::Mode::Write))
    , m_keepDays(keepDaysOption())
{
    if (!m_file->isOpen()) {
        giveUp();
        return;
    }
    pruneWhenDue(PresentTime());
    NodeStatusFeed::listen([this](clsComponent& node, std::optional<ErrorState> old,
                                  ErrorState state) { noteChange(node, old, state); });
}

StateHistoryRecorder::~StateHistoryRecorder()
{
    if (m_file)
        NodeStatusFeed::listen({});
    flush();
}

void StateHistoryRecorder::noteChange(clsComponent& node, std::optional<ErrorState> old,
                                      ErrorState state)
{
    // The changes a turn of the loop gathers are one moment.
    if (m_pending.isEmpty())
        m_batchAtMs = PresentTime().toMSecsSinceEpoch();
    StateChange change;
    change.atMs = m_batchAtMs;
    change.printerId = node.m_sID;
    change.printer = node.m_sName;
    change.groups = groupsOf(node.m_sID);
    if (old)
        change.oldState = *old;
    change.newState = state;
    change.alert = node.GetHighestAlert();
    m_pending.append(std::move(change));
    if (!m_bFlushQueued) {
        m_bFlushQueued = true;
        QMetaObject::invokeMethod(this, &StateHistoryRecorder::flush, Qt::QueuedConnection);
    }
}

void StateHistoryRecorder::flush()
{
    m_bFlushQueued = false;
    if (!m_file || m_pending.isEmpty())
        return;
    if (!m_file->append(m_pending)) {
        giveUp();
        return;
    }
    m_pending.clear();
    pruneWhenDue(PresentTime());
}

void StateHistoryRecorder::pruneWhenDue(const QDateTime& now)
{
    if (!m_file || (m_nextPrune.isValid() && now < m_nextPrune))
        return;
    if (!m_file->pruneBefore(now.addDays(-m_keepDays).toMSecsSinceEpoch())) {
        giveUp();
        return;
    }
    m_nextPrune = now.addDays(1);
}

const QStringList& StateHistoryRecorder::groupsOf(const QString& printerId)
{
    // A printer met for the first time: the map is made afresh in one walk, which also
    // catches up with printers moved since.
    if (!m_groups.contains(printerId) && g_oComponents) {
        m_groups.clear();
        mapGroups(*g_oComponents, {});
    }
    static const QStringList outsideTheTree;
    const auto found = m_groups.constFind(printerId);
    return found == m_groups.cend() ? outsideTheTree : *found;
}

void StateHistoryRecorder::mapGroups(clsComponents& group, const QStringList& path)
{
    for (const auto& child : group.Col().snapshot()) {
        if (child->isGroup())
            mapGroups(static_cast<clsComponents&>(*child), path + QStringList{child->m_sName});
        else
            m_groups.insert(child->m_sID, path);
    }
}

void StateHistoryRecorder::giveUp()
{
    const QString problem = m_file->problem();
    m_file.reset();
    m_pending.clear();
    NodeStatusFeed::listen({});
    ShowError(problem + QStringLiteral(". The monitor goes on without a history of the "
                                       "printers' states."),
              HistoryContext);
}
