#include "platform/lbx/PrintSpool.h"

#include "services/SettingsStore.h"

#include <QDebug>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSet>
#include <cerrno>
#include <csignal>
#include <sqlite3.h>
#include <unistd.h>

namespace {
// "KVS1" in the database header tells a spool from other SQLite files.
constexpr int ApplicationId = 0x4B565331;
// Short: a program waiting on another's lock keeps its window still meanwhile.
constexpr int BusyTimeoutMs = 2000;

const char* const SchemaSql = R"(
CREATE TABLE IF NOT EXISTS spool_jobs(
    id       INTEGER PRIMARY KEY AUTOINCREMENT,
    queue    TEXT NOT NULL,
    format   TEXT NOT NULL,
    data     BLOB NOT NULL,
    quantity INTEGER NOT NULL,
    sent     INTEGER NOT NULL DEFAULT 0,
    owner    INTEGER NOT NULL,
    released TEXT NOT NULL);
)";

std::shared_ptr<PrintSpool>& processSpool()
{
    static std::shared_ptr<PrintSpool> spool;
    return spool;
}

qint64 thisProcess()
{
    return qint64(::getpid());
}

// A job whose program has ended is anybody's; this process's own are its own again.
bool heldByOther(qint64 owner)
{
    if (owner == 0 || owner == thisProcess())
        return false;
    return ::kill(pid_t(owner), 0) == 0 || errno != ESRCH;
}

// One prepared statement, finalised when it goes.
class Statement
{
public:
    Statement(sqlite3* db, const char* sql)
    {
        if (db)
            sqlite3_prepare_v2(db, sql, -1, &m_stmt, nullptr);
    }
    ~Statement() { sqlite3_finalize(m_stmt); }
    Statement(const Statement&) = delete;
    Statement& operator=(const Statement&) = delete;

    bool isValid() const { return m_stmt != nullptr; }
    Statement& bind(int index, qint64 value)
    {
        sqlite3_bind_int64(m_stmt, index, value);
        return *this;
    }
    Statement& bind(int index, const QByteArray& bytes)
    {
        sqlite3_bind_blob(m_stmt, index, bytes.constData(), int(bytes.size()), SQLITE_TRANSIENT);
        return *this;
    }
    Statement& bind(int index, const QString& text)
    {
        const QByteArray utf8 = text.toUtf8();
        sqlite3_bind_text(m_stmt, index, utf8.constData(), int(utf8.size()), SQLITE_TRANSIENT);
        return *this;
    }
    // SQLITE_ROW, SQLITE_DONE or the failure.
    int step() { return m_stmt ? sqlite3_step(m_stmt) : SQLITE_ERROR; }
    qint64 integer(int column) const { return sqlite3_column_int64(m_stmt, column); }
    QString text(int column) const
    {
        return QString::fromUtf8(reinterpret_cast<const char*>(sqlite3_column_text(m_stmt, column)),
                                 sqlite3_column_bytes(m_stmt, column));
    }
    QByteArray blob(int column) const
    {
        return QByteArray(static_cast<const char*>(sqlite3_column_blob(m_stmt, column)),
                          sqlite3_column_bytes(m_stmt, column));
    }

private:
    sqlite3_stmt* m_stmt = nullptr;
};
} // namespace

PrintSpool::PrintSpool(QString filePath, QObject* parent)
    : QObject(parent)
    , m_filePath(std::move(filePath))
{
    open();
    connect(&m_watch, &QTimer::timeout, this, &PrintSpool::watch);
}

PrintSpool::~PrintSpool()
{
    if (m_db)
        sqlite3_close(m_db);
}

QString PrintSpool::defaultFilePath()
{
    return QFileInfo(SettingsStore::process().filePath()).absolutePath() +
           QStringLiteral("/spool.sqlite");
}

std::shared_ptr<PrintSpool> PrintSpool::process()
{
    auto& spool = processSpool();
    if (!spool) {
        spool = std::make_shared<PrintSpool>(defaultFilePath());
        if (!spool->problem().isEmpty())
            qWarning().noquote() << QStringLiteral("The print spool %1 cannot be used: %2. Jobs "
                                                   "are kept in memory until the program ends.")
                                        .arg(spool->filePath(), spool->problem());
    }
    return spool;
}

