#include "StateShares.h"

#include "core/HistoryTimeline.h"

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
    // The printers' bands of time over the period, as the history view draws them.
    const HistoryTimeline timeline(changes, HistoryScope{}, fromMs, toMs);
    for (const HistoryTimeline::Row& printer : timeline.rows()) {
        Row row{printer.printerId, printer.printer, printer.groups, {}};
        for (const HistoryTimeline::Band& band : printer.bands)
            if (band.state >= 0 && band.state < States)
                row.ms[band.state] += band.toMs - band.fromMs;
        m_printers.append(row);
    }

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
