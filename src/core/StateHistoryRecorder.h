#pragma once

#include "core/ErrorState.h"
#include "services/StateChange.h"

#include <QDateTime>
#include <QHash>
#include <QObject>
#include <memory>

class StateHistoryFile;
class clsComponent;
class clsComponents;

// Writes each printer's changes of state, and the state it came up in, to the history file
// while the program polls. Changes are gathered as the nodes report them and written in one
// transaction per turn of the event loop. A file that can't be used is named once, and the
// monitor goes on without a history.
class StateHistoryRecorder : public QObject
{
    Q_OBJECT

public:
    static constexpr qint32 DefaultKeepDays = 90;

    // Opens the history at that path and forgets what is older than the days kept.
    explicit StateHistoryRecorder(const QString& path);
    ~StateHistoryRecorder() override;

    // Whether changes are still being written.
    bool isRecording() const { return m_file != nullptr; }
    // What is gathered goes to the file now, without waiting for the loop.
    void flush();

private:
    void noteChange(clsComponent& node, std::optional<ErrorState> old, ErrorState state);
    void pruneWhenDue(const QDateTime& now);
    const QStringList& groupsOf(const QString& printerId);
    void mapGroups(clsComponents& group, const QStringList& path);
    void giveUp();

    std::unique_ptr<StateHistoryFile> m_file;
    qint32 m_keepDays = DefaultKeepDays;
    QDateTime m_nextPrune;
    QHash<QString, QStringList> m_groups;
    QList<StateChange> m_pending;
    qint64 m_batchAtMs = 0;
    bool m_bFlushQueued = false;
};
