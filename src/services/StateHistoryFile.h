#pragma once

#include "services/StateChange.h"

#include <QHash>
#include <QList>
#include <QString>
#include <optional>

struct sqlite3;
struct sqlite3_stmt;

// The printers' history of states in an SQLite file of its own beside the settings store, so
// that a site's history never slows or locks the store. One writer (the polling program) and
// any number of readers, in WAL mode. Every operation answers false on failure and leaves the
// reason in problem(); a file that failed once stays failed.
class StateHistoryFile
{
public:
    enum class Mode { Write, Read };

    // Opens, and for writing makes, the file; see isOpen().
    StateHistoryFile(const QString& path, Mode mode);
    ~StateHistoryFile();
    Q_DISABLE_COPY_MOVE(StateHistoryFile)

    // The history that belongs to the store at that path.
    static QString pathBeside(const QString& storePath);

    bool isOpen() const { return m_db != nullptr && m_problem.isEmpty(); }
    const QString& problem() const { return m_problem; }

    // All of them in one transaction.
    bool append(const QList<StateChange>& changes);
    // Forgets every change older than that.
    bool pruneBefore(qint64 atMs);
    // The changes from that time on, oldest first, each printer's last change before it
    // first, so that a reader knows the state each printer was in when the period began.
    bool read(qint64 sinceMs, QList<StateChange>& changes);

private:
    // The key of the printer's row, which is added when the printer is new or has been
    // renamed or moved; none on failure.
    std::optional<qint64> printerKey(const StateChange& change);
    // As many changes as the statement has rows for.
    bool insertRows(sqlite3_stmt* insert, const QList<StateChange>& changes);
    void rollBack();
    bool exec(const char* sql);
    // "opened", "read", "written" or "pruned".
    bool fail(const QString& verb);
    bool readRows(sqlite3_stmt* statement, QList<StateChange>& changes);

    QString m_path;
    QString m_problem;
    sqlite3* m_db = nullptr;
    sqlite3_stmt* m_insert = nullptr;
    sqlite3_stmt* m_insertMany = nullptr;
    sqlite3_stmt* m_findPrinter = nullptr;
    sqlite3_stmt* m_insertPrinter = nullptr;
    // The printers' rows written last, by printer id.
    struct PrinterRow
    {
        QString printer;
        QStringList groups;
        qint64 key = 0;
    };
    QHash<QString, PrinterRow> m_printerKeys;
};
