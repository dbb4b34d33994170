#pragma once

#include "services/StateChange.h"

#include <QList>
#include <QString>

// The history from a time on, kept up to date by reading only what was written since the
// last read. A missing or damaged file leaves the changes empty and the reason in problem().
class HistoryTail
{
public:
    explicit HistoryTail(QString path);

    // Reads afresh from that time on, with each printer's last change before it.
    bool readFrom(qint64 sinceMs);
    // Appends what was written since the last read; answers how many changes are new.
    qsizetype readNew();

    const QList<StateChange>& changes() const { return m_changes; }
    const QString& problem() const { return m_problem; }

private:
    bool read(qint64 sinceMs, QList<StateChange>& changes);

    QString m_path;
    QString m_problem;
    QList<StateChange> m_changes;
    qint64 m_sinceMs = 0;
};
