#include "services/SettingsStore.h"

#include "services/ErrorBox.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <sqlite3.h>

namespace {
// "KVG1" in the database header tells our stores from other SQLite files.
constexpr int ApplicationId = 0x4B564731;
constexpr int SchemaVersion = 1;
// Another process may hold the write lock for the length of one tree save.
constexpr int BusyTimeoutMs = 5000;

constexpr qint64 MachineHiveId = 1;
constexpr qint64 UserHiveId = 2;

const char* const SchemaSql = R"(
CREATE TABLE store_keys(
    id     INTEGER PRIMARY KEY,
    parent INTEGER,
    name   TEXT NOT NULL,
    path   TEXT NOT NULL UNIQUE);
CREATE INDEX store_keys_by_parent ON store_keys(parent, path);
CREATE TABLE store_values(
    key    INTEGER NOT NULL,
    folded TEXT NOT NULL,
    name   TEXT NOT NULL,
    type   INTEGER NOT NULL,
    data   BLOB NOT NULL,
    PRIMARY KEY(key, folded)) WITHOUT ROWID;
INSERT INTO store_keys(id, parent, name, path) VALUES
    (1, NULL, 'HKEY_LOCAL_MACHINE', 'HKLM'),
    (2, NULL, 'HKEY_CURRENT_USER', 'HKCU');
)";

std::shared_ptr<SettingsStore>& processStore()
{
    static std::shared_ptr<SettingsStore> store;
    return store;
}

// Keys below `path` lie between "path\" and "path]" in byte order, as ']' follows '\'.
QString subtreeEnd(const QString& path)
{
    return path + QLatin1Char(']');
}

// The whole text of a column, also past a NUL that an older version let into a name.
QString textColumn(sqlite3_stmt* stmt, int column)
{
    return QString::fromUtf8(reinterpret_cast<const char*>(sqlite3_column_text(stmt, column)),
                             sqlite3_column_bytes(stmt, column));
}
} // namespace

SettingsStore::SettingsStore(QString filePath, Mode mode)
    : m_filePath(std::move(filePath))
{
    open(mode);
    m_keys.insert(MachineHive, OpenKey(MachineHiveId, QStringLiteral("HKLM")));
    m_keys.insert(UserHive, OpenKey(UserHiveId, QStringLiteral("HKCU")));
}

SettingsStore::~SettingsStore()
{
    if (m_transactionDepth > 0)
        exec("ROLLBACK");
    for (sqlite3_stmt* stmt : std::as_const(m_statements))
        sqlite3_finalize(stmt);
    if (m_db)
        sqlite3_close(m_db);
}

QString SettingsStore::defaultFilePath()
{
    const QString explicitPath = qEnvironmentVariable("VIGIL_STORE");
    if (!explicitPath.isEmpty())
        return explicitPath;
    QString dataHome = qEnvironmentVariable("XDG_DATA_HOME");
    if (dataHome.isEmpty() || QDir::isRelativePath(dataHome))
        dataHome = QDir::homePath() + QStringLiteral("/.local/share");
    return dataHome + QStringLiteral("/korvex-vigil/store.sqlite");
}

SettingsStore& SettingsStore::process()
{
    auto& store = processStore();
    if (!store) {
        store = std::make_shared<SettingsStore>(defaultFilePath());
        if (!store->isAvailable())
            ShowError(QStringLiteral("The settings store %1 cannot be used: %2. The program goes "
                                     "on without it; nothing it changes is saved.")
                          .arg(store->filePath(), store->problem()),
                      QStringLiteral("Settings store"));
    }
    return *store;
}

void SettingsStore::install(std::shared_ptr<SettingsStore> store)
{
    processStore() = std::move(store);
}

QString SettingsStore::nameProblem(const QString& name)
{
    // A line of .reg text holds one name; a NUL ends a name for many tools.
    static const struct
    {
        QChar character;
        const char* what;
    } forbidden[] = {{QChar(u'\n'), "a line break (\\n)"},
                     {QChar(u'\r'), "a carriage return (\\r)"},
                     {QChar(u'\0'), "a NUL character (\\0)"}};
    for (const auto& [character, what] : forbidden)
        if (name.contains(character))
            return QStringLiteral("\"%1\" can't be stored: a name may not hold %2")
                .arg(visibleName(name), QLatin1String(what));
    return {};
}

