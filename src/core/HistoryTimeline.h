#pragma once

#include "services/StateChange.h"

#include <QList>
#include <QStringList>

// The printers a history view covers: one printer, or the printers at or below a group.
struct HistoryScope
{
    // One printer's id; empty for a group.
    QString printerId;
    // The group's names below the site's root, outermost first; empty for the whole site.
    QStringList groupPath;

    bool covers(const StateChange& change) const;
    // The scope of the tree's node with that id; the whole site for an id the tree lacks.
    static HistoryScope ofNode(const QString& nodeId);
};

// Each printer's states over a period as bands of time, one row a printer, ordered by its
// groups and name. A printer starts in the state it was in when the period began, or when it
// came up; its last state runs on to the period's end.
class HistoryTimeline
{
public:
    struct Band
    {
        qint64 fromMs = 0;
        qint64 toMs = 0;
        qint32 state = 0;
    };
    struct Row
    {
        QString printerId;
        QString printer;
        QStringList groups;
        QList<Band> bands;
    };

    // `changes` as the history file reads them, oldest first; only those in the scope count.
    HistoryTimeline(const QList<StateChange>& changes, const HistoryScope& scope, qint64 fromMs,
                    qint64 toMs);

    const QList<Row>& rows() const { return m_rows; }

private:
    QList<Row> m_rows;
};