void PrintSpool::install(std::shared_ptr<PrintSpool> spool)
{
    processSpool() = std::move(spool);
}

void PrintSpool::open()
{
    const QFileInfo file(m_filePath);
    const auto give_up = [this](const QString& problem) {
        m_problem = problem;
        sqlite3_close(m_db);
        m_db = nullptr;
    };
    if (!QDir().mkpath(file.absolutePath()))
        return give_up(QStringLiteral("its folder %1 cannot be made").arg(file.absolutePath()));
    if (sqlite3_open_v2(QFile::encodeName(m_filePath).constData(), &m_db,
                        SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE, nullptr) != SQLITE_OK)
        return give_up(lastError());
    sqlite3_busy_timeout(m_db, BusyTimeoutMs);

    if (const QString foreign = foreignFile(); !foreign.isEmpty())
        return give_up(foreign);
    const QByteArray setUp = QByteArray("PRAGMA journal_mode=WAL; BEGIN IMMEDIATE;") + SchemaSql +
                             "PRAGMA application_id=" + QByteArray::number(ApplicationId) +
                             "; COMMIT;";
    if (!exec(setUp.constData())) {
        const QString why = lastError();
        exec("ROLLBACK");
        return give_up(QStringLiteral("the spool cannot be set up (%1)").arg(why));
    }
}

// Read before anything is written, so that a foreign or damaged file stays as it is.
QString PrintSpool::foreignFile()
{
    Statement header(m_db, "PRAGMA application_id");
    if (header.step() != SQLITE_ROW)
        return QStringLiteral("the file cannot be read (%1)").arg(lastError());
    if (header.integer(0) == ApplicationId)
        return {};
    Statement tables(m_db, "SELECT count(*) FROM sqlite_master");
    if (tables.step() != SQLITE_ROW || tables.integer(0) != 0)
        return QStringLiteral("the file is not a print spool");
    return {};
}

bool PrintSpool::exec(const char* sql)
{
    return m_db && sqlite3_exec(m_db, sql, nullptr, nullptr, nullptr) == SQLITE_OK;
}

QString PrintSpool::lastError() const
{
    return m_db ? QString::fromUtf8(sqlite3_errmsg(m_db)) : QStringLiteral("out of memory");
}

void PrintSpool::fail(const QString& queue, const QString& what)
{
    tell(queue, QStringLiteral("The print spool %1 %2 (%3); the job is kept in memory until the "
                               "program ends.")
                    .arg(m_filePath, what, m_db ? lastError() : m_problem));
}

void PrintSpool::tell(const QString& queue, const QString& text)
{
    if (std::exchange(m_lastTrouble, text) != text)
        emit trouble(queue, text);
}

void PrintSpool::takeOver()
{
    watch();
    m_watch.start(WatchIntervalMs);
}

void PrintSpool::watch()
{
    Statement version(m_db, "PRAGMA data_version");
    if (version.step() != SQLITE_ROW || version.integer(0) == m_dataVersion)
        return;
    m_dataVersion = version.integer(0);
    bool ok = false;
    const QList<Row> rows = readFile(ok);
    if (!ok)
        return;
    QSet<qint64> inFile;
    for (const Row& row : rows)
        inFile.insert(row.job.id);
    // Cancelled by someone else.
    m_jobs.removeIf(
        [&inFile](const Held& held) { return held.bStored && !inFile.contains(held.job.id); });
    for (const Row& row : rows) {
        if (find(row.job.id) || heldByOther(row.owner) || !claim(row.job.id))
            continue;
        m_jobs.append({row.job, true});
        emit added(row.job);
    }
}

bool PrintSpool::claim(qint64 id)
{
    Statement update(m_db, "UPDATE spool_jobs SET owner = ?1 WHERE id = ?2");
    return update.bind(1, thisProcess()).bind(2, id).step() == SQLITE_DONE &&
           sqlite3_changes(m_db) == 1;
}