QString SettingsStore::visibleName(const QString& name)
{
    QString shown = name;
    shown.replace(QLatin1Char('\n'), QStringLiteral("\\n"))
        .replace(QLatin1Char('\r'), QStringLiteral("\\r"))
        .replace(QChar(u'\0'), QStringLiteral("\\0"));
    return shown;
}

void SettingsStore::open(Mode mode)
{
    const QFileInfo file(m_filePath);
    const bool existed = file.exists() && file.size() > 0;
    if (mode == Mode::ReadOnly && !existed) {
        m_problem = file.exists() ? QStringLiteral("the file is empty")
                                  : QStringLiteral("there is no such file");
        return;
    }
    if (!existed && !QDir().mkpath(file.absolutePath())) {
        m_problem = QStringLiteral("its folder %1 cannot be created").arg(file.absolutePath());
        return;
    }
    if (file.isDir()) {
        m_problem = QStringLiteral("it is a folder");
        return;
    }
    const int flags = mode == Mode::ReadOnly
                          ? SQLITE_OPEN_READONLY
                          : SQLITE_OPEN_READWRITE | (existed ? 0 : SQLITE_OPEN_CREATE);
    if (sqlite3_open_v2(QFile::encodeName(m_filePath).constData(), &m_db, flags, nullptr) !=
        SQLITE_OK) {
        m_problem = lastError();
        sqlite3_close(m_db);
        m_db = nullptr;
        return;
    }
    sqlite3_busy_timeout(m_db, BusyTimeoutMs);
    sqlite3_extended_result_codes(m_db, 0);

    const auto fail = [this](const QString& problem) {
        m_problem = problem;
        for (sqlite3_stmt* stmt : std::as_const(m_statements))
            sqlite3_finalize(stmt);
        m_statements.clear();
        sqlite3_close(m_db);
        m_db = nullptr;
    };

    // Read before anything is written, so that a foreign or damaged file stays untouched.
    sqlite3_stmt* header = statement("PRAGMA application_id");
    if (!header || sqlite3_step(header) != SQLITE_ROW) {
        const int code = sqlite3_errcode(m_db);
        // The journal files lie beside the store: a folder that can't take them keeps it shut.
        const bool folderShut = (code == SQLITE_READONLY || code == SQLITE_CANTOPEN) &&
                                !QFileInfo(file.absolutePath()).isWritable();
        fail(code == SQLITE_NOTADB ? QStringLiteral("the file is not a settings store")
             : folderShut
                 ? QStringLiteral("its folder %1 is read-only, and the store keeps its journal "
                                  "files there")
                       .arg(file.absolutePath())
                 : QStringLiteral("the file cannot be read (%1)").arg(lastError()));
        return;
    }
    const int applicationId = sqlite3_column_int(header, 0);
    sqlite3_reset(header);

    if (applicationId == ApplicationId) {
        sqlite3_stmt* check = statement("PRAGMA quick_check(1)");
        const bool readable = check && sqlite3_step(check) == SQLITE_ROW;
        const QString verdict = readable ? textColumn(check, 0) : lastError();
        if (check)
            sqlite3_reset(check);
        if (verdict != QLatin1String("ok")) {
            fail(QStringLiteral("the file is damaged (%1)").arg(verdict));
            return;
        }
    } else {
        sqlite3_stmt* tables = statement("SELECT count(*) FROM sqlite_master");
        const bool empty =
            tables && sqlite3_step(tables) == SQLITE_ROW && sqlite3_column_int(tables, 0) == 0;
        if (tables)
            sqlite3_reset(tables);
        if (!empty) {
            fail(QStringLiteral("the file is a database of another program, not a settings store"));
            return;
        }
        if (mode == Mode::ReadOnly) {
            fail(QStringLiteral("the file is not a settings store"));
            return;
        }
        if (!initialiseSchema()) {
            fail(QStringLiteral("the store cannot be set up (%1)").arg(lastError()));
            return;
        }
    }
    if (mode == Mode::ReadOnly)
        return;
    // WAL lets readers in other processes go on while one process writes.
    exec("PRAGMA journal_mode=WAL");
    exec("PRAGMA synchronous=NORMAL");
}

QString SettingsStore::writeProblem() const
{
    if (!m_db)
        return m_problem;
    return sqlite3_db_readonly(m_db, "main") == 0 ? QString()
                                                  : QStringLiteral("the file is read-only");
}

