#pragma once

#include <QHash>
#include <QList>
#include <QString>
#include <memory>

struct sqlite3;
struct sqlite3_stmt;

// The hierarchical settings store: two hives of keys with named values, kept in one SQLite
// file and shared safely between processes. Its operations behave as the registry's do,
// which the settings code relies on:
//
//   openKey       RegOpenKeyEx    a missing key is an error and is never created
//   createKey     RegCreateKeyEx  creates all missing parents
//   queryValue    RegQueryValueEx type and size without a buffer, then the data
//   setValue      RegSetValueEx   replaces or creates
//   enumKey       RegEnumKeyEx    NoMoreItems past the last subkey
//   deleteKeyTree SHDeleteKey     the subkey with everything below it
//   closeKey      RegCloseKey
//
// Key paths and value names compare without regard to case and keep the case they were
// created with. A name holds no NUL, CR or LF: the store refuses such a name from every
// writer, so that every key and value can be written as a line of .reg text and read back.
// There are no access rights: every caller may do everything.
//
// A file that isn't a store, or is damaged, is left exactly as it is: the store reports
// which file and what is wrong through problem(), and every operation fails with
// BadDatabase, so readers take their defaults and the program goes on.
class SettingsStore
{
public:
    using Handle = quint32;
    static constexpr Handle MachineHive = 0x80000002;
    static constexpr Handle UserHive = 0x80000001;

    static constexpr quint32 TextType = 1;
    static constexpr quint32 DWordType = 4;

    static constexpr qint32 Success = 0;
    static constexpr qint32 FileNotFound = 2;
    static constexpr qint32 AccessDenied = 5;
    static constexpr qint32 InvalidHandle = 6;
    static constexpr qint32 InvalidParameter = 87;
    static constexpr qint32 MoreData = 234;
    static constexpr qint32 NoMoreItems = 259;
    static constexpr qint32 BadDatabase = 1009;
    static constexpr qint32 KeyDeleted = 1018;

    static constexpr int MaxKeyNameLength = 255;

    struct Value
    {
        QString name;
        quint32 type = 0;
        QByteArray data;
    };

    enum class Mode {
        ReadWrite, // made, with its folder, when missing
        ReadOnly,  // only a store that is there, never made or changed
    };

    explicit SettingsStore(QString filePath, Mode mode = Mode::ReadWrite);
    ~SettingsStore();
    SettingsStore(const SettingsStore&) = delete;
    SettingsStore& operator=(const SettingsStore&) = delete;

    const QString& filePath() const { return m_filePath; }
    bool isAvailable() const { return m_db != nullptr; }
    const QString& problem() const { return m_problem; }
    // Why nothing can be written: a store opened read-only, or a file the user may not
    // write. Empty when it can.
    QString writeProblem() const;
    // Why the last operation that failed did, in words: a name refused, a full disk, a
    // read-only file.
    const QString& lastFailure() const { return m_lastFailure; }

    // Why `name`, a key's or a value's name or a key path, can't be stored; empty when it
    // can.
    static QString nameProblem(const QString& name);
    // The name with NUL, CR and LF shown as \0, \r and \n, for a message or a listing.
    static QString visibleName(const QString& name);

    // $VIGIL_STORE, else store.sqlite in korvex-vigil below the user's data folder.
    static QString defaultFilePath();

    // The store of this process, opened at the default path on first use. If that file
    // can't be used the user is told once, and the program goes on without a store.
    static SettingsStore& process();
    static void install(std::shared_ptr<SettingsStore> store);

    qint32 openKey(Handle parent, const QString& path, Handle& key);
    qint32 createKey(Handle parent, const QString& path, Handle& key);
    qint32 queryValue(Handle key, const QString& name, quint32& type, QByteArray* data,
                      quint32& size);
    qint32 setValue(Handle key, const QString& name, quint32 type, const QByteArray& data);
    qint32 enumKey(Handle key, quint32 index, QString& name);
    qint32 deleteKeyTree(Handle key, const QString& subKey);
    qint32 closeKey(Handle key);

    // Beyond the registry's seven, for the administrator's tools.
    qint32 listValues(Handle key, QList<Value>& values);
    qint32 deleteValue(Handle key, const QString& name);

    // A number that changes whenever another connection, of this process or another, has
    // committed a change; -1 without a store. Cheap enough to ask on a timer.
    qint64 dataVersion();
    // A consistent copy of the whole store into a new file at that path; false with the
    // reason in `problem` when it can't be made.
    bool backupTo(const QString& path, QString& problem);

    // Many writes as one: nothing of them is seen by others until the commit, and a roll
    // back (or a transaction never committed) leaves the store as it was. Transactions nest.
    bool beginTransaction();
    bool commitTransaction();
    void rollbackTransaction();

    class Transaction
    {
    public:
        explicit Transaction(SettingsStore& store);
        ~Transaction();
        Transaction(const Transaction&) = delete;
        Transaction& operator=(const Transaction&) = delete;
        bool isActive() const { return m_bActive; }
        bool commit();

    private:
        SettingsStore& m_store;
        bool m_bActive;
    };

private:
    struct OpenKey
    {
        OpenKey(qint64 keyId, QString foldedPath)
            : id(keyId)
            , path(std::move(foldedPath))
        {}
        qint64 id = 0;
        QString path; // folded, from the hive down: "HKLM\SOFTWARE\ORVANE"
        QStringList subKeys;
        quint64 subKeysGeneration = 0;
        bool subKeysLoaded = false;
    };

    void open(Mode mode);
    qint32 failWith(qint32 status, const QString& why);
    qint32 databaseFailure();
    bool initialiseSchema();
    bool exec(const char* sql);
    sqlite3_stmt* statement(const char* sql);
    QString lastError() const;

    // The open key behind a handle, or the status that says why there is none.
    qint32 lookUp(Handle key, OpenKey*& open);
    static QString pathBelow(const OpenKey& base, const QString& path);
    Handle addHandle(qint64 id, QString path);
    static QStringList components(const QString& path);
    static QString fold(const QString& text);
    qint64 keyIdOf(const QString& path);

    QString m_filePath;
    QString m_problem;
    QString m_lastFailure;
    sqlite3* m_db = nullptr;
    QHash<const char*, sqlite3_stmt*> m_statements;
    QHash<Handle, OpenKey> m_keys;
    Handle m_nextHandle = 1;
    quint64 m_treeGeneration = 0;
    int m_transactionDepth = 0;
};
