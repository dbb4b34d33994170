#include "services/SettingsStore.h"

#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace {
using Handle = SettingsStore::Handle;
constexpr Handle HKLM = SettingsStore::MachineHive;
constexpr Handle HKCU = SettingsStore::UserHive;

QByteArray dword(quint32 value)
{
    QByteArray bytes(4, '\0');
    for (int i = 0; i < 4; ++i)
        bytes[i] = char(value >> (8 * i));
    return bytes;
}

class SettingsStoreTest : public ::testing::Test
{
protected:
    QString path(const QString& name = QStringLiteral("store.sqlite")) const
    {
        return m_dir.filePath(name);
    }

    static Handle create(SettingsStore& store, Handle parent, const QString& path)
    {
        Handle key = 0;
        EXPECT_EQ(store.createKey(parent, path, key), 0) << path.toStdString();
        return key;
    }

    static qint32 query(SettingsStore& store, Handle key, const QString& name)
    {
        quint32 type = 0;
        quint32 size = 0;
        return store.queryValue(key, name, type, nullptr, size);
    }

    static QStringList subKeys(SettingsStore& store, Handle parent, const QString& path)
    {
        Handle key = 0;
        if (store.openKey(parent, path, key) != SettingsStore::Success)
            return {QStringLiteral("<missing>")};
        QStringList names;
        QString name;
        quint32 index = 0;
        qint32 status;
        while ((status = store.enumKey(key, index++, name)) == SettingsStore::Success)
            names.append(name);
        EXPECT_EQ(status, SettingsStore::NoMoreItems);
        store.closeKey(key);
        return names;
    }

    static bool exists(SettingsStore& store, Handle hive, const QString& path)
    {
        Handle key = 0;
        const bool found = store.openKey(hive, path, key) == SettingsStore::Success;
        if (found)
            store.closeKey(key);
        return found;
    }

    QTemporaryDir m_dir;
};

TEST_F(SettingsStoreTest, KeysCompareWithoutCaseAndKeepTheirFirstCase)
{
    SettingsStore store(path());
    ASSERT_TRUE(store.isAvailable()) << store.problem().toStdString();
    store.closeKey(create(store, HKLM, "Software\\Orvane\\Vigil"));
    // Created again in other case: the same key, the first case stays.
    store.closeKey(create(store, HKLM, "SOFTWARE\\ORVANE\\vigil\\Printers"));

    EXPECT_TRUE(exists(store, HKLM, "software\\orvane\\VIGIL\\printers"));
    EXPECT_EQ(subKeys(store, HKLM, "software"), QStringList{"Orvane"});
    EXPECT_EQ(subKeys(store, HKLM, "software\\orvane\\vigil"), QStringList{"Printers"});
    // Trailing and doubled separators name the same key.
    EXPECT_TRUE(exists(store, HKLM, "Software\\Orvane\\\\Vigil\\"));
    EXPECT_FALSE(exists(store, HKCU, "Software"));
}

TEST_F(SettingsStoreTest, ValuesAreTypedAndQueriedAsTheRegistryDoes)
{
    SettingsStore store(path());
    const Handle key = create(store, HKCU, "Software\\Test");
    ASSERT_EQ(store.setValue(key, "Name", 1, QByteArray("Line 1\0", 7)), 0);
    ASSERT_EQ(store.setValue(key, "Count", 4, dword(20000)), 0);
    // A name in other case replaces the value.
    ASSERT_EQ(store.setValue(key, "COUNT", 4, dword(7)), 0);

    quint32 type = 0;
    quint32 size = 0;
    ASSERT_EQ(store.queryValue(key, "name", type, nullptr, size), 0);
    EXPECT_EQ(type, 1u);
    EXPECT_EQ(size, 7u);

    QByteArray data;
    quint32 small = 3;
    EXPECT_EQ(store.queryValue(key, "Name", type, &data, small), SettingsStore::MoreData);
    EXPECT_EQ(small, 7u);
    ASSERT_EQ(store.queryValue(key, "count", type, &data, size), 0);
    EXPECT_EQ(type, 4u);
    EXPECT_EQ(data, dword(7));
    EXPECT_EQ(query(store, key, "Absent"), SettingsStore::FileNotFound);

    QList<SettingsStore::Value> values;
    ASSERT_EQ(store.listValues(key, values), 0);
    ASSERT_EQ(values.size(), 2);
    EXPECT_EQ(values[0].name, QStringLiteral("Count")); // the first case stays
    EXPECT_EQ(store.deleteValue(key, "count"), 0);
    EXPECT_EQ(store.deleteValue(key, "count"), SettingsStore::FileNotFound);
}

TEST_F(SettingsStoreTest, EnumerationIsOrderedAndEndsWithNoMoreItems)
{
    SettingsStore store(path());
    // In the registry's order: compared in upper case, so "_" comes after the letters.
    for (const char* name : {"IDb", "GP_x", "GPa", "ida", "Zeta"})
        store.closeKey(create(store, HKLM, QStringLiteral("Tree\\") + QLatin1String(name)));
    EXPECT_EQ(subKeys(store, HKLM, "Tree"), (QStringList{"GPa", "GP_x", "ida", "IDb", "Zeta"}));

    // A walk by index sees a subkey added in the middle of it.
    Handle tree = 0;
    ASSERT_EQ(store.openKey(HKLM, "Tree", tree), 0);
    QString name;
    ASSERT_EQ(store.enumKey(tree, 0, name), 0);
    create(store, tree, "Zz");
    EXPECT_EQ(store.enumKey(tree, 5, name), 0);
    EXPECT_EQ(name, QStringLiteral("Zz"));
    EXPECT_EQ(store.enumKey(tree, 6, name), SettingsStore::NoMoreItems);
}