qint32 SettingsStore::failWith(qint32 status, const QString& why)
{
    m_lastFailure = why;
    return status;
}

qint32 SettingsStore::databaseFailure()
{
    return failWith(BadDatabase, lastError());
}

bool SettingsStore::initialiseSchema()
{
    const QByteArray sql = QByteArray("BEGIN IMMEDIATE;") + SchemaSql +
                           QByteArray("PRAGMA application_id=") +
                           QByteArray::number(ApplicationId) +
                           ";PRAGMA user_version=" + QByteArray::number(SchemaVersion) + ";COMMIT;";
    if (exec(sql.constData()))
        return true;
    exec("ROLLBACK");
    return false;
}

bool SettingsStore::exec(const char* sql)
{
    return m_db && sqlite3_exec(m_db, sql, nullptr, nullptr, nullptr) == SQLITE_OK;
}

sqlite3_stmt* SettingsStore::statement(const char* sql)
{
    if (sqlite3_stmt* cached = m_statements.value(sql)) {
        sqlite3_reset(cached);
        sqlite3_clear_bindings(cached);
        return cached;
    }
    sqlite3_stmt* stmt = nullptr;
    if (sqlite3_prepare_v3(m_db, sql, -1, SQLITE_PREPARE_PERSISTENT, &stmt, nullptr) != SQLITE_OK)
        return nullptr;
    m_statements.insert(sql, stmt);
    return stmt;
}

QString SettingsStore::lastError() const
{
    return m_db ? QString::fromUtf8(sqlite3_errmsg(m_db)) : QStringLiteral("out of memory");
}

// Upper case, as the registry compares: that decides the order of an enumeration too.
QString SettingsStore::fold(const QString& text)
{
    return text.toUpper();
}

QStringList SettingsStore::components(const QString& path)
{
    return path.split(QLatin1Char('\\'), Qt::SkipEmptyParts);
}

qint32 SettingsStore::lookUp(Handle key, OpenKey*& open)
{
    if (!m_db)
        return failWith(BadDatabase, m_problem);
    const auto it = m_keys.find(key);
    open = it == m_keys.end() ? nullptr : &it.value();
    return open ? Success : failWith(InvalidHandle, QStringLiteral("the key is not open"));
}

QString SettingsStore::pathBelow(const OpenKey& base, const QString& path)
{
    QString full = base.path;
    for (const QString& part : components(path))
        full += QLatin1Char('\\') + fold(part);
    return full;
}

SettingsStore::Handle SettingsStore::addHandle(qint64 id, QString path)
{
    while (m_keys.contains(m_nextHandle) || m_nextHandle == 0)
        ++m_nextHandle;
    const Handle handle = m_nextHandle++;
    m_keys.insert(handle, OpenKey(id, std::move(path)));
    return handle;
}

qint64 SettingsStore::keyIdOf(const QString& path)
{
    sqlite3_stmt* stmt = statement("SELECT id FROM store_keys WHERE path = ?1");
    if (!stmt)
        return 0;
    const QByteArray utf8 = path.toUtf8();
    sqlite3_bind_text(stmt, 1, utf8.constData(), int(utf8.size()), SQLITE_STATIC);
    const qint64 id = sqlite3_step(stmt) == SQLITE_ROW ? sqlite3_column_int64(stmt, 0) : 0;
    sqlite3_reset(stmt);
    return id;
}

qint32 SettingsStore::openKey(Handle parent, const QString& path, Handle& key)
{
    OpenKey* base = nullptr;
    if (const qint32 status = lookUp(parent, base))
        return status;
    const QString full = pathBelow(*base, path);
    const qint64 id = keyIdOf(full);
    if (id == 0)
        return FileNotFound;
    key = addHandle(id, full);
    return Success;
}

