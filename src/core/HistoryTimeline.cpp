#include "core/HistoryTimeline.h"

#include "core/Globals.h"
#include "core/clsComponents.h"

#include <QHash>
#include <algorithm>
#include <optional>

namespace {
// The scope of the node with that id at or below the group whose path that is.
std::optional<HistoryScope> scopeBelow(clsComponents& group, const QStringList& path,
                                       const QString& nodeId)
{
    for (const auto& child : group.Col().snapshot()) {
        if (!child->isGroup()) {
            if (child->m_sID == nodeId)
                return HistoryScope{nodeId, {}};
            continue;
        }
        const QStringList childPath = path + QStringList{child->m_sName};
        if (child->m_sID == nodeId)
            return HistoryScope{{}, childPath};
        if (auto found = scopeBelow(static_cast<clsComponents&>(*child), childPath, nodeId))
            return found;
    }
    return std::nullopt;
}
} // namespace

bool HistoryScope::covers(const StateChange& change) const
{
    if (!printerId.isEmpty())
        return change.printerId == printerId;
    return change.groups.mid(0, groupPath.size()) == groupPath;
}

HistoryScope HistoryScope::ofNode(const QString& nodeId)
{
    if (!g_oComponents || g_oComponents->m_sID == nodeId)
        return {};
    return scopeBelow(*g_oComponents, {}, nodeId).value_or(HistoryScope{});
}

HistoryTimeline::HistoryTimeline(const QList<StateChange>& changes, const HistoryScope& scope,
                                 qint64 fromMs, qint64 toMs)
{
    QHash<QString, qsizetype> rowOf;
    for (const StateChange& change : changes) {
        if (!scope.covers(change) || change.atMs >= toMs)
            continue;
        auto found = rowOf.constFind(change.printerId);
        if (found == rowOf.cend()) {
            found = rowOf.insert(change.printerId, m_rows.size());
            m_rows.append(Row{change.printerId, change.printer, change.groups, {}});
        }
        Row& row = m_rows[*found];
        // The latest name and place are the ones the tree shows.
        row.printer = change.printer;
        row.groups = change.groups;
        const qint64 atMs = std::max(change.atMs, fromMs);
        if (!row.bands.isEmpty()) {
            if (row.bands.last().state == change.newState)
                continue;
            row.bands.last().toMs = atMs;
            // A band the period's start cut down to nothing.
            if (row.bands.last().fromMs == atMs)
                row.bands.removeLast();
        }
        row.bands.append(Band{atMs, toMs, change.newState});
    }
    std::sort(m_rows.begin(), m_rows.end(), [](const Row& left, const Row& right) {
        return std::tie(left.groups, left.printer) < std::tie(right.groups, right.printer);
    });
}
