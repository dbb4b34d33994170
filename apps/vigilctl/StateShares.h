#pragma once

#include "services/StateChange.h"

#include <QList>
#include <QMap>
#include <array>

// How long each printer, and each group with all its printers, spent in each state over a
// period of the history. A printer counts from the state it was in when the period began,
// or from when it came up; its last state runs on to the period's end.
class StateShares
{
public:
    static constexpr int States = 6;

    struct Row
    {
        QString id;
        QString name;
        QStringList groups;
        std::array<qint64, States> ms{};

        qint64 observedMs() const;
        // Of the time observed, 0 to 1; 0 when nothing was observed.
        double share(int state) const;
    };

    // `changes` as the history file reads them: each printer's last change before the
    // period, then the period's changes, oldest first.
    StateShares(const QList<StateChange>& changes, qint64 fromMs, qint64 toMs);

    const QList<Row>& printers() const { return m_printers; }
    // Every group a printer sits in, by its path; a group's time is its printers' time.
    const QList<Row>& groups() const { return m_groups; }

private:
    QList<Row> m_printers;
    QList<Row> m_groups;
};