qint32 SettingsStore::createKey(Handle parent, const QString& path, Handle& key)
{
    OpenKey* base = nullptr;
    if (const qint32 status = lookUp(parent, base))
        return status;
    const QStringList parts = components(path);
    if (const QString problem = nameProblem(path); !problem.isEmpty())
        return failWith(InvalidParameter, problem);
    for (const QString& part : parts)
        if (part.size() > MaxKeyNameLength)
            return failWith(InvalidParameter, QStringLiteral("\"%1\" can't be stored: a key name "
                                                             "may not be longer than %2 characters")
                                                  .arg(part.left(20) + QStringLiteral("..."))
                                                  .arg(MaxKeyNameLength));

    qint64 id = base->id;
    QString full = base->path;
    const QString wanted = pathBelow(*base, path);
    if (const qint64 existing = keyIdOf(wanted)) {
        key = addHandle(existing, wanted);
        return Success;
    }

    Transaction transaction(*this);
    if (!transaction.isActive())
        return BadDatabase;
    for (const QString& part : parts) {
        full += QLatin1Char('\\') + fold(part);
        qint64 childId = keyIdOf(full);
        if (childId == 0) {
            sqlite3_stmt* insert =
                statement("INSERT INTO store_keys(parent, name, path) VALUES (?1, ?2, ?3)");
            if (!insert)
                return databaseFailure();
            const QByteArray name = part.toUtf8();
            const QByteArray folded = full.toUtf8();
            sqlite3_bind_int64(insert, 1, id);
            sqlite3_bind_text(insert, 2, name.constData(), int(name.size()), SQLITE_STATIC);
            sqlite3_bind_text(insert, 3, folded.constData(), int(folded.size()), SQLITE_STATIC);
            const int rc = sqlite3_step(insert);
            sqlite3_reset(insert);
            if (rc != SQLITE_DONE)
                return databaseFailure();
            childId = sqlite3_last_insert_rowid(m_db);
        }
        id = childId;
    }
    if (!transaction.commit())
        return BadDatabase;
    ++m_treeGeneration;
    key = addHandle(id, full);
    return Success;
}

qint32 SettingsStore::queryValue(Handle key, const QString& name, quint32& type, QByteArray* data,
                                 quint32& size)
{
    OpenKey* open = nullptr;
    if (const qint32 status = lookUp(key, open))
        return status;
    sqlite3_stmt* stmt =
        statement("SELECT type, data FROM store_values WHERE key = ?1 AND folded = ?2");
    if (!stmt)
        return databaseFailure();
    const QByteArray folded = fold(name).toUtf8();
    sqlite3_bind_int64(stmt, 1, open->id);
    sqlite3_bind_text(stmt, 2, folded.constData(), int(folded.size()), SQLITE_STATIC);
    if (sqlite3_step(stmt) != SQLITE_ROW) {
        sqlite3_reset(stmt);
        return FileNotFound;
    }
    type = quint32(sqlite3_column_int64(stmt, 0));
    const auto* bytes = static_cast<const char*>(sqlite3_column_blob(stmt, 1));
    const quint32 stored = quint32(sqlite3_column_bytes(stmt, 1));
    qint32 status = Success;
    if (data) {
        if (size < stored)
            status = MoreData;
        else
            *data = QByteArray(bytes, stored);
    }
    size = stored;
    sqlite3_reset(stmt);
    return status;
}

qint32 SettingsStore::setValue(Handle key, const QString& name, quint32 type,
                               const QByteArray& data)
{
    OpenKey* open = nullptr;
    if (const qint32 status = lookUp(key, open))
        return status;
    if (const QString problem = nameProblem(name); !problem.isEmpty())
        return failWith(InvalidParameter, problem);
    // The key may have gone meanwhile, deleted here or by another process.
    sqlite3_stmt* stmt = statement(
        "INSERT INTO store_values(key, folded, name, type, data) "
        "SELECT ?1, ?2, ?3, ?4, ?5 WHERE EXISTS (SELECT 1 FROM store_keys WHERE id = ?1) "
        "ON CONFLICT(key, folded) DO UPDATE SET type = excluded.type, data = excluded.data");
    if (!stmt)
        return databaseFailure();
    const QByteArray folded = fold(name).toUtf8();
    const QByteArray utf8 = name.toUtf8();
    sqlite3_bind_int64(stmt, 1, open->id);
    sqlite3_bind_text(stmt, 2, folded.constData(), int(folded.size()), SQLITE_STATIC);
    sqlite3_bind_text(stmt, 3, utf8.constData(), int(utf8.size()), SQLITE_STATIC);
    sqlite3_bind_int64(stmt, 4, type);
    sqlite3_bind_blob(stmt, 5, data.constData(), int(data.size()), SQLITE_STATIC);
    const int rc = sqlite3_step(stmt);
    sqlite3_reset(stmt);
    if (rc != SQLITE_DONE)
        return databaseFailure();
    return sqlite3_changes(m_db) > 0 ? Success
                                     : failWith(KeyDeleted, QStringLiteral("the key is gone"));
}