TEST_F(SettingsStoreTest, TransactionsCommitRollBackAndNest)
{
    SettingsStore store(path());
    const Handle key = create(store, HKLM, "T");
    {
        SettingsStore::Transaction outer(store);
        ASSERT_TRUE(outer.isActive());
        ASSERT_EQ(store.setValue(key, "kept", 4, dword(1)), 0);
        {
            SettingsStore::Transaction inner(store); // never committed
            create(store, key, "Dropped");
            ASSERT_EQ(store.setValue(key, "dropped", 4, dword(2)), 0);
        }
        EXPECT_EQ(subKeys(store, HKLM, "T"), QStringList());
        EXPECT_TRUE(outer.commit());
    }
    {
        SettingsStore::Transaction abandoned(store);
        ASSERT_EQ(store.deleteKeyTree(HKLM, "T"), 0);
    }
    EXPECT_EQ(query(store, key, "kept"), 0);
    EXPECT_EQ(query(store, key, "dropped"), SettingsStore::FileNotFound);
}

TEST_F(SettingsStoreTest, TwoProcessesShareOneFile)
{
    SettingsStore writer(path());
    SettingsStore reader(path());
    ASSERT_TRUE(reader.isAvailable());
    const Handle key = create(writer, HKLM, "Shared");

    SettingsStore::Transaction transaction(writer);
    ASSERT_EQ(writer.setValue(key, "v", 4, dword(5)), 0);
    Handle seen = 0;
    ASSERT_EQ(reader.openKey(HKLM, "shared", seen), 0);
    // Not visible before the commit, visible after it.
    EXPECT_EQ(query(reader, seen, "v"), SettingsStore::FileNotFound);
    ASSERT_TRUE(transaction.commit());
    EXPECT_EQ(query(reader, seen, "v"), 0);
}

TEST_F(SettingsStoreTest, AFileThatIsNotAStoreIsLeftAlone)
{
    QFile notes(path("notes.txt"));
    const QByteArray before = QByteArray("These are my notes, not a database.\n").repeated(200);
    ASSERT_TRUE(notes.open(QIODevice::WriteOnly) && notes.write(before) == before.size());
    notes.close();
    SettingsStore store(notes.fileName());
    EXPECT_FALSE(store.isAvailable());
    EXPECT_TRUE(store.problem().contains("not a settings store")) << store.problem().toStdString();
    Handle key = 0;
    EXPECT_EQ(store.createKey(HKLM, "Software", key), SettingsStore::BadDatabase);
    EXPECT_EQ(store.openKey(HKLM, "Software", key), SettingsStore::BadDatabase);
    EXPECT_FALSE(store.beginTransaction());
    ASSERT_TRUE(notes.open(QIODevice::ReadOnly));
    EXPECT_EQ(notes.readAll(), before);
}

TEST_F(SettingsStoreTest, NamesWithNulCrOrLfAreRefusedAndNothingIsStored)
{
    SettingsStore store(path());
    const Handle key = create(store, HKLM, "Software");
    const QString odd[] = {"Line\n1", "Line\r1", QStringLiteral("Line") + QChar(0) + "1"};
    for (const QString& name : odd) {
        SCOPED_TRACE(SettingsStore::visibleName(name).toStdString());
        Handle created = 0;
        EXPECT_EQ(store.createKey(HKLM, "Software\\Queues\\" + name, created),
                  SettingsStore::InvalidParameter);
        const QString why = store.lastFailure();
        EXPECT_TRUE(why.startsWith("\"Software\\Queues\\" + SettingsStore::visibleName(name) +
                                   "\" can't be stored: a name may not hold"))
            << why.toStdString();
        EXPECT_FALSE(why.contains('\n') || why.contains('\r') || why.contains(QChar(0)));
        EXPECT_EQ(store.setValue(key, name, 4, dword(1)), SettingsStore::InvalidParameter);
        EXPECT_EQ(store.lastFailure(), SettingsStore::nameProblem(name));
    }
    EXPECT_EQ(subKeys(store, HKLM, "Software"), QStringList());
    QList<SettingsStore::Value> values;
    ASSERT_EQ(store.listValues(key, values), 0);
    EXPECT_TRUE(values.isEmpty());
    EXPECT_EQ(SettingsStore::nameProblem(" Line 1 [\"=\\] Zweite Straße "), QString());
}

TEST_F(SettingsStoreTest, AReadOnlyStoreIsNeverMadeNorChanged)
{
    SettingsStore missing(path("absent/store.sqlite"), SettingsStore::Mode::ReadOnly);
    EXPECT_FALSE(missing.isAvailable());
    EXPECT_EQ(missing.problem(), QStringLiteral("there is no such file"));
    EXPECT_FALSE(QFile::exists(path("absent")));

    {
        SettingsStore writer(path());
        ASSERT_EQ(writer.setValue(create(writer, HKCU, "Kept"), "v", 4, dword(3)), 0);
        EXPECT_EQ(writer.writeProblem(), QString());
    }
    SettingsStore reader(path(), SettingsStore::Mode::ReadOnly);
    ASSERT_TRUE(reader.isAvailable()) << reader.problem().toStdString();
    EXPECT_EQ(reader.writeProblem(), QStringLiteral("the file is read-only"));
    Handle key = 0;
    ASSERT_EQ(reader.openKey(HKCU, "kept", key), 0);
    EXPECT_EQ(query(reader, key, "V"), 0);
    EXPECT_EQ(reader.setValue(key, "v", 4, dword(4)), SettingsStore::BadDatabase);
    EXPECT_TRUE(reader.lastFailure().contains("readonly")) << reader.lastFailure().toStdString();
}
} // namespace
