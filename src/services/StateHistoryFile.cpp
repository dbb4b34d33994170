#include "services/StateHistoryFile.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <sqlite3.h>

namespace {
// Waiting long for a lock would stall the event loop; a reader holds none in WAL mode.
constexpr int BusyTimeoutMs = 100;
// Group names may hold any visible text; this one never appears in them.
constexpr QChar GroupSeparator = QChar(0x1f);

// A printer's id, name and groups are kept once, and each change refers to them: a change is
// then a few bytes, which is what keeps writing cheap on a site where every printer changes
// at every poll. Changes are appended in time order, so their rowid orders them too.
const char* const CreateTables =
    "CREATE TABLE IF NOT EXISTS printers (key INTEGER PRIMARY KEY, printer_id TEXT NOT NULL, "
    "printer TEXT NOT NULL, groups TEXT NOT NULL, UNIQUE (printer_id, printer, groups));"
    "CREATE TABLE IF NOT EXISTS changes (at INTEGER NOT NULL, printer INTEGER NOT NULL, "
    "old_state INTEGER, new_state INTEGER NOT NULL, alert TEXT NOT NULL);";
constexpr int ColumnsOfAChange = 5;
// Many rows a statement: most of what a row costs SQLite is the statement's own run.
constexpr int RowsAStatement = 50;

QByteArray insertOf(int rows)
{
    QByteArrayList values;
    for (int row = 0; row < rows; ++row)
        values << "(?, ?, ?, ?, ?)";
    return "INSERT INTO changes VALUES " + values.join(", ");
}
const char* const FindPrinter =
    "SELECT key FROM printers WHERE printer_id = ? AND printer = ? AND groups = ?";
const char* const InsertPrinter = "INSERT INTO printers (printer_id, printer, groups) VALUES "
                                  "(?, ?, ?)";
const char* const Selected = "SELECT c.at, p.printer_id, p.printer, p.groups, c.old_state, "
                             "c.new_state, c.alert FROM changes c JOIN printers p ON p.key = "
                             "c.printer ";

QString columnText(sqlite3_stmt* statement, int column)
{
    return QString::fromUtf8(reinterpret_cast<const char*>(sqlite3_column_text(statement, column)),
                             sqlite3_column_bytes(statement, column));
}

void bindText(sqlite3_stmt* statement, int index, const QString& text)
{
    const QByteArray utf8 = text.toUtf8();
    sqlite3_bind_text(statement, index, utf8.constData(), int(utf8.size()), SQLITE_TRANSIENT);
}

// Finalises a statement at the end of the scope.
struct Statement
{
    sqlite3_stmt* handle = nullptr;
    ~Statement() { sqlite3_finalize(handle); }
};
} // namespace

StateHistoryFile::StateHistoryFile(const QString& path, Mode mode)
    : m_path(path)
{
    if (mode == Mode::Read && !QFileInfo::exists(path)) {
        m_problem = QStringLiteral("there is no history at %1").arg(path);
        return;
    }
    const int flags =
        mode == Mode::Write ? SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE : SQLITE_OPEN_READONLY;
    if (sqlite3_open_v2(QFile::encodeName(path).constData(), &m_db, flags, nullptr) != SQLITE_OK) {
        fail(QStringLiteral("opened"));
        return;
    }
    sqlite3_busy_timeout(m_db, BusyTimeoutMs);
    if (mode == Mode::Write) {
        // A change lost to a power cut is acceptable; a sync at every poll walk is not.
        if (exec("PRAGMA journal_mode=WAL") && exec("PRAGMA synchronous=NORMAL") &&
            exec(CreateTables) &&
            (sqlite3_prepare_v2(m_db, insertOf(1).constData(), -1, &m_insert, nullptr) !=
                 SQLITE_OK ||
             sqlite3_prepare_v2(m_db, insertOf(RowsAStatement).constData(), -1, &m_insertMany,
                                nullptr) != SQLITE_OK ||
             sqlite3_prepare_v2(m_db, FindPrinter, -1, &m_findPrinter, nullptr) != SQLITE_OK ||
             sqlite3_prepare_v2(m_db, InsertPrinter, -1, &m_insertPrinter, nullptr) != SQLITE_OK))
            fail(QStringLiteral("written"));
        return;
    }
    // A file that isn't a history shows here rather than at the first read.
    Statement probe;
    if (sqlite3_prepare_v2(m_db, (QByteArray(Selected) + "LIMIT 0").constData(), -1, &probe.handle,
                           nullptr) != SQLITE_OK)
        fail(QStringLiteral("read"));
}

StateHistoryFile::~StateHistoryFile()
{
    sqlite3_finalize(m_insert);
    sqlite3_finalize(m_insertMany);
    sqlite3_finalize(m_findPrinter);
    sqlite3_finalize(m_insertPrinter);
    sqlite3_close(m_db);
}

QString StateHistoryFile::pathBeside(const QString& storePath)
{
    return QFileInfo(storePath).dir().filePath(QStringLiteral("history.sqlite"));
}

bool StateHistoryFile::append(const QList<StateChange>& changes)
{
    if (!isOpen() || !m_insert)
        return false;
    if (!exec("BEGIN IMMEDIATE"))
        return false;
    for (qsizetype first = 0; first < changes.size();) {
        const bool many = changes.size() - first >= RowsAStatement;
        const qsizetype rows = many ? RowsAStatement : 1;
        if (!insertRows(many ? m_insertMany : m_insert, changes.mid(first, rows))) {
            fail(QStringLiteral("written"));
            rollBack();
            return false;
        }
        first += rows;
    }
    if (exec("COMMIT"))
        return true;
    rollBack();
    return false;
}