qint32 SettingsStore::enumKey(Handle key, quint32 index, QString& name)
{
    OpenKey* open = nullptr;
    if (const qint32 status = lookUp(key, open))
        return status;
    // The names are read at the start of an enumeration and whenever this process changed
    // the tree since, so that a walk by index costs one query, not one per subkey.
    if (index == 0 || !open->subKeysLoaded || open->subKeysGeneration != m_treeGeneration) {
        sqlite3_stmt* stmt =
            statement("SELECT name FROM store_keys WHERE parent = ?1 ORDER BY path");
        if (!stmt)
            return databaseFailure();
        sqlite3_bind_int64(stmt, 1, open->id);
        open->subKeys.clear();
        while (sqlite3_step(stmt) == SQLITE_ROW)
            open->subKeys.append(textColumn(stmt, 0));
        sqlite3_reset(stmt);
        open->subKeysLoaded = true;
        open->subKeysGeneration = m_treeGeneration;
    }
    if (index >= quint32(open->subKeys.size()))
        return NoMoreItems;
    name = open->subKeys.at(int(index));
    return Success;
}

qint32 SettingsStore::deleteKeyTree(Handle key, const QString& subKey)
{
    OpenKey* open = nullptr;
    if (const qint32 status = lookUp(key, open))
        return status;
    const QString target = pathBelow(*open, subKey);
    if (target == QLatin1String("HKLM") || target == QLatin1String("HKCU"))
        return failWith(AccessDenied, QStringLiteral("a hive can't be deleted"));
    if (keyIdOf(target) == 0)
        return failWith(FileNotFound, QStringLiteral("there is no such key"));

    const QByteArray path = target.toUtf8();
    const QByteArray below = (target + QLatin1Char('\\')).toUtf8();
    const QByteArray end = subtreeEnd(target).toUtf8();
    const auto bindRange = [&](sqlite3_stmt* stmt) {
        sqlite3_bind_text(stmt, 1, path.constData(), int(path.size()), SQLITE_STATIC);
        sqlite3_bind_text(stmt, 2, below.constData(), int(below.size()), SQLITE_STATIC);
        sqlite3_bind_text(stmt, 3, end.constData(), int(end.size()), SQLITE_STATIC);
    };

    Transaction transaction(*this);
    if (!transaction.isActive())
        return BadDatabase;
    sqlite3_stmt* values =
        statement("DELETE FROM store_values WHERE key IN (SELECT id FROM store_keys "
                  "WHERE path = ?1 OR (path >= ?2 AND path < ?3))");
    if (!values)
        return databaseFailure();
    bindRange(values);
    int rc = sqlite3_step(values);
    sqlite3_reset(values);
    if (rc != SQLITE_DONE)
        return databaseFailure();
    sqlite3_stmt* keys =
        statement("DELETE FROM store_keys WHERE path = ?1 OR (path >= ?2 AND path < ?3)");
    if (!keys)
        return databaseFailure();
    bindRange(keys);
    rc = sqlite3_step(keys);
    sqlite3_reset(keys);
    if (rc != SQLITE_DONE)
        return databaseFailure();
    if (!transaction.commit())
        return BadDatabase;
    ++m_treeGeneration;
    return Success;
}

qint32 SettingsStore::closeKey(Handle key)
{
    if (key == MachineHive || key == UserHive)
        return Success;
    return m_keys.remove(key) ? Success : InvalidHandle;
}

qint32 SettingsStore::listValues(Handle key, QList<Value>& values)
{
    OpenKey* open = nullptr;
    if (const qint32 status = lookUp(key, open))
        return status;
    sqlite3_stmt* stmt =
        statement("SELECT name, type, data FROM store_values WHERE key = ?1 ORDER BY folded");
    if (!stmt)
        return databaseFailure();
    sqlite3_bind_int64(stmt, 1, open->id);
    values.clear();
    while (sqlite3_step(stmt) == SQLITE_ROW) {
        values.append({textColumn(stmt, 0), quint32(sqlite3_column_int64(stmt, 1)),
                       QByteArray(static_cast<const char*>(sqlite3_column_blob(stmt, 2)),
                                  sqlite3_column_bytes(stmt, 2))});
    }
    sqlite3_reset(stmt);
    return Success;
}

