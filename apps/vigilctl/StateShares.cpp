#include "StateShares.h"

#include <QHash>

namespace {
struct Span
{
    qint32 state = 0;
    qint64 sinceMs = 0;
};

void addTime(StateShares::Row& row, const Span& span, qint64 untilMs)
{
    if (span.state >= 0 && span.state < StateShares::States && untilMs > span.sinceMs)
        row.ms[span.state] += untilMs - span.sinceMs;
}
} // namespace

qint64 StateShares::Row::observedMs() const
{
    qint64 total = 0;
    for (const qint64 part : ms)
        total += part;
    return total;
}

double StateShares::Row::share(int state) const
{
    const qint64 total = observedMs();
    return total > 0 ? double(ms[state]) / double(total) : 0.0;
}

StateShares::StateShares(const QList<StateChange>& changes, qint64 fromMs, qint64 toMs)
{
    QHash<QString, qsizetype> rowOf;
    QHash<QString, Span> current;
    for (const StateChange& change : changes) {
        auto found = rowOf.constFind(change.printerId);
        if (found == rowOf.cend()) {
            found = rowOf.insert(change.printerId, m_printers.size());
            m_printers.append(Row{change.printerId, change.printer, change.groups, {}});
        }
        Row& row = m_printers[*found];
        // The newest name and groups stand for the printer.
        row.name = change.printer;
        row.groups = change.groups;
        const qint64 atMs = std::max(change.atMs, fromMs);
        if (const auto open = current.constFind(change.printerId); open != current.cend())
            addTime(row, *open, atMs);
        current.insert(change.printerId, Span{change.newState, atMs});
    }
    for (auto open = current.cbegin(); open != current.cend(); ++open)
        addTime(m_printers[rowOf.value(open.key())], *open, toMs);

    QMap<QStringList, Row> groups;
    for (const Row& printer : std::as_const(m_printers)) {
        for (qsizetype depth = 1; depth <= printer.groups.size(); ++depth) {
            const QStringList path = printer.groups.mid(0, depth);
            Row& group = groups[path];
            group.id = path.join(QLatin1Char('/'));
            group.name = path.last();
            group.groups = path.mid(0, depth - 1);
            for (int state = 0; state < States; ++state)
                group.ms[state] += printer.ms[state];
        }
    }
    m_groups = groups.values();
}