bool StateHistoryFile::insertRows(sqlite3_stmt* insert, const QList<StateChange>& changes)
{
    sqlite3_reset(insert);
    int column = 0;
    for (const StateChange& change : changes) {
        const std::optional<qint64> printer = printerKey(change);
        if (!printer)
            return false;
        sqlite3_bind_int64(insert, ++column, change.atMs);
        sqlite3_bind_int64(insert, ++column, *printer);
        if (change.oldState)
            sqlite3_bind_int(insert, ++column, *change.oldState);
        else
            sqlite3_bind_null(insert, ++column);
        sqlite3_bind_int(insert, ++column, change.newState);
        bindText(insert, ++column, change.alert);
    }
    return column == ColumnsOfAChange * changes.size() && sqlite3_step(insert) == SQLITE_DONE;
}

std::optional<qint64> StateHistoryFile::printerKey(const StateChange& change)
{
    if (const auto known = m_printerKeys.constFind(change.printerId);
        known != m_printerKeys.cend() && known->printer == change.printer &&
        known->groups == change.groups)
        return known->key;
    const QString groups = change.groups.join(GroupSeparator);
    for (sqlite3_stmt* statement : {m_findPrinter, m_insertPrinter}) {
        sqlite3_reset(statement);
        bindText(statement, 1, change.printerId);
        bindText(statement, 2, change.printer);
        bindText(statement, 3, groups);
    }
    qint64 key = 0;
    if (sqlite3_step(m_findPrinter) == SQLITE_ROW)
        key = sqlite3_column_int64(m_findPrinter, 0);
    else if (sqlite3_step(m_insertPrinter) == SQLITE_DONE)
        key = sqlite3_last_insert_rowid(m_db);
    else
        return std::nullopt;
    m_printerKeys.insert(change.printerId, PrinterRow{change.printer, change.groups, key});
    return key;
}

void StateHistoryFile::rollBack()
{
    sqlite3_exec(m_db, "ROLLBACK", nullptr, nullptr, nullptr);
    // Keys of printers written in the transaction are gone with it.
    m_printerKeys.clear();
}

bool StateHistoryFile::pruneBefore(qint64 atMs)
{
    if (!isOpen())
        return false;
    Statement prune;
    if (sqlite3_prepare_v2(m_db, "DELETE FROM changes WHERE at < ?", -1, &prune.handle, nullptr) !=
        SQLITE_OK)
        return fail(QStringLiteral("pruned"));
    sqlite3_bind_int64(prune.handle, 1, atMs);
    if (sqlite3_step(prune.handle) != SQLITE_DONE)
        return fail(QStringLiteral("pruned"));
    m_printerKeys.clear();
    return sqlite3_exec(m_db, "DELETE FROM printers WHERE key NOT IN (SELECT printer FROM changes)",
                        nullptr, nullptr, nullptr) == SQLITE_OK ||
           fail(QStringLiteral("pruned"));
}

bool StateHistoryFile::read(qint64 sinceMs, QList<StateChange>& changes)
{
    if (!isOpen())
        return false;
    const QByteArray before =
        QByteArray(Selected) +
        "WHERE c.rowid IN (SELECT MAX(c.rowid) FROM changes c JOIN printers p ON p.key = "
        "c.printer WHERE c.at < ?1 GROUP BY p.printer_id) ORDER BY c.at, c.rowid";
    const QByteArray since = QByteArray(Selected) + "WHERE c.at >= ?1 ORDER BY c.at, c.rowid";
    for (const QByteArray& sql : {before, since}) {
        Statement statement;
        if (sqlite3_prepare_v2(m_db, sql.constData(), -1, &statement.handle, nullptr) != SQLITE_OK)
            return fail(QStringLiteral("read"));
        sqlite3_bind_int64(statement.handle, 1, sinceMs);
        if (!readRows(statement.handle, changes))
            return false;
    }
    return true;
}

bool StateHistoryFile::readRows(sqlite3_stmt* statement, QList<StateChange>& changes)
{
    int step = SQLITE_ROW;
    while ((step = sqlite3_step(statement)) == SQLITE_ROW) {
        StateChange change;
        change.atMs = sqlite3_column_int64(statement, 0);
        change.printerId = columnText(statement, 1);
        change.printer = columnText(statement, 2);
        const QString groups = columnText(statement, 3);
        if (!groups.isEmpty())
            change.groups = groups.split(GroupSeparator);
        if (sqlite3_column_type(statement, 4) != SQLITE_NULL)
            change.oldState = sqlite3_column_int(statement, 4);
        change.newState = sqlite3_column_int(statement, 5);
        change.alert = columnText(statement, 6);
        changes.append(change);
    }
    return step == SQLITE_DONE || fail(QStringLiteral("read"));
}

bool StateHistoryFile::exec(const char* sql)
{
    return sqlite3_exec(m_db, sql, nullptr, nullptr, nullptr) == SQLITE_OK ||
           fail(QStringLiteral("written"));
}

bool StateHistoryFile::fail(const QString& verb)
{
    if (m_problem.isEmpty())
        m_problem = QStringLiteral("the history %1 can't be %2: %3")
                        .arg(m_path, verb,
                             m_db ? QString::fromUtf8(sqlite3_errmsg(m_db))
                                  : QStringLiteral("out of memory"));
    return false;
}