qint32 SettingsStore::deleteValue(Handle key, const QString& name)
{
    OpenKey* open = nullptr;
    if (const qint32 status = lookUp(key, open))
        return status;
    sqlite3_stmt* stmt = statement("DELETE FROM store_values WHERE key = ?1 AND folded = ?2");
    if (!stmt)
        return databaseFailure();
    const QByteArray folded = fold(name).toUtf8();
    sqlite3_bind_int64(stmt, 1, open->id);
    sqlite3_bind_text(stmt, 2, folded.constData(), int(folded.size()), SQLITE_STATIC);
    const int rc = sqlite3_step(stmt);
    sqlite3_reset(stmt);
    if (rc != SQLITE_DONE)
        return databaseFailure();
    return sqlite3_changes(m_db) > 0
               ? Success
               : failWith(FileNotFound, QStringLiteral("there is no such value"));
}

bool SettingsStore::beginTransaction()
{
    if (!m_db) {
        m_lastFailure = m_problem;
        return false;
    }
    // The outermost level takes the write lock at once, so two processes never both hold
    // a read lock that each needs to upgrade.
    const QByteArray sql = m_transactionDepth == 0
                               ? QByteArray("BEGIN IMMEDIATE")
                               : "SAVEPOINT level" + QByteArray::number(m_transactionDepth);
    if (!exec(sql.constData())) {
        m_lastFailure = lastError();
        return false;
    }
    ++m_transactionDepth;
    return true;
}

qint64 SettingsStore::dataVersion()
{
    if (!m_db)
        return -1;
    sqlite3_stmt* stmt = statement("PRAGMA data_version");
    if (!stmt || sqlite3_step(stmt) != SQLITE_ROW)
        return -1;
    const qint64 version = sqlite3_column_int64(stmt, 0);
    sqlite3_reset(stmt);
    return version;
}

bool SettingsStore::backupTo(const QString& path, QString& problem)
{
    if (!m_db) {
        problem = m_problem;
        return false;
    }
    sqlite3* copy = nullptr;
    if (sqlite3_open_v2(QFile::encodeName(path).constData(), &copy,
                        SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE, nullptr) != SQLITE_OK) {
        problem = QStringLiteral("%1 cannot be created: %2")
                      .arg(path, QString::fromUtf8(sqlite3_errmsg(copy)));
        sqlite3_close(copy);
        return false;
    }
    sqlite3_backup* backup = sqlite3_backup_init(copy, "main", m_db, "main");
    const bool copied = backup && sqlite3_backup_step(backup, -1) == SQLITE_DONE;
    sqlite3_backup_finish(backup);
    if (!copied)
        problem = QStringLiteral("the copy into %1 failed: %2")
                      .arg(path, QString::fromUtf8(sqlite3_errmsg(copy)));
    sqlite3_close(copy);
    return copied;
}

bool SettingsStore::commitTransaction()
{
    if (m_transactionDepth == 0)
        return false;
    const QByteArray sql = m_transactionDepth == 1
                               ? QByteArray("COMMIT")
                               : "RELEASE level" + QByteArray::number(m_transactionDepth - 1);
    if (!exec(sql.constData())) {
        m_lastFailure = lastError();
        return false;
    }
    --m_transactionDepth;
    return true;
}

void SettingsStore::rollbackTransaction()
{
    if (m_transactionDepth == 0)
        return;
    --m_transactionDepth;
    if (m_transactionDepth == 0) {
        exec("ROLLBACK");
    } else {
        const QByteArray level = "level" + QByteArray::number(m_transactionDepth);
        exec(("ROLLBACK TO " + level + ";RELEASE " + level).constData());
    }
    // Keys created or deleted in the rolled back writes are no longer what the caches hold.
    ++m_treeGeneration;
}

SettingsStore::Transaction::Transaction(SettingsStore& store)
    : m_store(store)
    , m_bActive(store.beginTransaction())
{}

SettingsStore::Transaction::~Transaction()
{
    if (m_bActive)
        m_store.rollbackTransaction();
}

bool SettingsStore::Transaction::commit()
{
    if (!m_bActive)
        return false;
    m_bActive = false;
    if (m_store.commitTransaction())
        return true;
    m_store.rollbackTransaction();
    return false;
}