QList<PrintSpool::Row> PrintSpool::readFile(bool& ok)
{
    QList<Row> rows;
    Statement select(m_db, "SELECT id, queue, format, data, quantity, sent, released, owner "
                           "FROM spool_jobs ORDER BY id");
    int status = select.step();
    for (; status == SQLITE_ROW; status = select.step()) {
        Row row;
        row.job.id = select.integer(0);
        row.job.queue = select.text(1);
        row.job.format = select.text(2);
        row.job.data = select.blob(3);
        row.job.quantity = qint32(select.integer(4));
        row.job.sent = qint32(select.integer(5));
        row.job.released = QDateTime::fromString(select.text(6), Qt::ISODateWithMs);
        row.owner = select.integer(7);
        rows.append(row);
    }
    ok = status == SQLITE_DONE;
    return rows;
}

qint64 PrintSpool::add(const QString& queue, const QString& format, const QByteArray& data,
                       qint32 quantity)
{
    Held held{{0, queue, format, data, quantity, 0, QDateTime::currentDateTime()}, false};
    if (m_db) {
        Statement insert(m_db, "INSERT INTO spool_jobs(queue, format, data, quantity, owner, "
                               "released) VALUES (?1, ?2, ?3, ?4, ?5, ?6)");
        insert.bind(1, queue).bind(2, format).bind(3, data).bind(4, qint64(quantity));
        insert.bind(5, thisProcess()).bind(6, held.job.released.toString(Qt::ISODateWithMs));
        held.bStored = insert.step() == SQLITE_DONE;
        if (held.bStored)
            held.job.id = sqlite3_last_insert_rowid(m_db);
    }
    if (!held.bStored) {
        fail(queue,
             m_db ? QStringLiteral("did not take a new job") : QStringLiteral("cannot be used"));
        held.job.id = m_nextMemoryId--;
    }
    m_jobs.append(held);
    emit added(held.job);
    return held.job.id;
}

std::optional<PrintSpool::Job> PrintSpool::next(const QString& queue) const
{
    for (const Held& held : m_jobs)
        if (held.job.queue == queue)
            return held.job;
    return std::nullopt;
}

qint32 PrintSpool::pendingFor(const QString& queue) const
{
    return qint32(std::count_if(m_jobs.begin(), m_jobs.end(),
                                [&queue](const Held& held) { return held.job.queue == queue; }));
}

PrintSpool::Held* PrintSpool::find(qint64 id)
{
    for (Held& held : m_jobs)
        if (held.job.id == id)
            return &held;
    return nullptr;
}

bool PrintSpool::copySent(qint64 id)
{
    Held* held = find(id);
    if (!held)
        return false;
    ++held->job.sent;
    if (!held->bStored)
        return true;
    Statement update(m_db, "UPDATE spool_jobs SET sent = ?1 WHERE id = ?2");
    if (update.bind(1, qint64(held->job.sent)).bind(2, id).step() != SQLITE_DONE) {
        fail(held->job.queue, QStringLiteral("did not take a copy sent"));
        return true;
    }
    if (sqlite3_changes(m_db) == 1)
        return true;
    m_jobs.removeIf([id](const Held& gone) { return gone.job.id == id; });
    return false;
}

void PrintSpool::finish(qint64 id)
{
    Held* held = find(id);
    if (!held)
        return;
    const Held done = *held;
    m_jobs.removeIf([id](const Held& gone) { return gone.job.id == id; });
    if (!done.bStored)
        return;
    Statement remove(m_db, "DELETE FROM spool_jobs WHERE id = ?1");
    if (remove.bind(1, id).step() != SQLITE_DONE)
        tell(done.job.queue,
             QStringLiteral("The print spool %1 did not strike off job %2 (%3); it may "
                            "be sent again when the program next starts.")
                 .arg(m_filePath)
                 .arg(id)
                 .arg(lastError()));
}

QList<PrintSpool::Job> PrintSpool::list()
{
    bool ok = false;
    QList<Job> jobs;
    for (const Row& row : readFile(ok))
        jobs.append(find(row.job.id) ? find(row.job.id)->job : row.job);
    for (const Held& held : std::as_const(m_jobs))
        if (!held.bStored)
            jobs.append(held.job);
    return jobs;
}

bool PrintSpool::cancel(qint64 id)
{
    const bool heldHere = m_jobs.removeIf([id](const Held& held) { return held.job.id == id; }) > 0;
    Statement remove(m_db, "DELETE FROM spool_jobs WHERE id = ?1");
    const bool removed = remove.bind(1, id).step() == SQLITE_DONE && sqlite3_changes(m_db) == 1;
    return heldHere || removed;
}
