#include "core/HistoryTail.h"

#include "services/StateHistoryFile.h"

HistoryTail::HistoryTail(QString path)
    : m_path(std::move(path))
{}

bool HistoryTail::read(qint64 sinceMs, QList<StateChange>& changes)
{
    // Opened at each read: a history that comes up, or is mended, later is found then.
    StateHistoryFile file(m_path, StateHistoryFile::Mode::Read);
    if (file.read(sinceMs, changes)) {
        m_problem.clear();
        return true;
    }
    m_problem = file.problem();
    m_changes.clear();
    return false;
}

bool HistoryTail::readFrom(qint64 sinceMs)
{
    m_sinceMs = sinceMs;
    QList<StateChange> changes;
    if (!read(sinceMs, changes))
        return false;
    m_changes = std::move(changes);
    return true;
}

qsizetype HistoryTail::readNew()
{
    if (!m_problem.isEmpty() || m_changes.isEmpty())
        return readFrom(m_sinceMs) ? m_changes.size() : 0;
    // From the last change's time on: the changes of that very millisecond come again, in
    // the order they were written, and the ones already held are skipped.
    const qint64 lastMs = m_changes.last().atMs;
    qsizetype held = 0;
    for (auto change = m_changes.crbegin(); change != m_changes.crend() && change->atMs == lastMs;
         ++change)
        ++held;
    QList<StateChange> read;
    if (!this->read(lastMs, read))
        return 0;
    qsizetype added = 0;
    for (const StateChange& change : std::as_const(read)) {
        if (change.atMs < lastMs)
            continue;
        if (change.atMs == lastMs && held > 0) {
            --held;
            continue;
        }
        m_changes.append(change);
        ++added;
    }
    return added;
}
