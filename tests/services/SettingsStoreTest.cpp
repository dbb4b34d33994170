#include "services/SettingsStore.h"

#include <QDir>
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

QByteArray readAll(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

class SettingsStoreTest : public ::testing::Test
{
protected:
    QString path(const QString& name = QStringLiteral("store.sqlite")) const
    {
        return m_dir.filePath(name);
    }

    QStringList subKeys(SettingsStore& store, Handle parent, const QString& path)
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

    bool exists(SettingsStore& store, Handle hive, const QString& path)
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
    Handle key = 0;
    ASSERT_EQ(store.createKey(HKLM, QStringLiteral("Software\\Orvane\\Vigil"), key), 0);
    store.closeKey(key);
    // Created again in other case: the same key, the first case stays.
    ASSERT_EQ(store.createKey(HKLM, QStringLiteral("SOFTWARE\\ORVANE\\vigil\\Printers"), key), 0);
    store.closeKey(key);

    EXPECT_TRUE(exists(store, HKLM, QStringLiteral("software\\orvane\\VIGIL\\printers")));
    EXPECT_EQ(subKeys(store, HKLM, QStringLiteral("software")), QStringList{"Orvane"});
    EXPECT_EQ(subKeys(store, HKLM, QStringLiteral("software\\orvane\\vigil")),
              QStringList{"Printers"});
    // Trailing and doubled separators name the same key.
    EXPECT_TRUE(exists(store, HKLM, QStringLiteral("Software\\Orvane\\\\Vigil\\")));
    // The hives are apart.
    EXPECT_FALSE(exists(store, HKCU, QStringLiteral("Software")));
}

TEST_F(SettingsStoreTest, ValuesAreTypedAndQueriedAsTheRegistryDoes)
{
    SettingsStore store(path());
    Handle key = 0;
    ASSERT_EQ(store.createKey(HKCU, QStringLiteral("Software\\Test"), key), 0);
    ASSERT_EQ(store.setValue(key, QStringLiteral("Name"), 1, QByteArray("Line 1\0", 7)), 0);
    ASSERT_EQ(store.setValue(key, QStringLiteral("Count"), 4, dword(20000)), 0);
    // A name in other case replaces the value.
    ASSERT_EQ(store.setValue(key, QStringLiteral("COUNT"), 4, dword(7)), 0);

    quint32 type = 0;
    quint32 size = 0;
    ASSERT_EQ(store.queryValue(key, QStringLiteral("name"), type, nullptr, size), 0);
    EXPECT_EQ(type, 1u);
    EXPECT_EQ(size, 7u);

    QByteArray data;
    quint32 small = 3;
    EXPECT_EQ(store.queryValue(key, QStringLiteral("Name"), type, &data, small),
              SettingsStore::MoreData);
    EXPECT_EQ(small, 7u);
    ASSERT_EQ(store.queryValue(key, QStringLiteral("count"), type, &data, size), 0);
    EXPECT_EQ(type, 4u);
    EXPECT_EQ(data, dword(7));

    EXPECT_EQ(store.queryValue(key, QStringLiteral("Absent"), type, nullptr, size),
              SettingsStore::FileNotFound);

    QList<SettingsStore::Value> values;
    ASSERT_EQ(store.listValues(key, values), 0);
    ASSERT_EQ(values.size(), 2);
    EXPECT_EQ(values[0].name, QStringLiteral("Count")); // the first case stays
    EXPECT_EQ(store.deleteValue(key, QStringLiteral("count")), 0);
    EXPECT_EQ(store.deleteValue(key, QStringLiteral("count")), SettingsStore::FileNotFound);
}

TEST_F(SettingsStoreTest, EnumerationIsOrderedAndEndsWithNoMoreItems)
{
    SettingsStore store(path());
    // In the registry's order: compared in upper case, so "_" comes after the letters.
    for (const char* name : {"IDb", "GP_x", "GPa", "ida", "Zeta"}) {
        Handle key = 0;
        ASSERT_EQ(store.createKey(HKLM, QStringLiteral("Tree\\") + QLatin1String(name), key), 0);
        store.closeKey(key);
    }
    EXPECT_EQ(subKeys(store, HKLM, QStringLiteral("Tree")),
              (QStringList{"GPa", "GP_x", "ida", "IDb", "Zeta"}));

    // A walk by index sees a subkey added in the middle of it.
    Handle tree = 0;
    ASSERT_EQ(store.openKey(HKLM, QStringLiteral("Tree"), tree), 0);
    QString name;
    ASSERT_EQ(store.enumKey(tree, 0, name), 0);
    Handle added = 0;
    ASSERT_EQ(store.createKey(tree, QStringLiteral("Zz"), added), 0);
    EXPECT_EQ(store.enumKey(tree, 5, name), 0);
    EXPECT_EQ(name, QStringLiteral("Zz"));
    EXPECT_EQ(store.enumKey(tree, 6, name), SettingsStore::NoMoreItems);
}

TEST_F(SettingsStoreTest, TransactionsCommitRollBackAndNest)
{
    SettingsStore store(path());
    Handle key = 0;
    ASSERT_EQ(store.createKey(HKLM, QStringLiteral("T"), key), 0);
    {
        SettingsStore::Transaction outer(store);
        ASSERT_TRUE(outer.isActive());
        ASSERT_EQ(store.setValue(key, QStringLiteral("kept"), 4, dword(1)), 0);
        {
            SettingsStore::Transaction inner(store);
            Handle child = 0;
            ASSERT_EQ(store.createKey(key, QStringLiteral("Dropped"), child), 0);
            ASSERT_EQ(store.setValue(key, QStringLiteral("dropped"), 4, dword(2)), 0);
            // Not committed: rolled back when it ends.
        }
        EXPECT_EQ(subKeys(store, HKLM, QStringLiteral("T")), QStringList());
        EXPECT_TRUE(outer.commit());
    }
    {
        SettingsStore::Transaction abandoned(store);
        ASSERT_EQ(store.deleteKeyTree(HKLM, QStringLiteral("T")), 0);
    }
    quint32 type = 0;
    quint32 size = 0;
    EXPECT_EQ(store.queryValue(key, QStringLiteral("kept"), type, nullptr, size), 0);
    EXPECT_EQ(store.queryValue(key, QStringLiteral("dropped"), type, nullptr, size),
              SettingsStore::FileNotFound);
}

TEST_F(SettingsStoreTest, TwoProcessesShareOneFile)
{
    SettingsStore writer(path());
    SettingsStore reader(path());
    ASSERT_TRUE(reader.isAvailable());
    Handle key = 0;
    ASSERT_EQ(writer.createKey(HKLM, QStringLiteral("Shared"), key), 0);

    SettingsStore::Transaction transaction(writer);
    ASSERT_EQ(writer.setValue(key, QStringLiteral("v"), 4, dword(5)), 0);
    Handle seen = 0;
    ASSERT_EQ(reader.openKey(HKLM, QStringLiteral("shared"), seen), 0);
    quint32 type = 0;
    quint32 size = 0;
    // Not visible before the commit, visible after it.
    EXPECT_EQ(reader.queryValue(seen, QStringLiteral("v"), type, nullptr, size),
              SettingsStore::FileNotFound);
    ASSERT_TRUE(transaction.commit());
    EXPECT_EQ(reader.queryValue(seen, QStringLiteral("v"), type, nullptr, size), 0);
}

TEST_F(SettingsStoreTest, AFileThatIsNotAStoreIsLeftAlone)
{
    const QString notes = path(QStringLiteral("notes.txt"));
    {
        QFile file(notes);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(QByteArray("These are my notes, not a database.\n").repeated(200));
    }
    const QByteArray before = readAll(notes);
    SettingsStore store(notes);
    EXPECT_FALSE(store.isAvailable());
    EXPECT_TRUE(store.problem().contains(QStringLiteral("not a settings store")))
        << store.problem().toStdString();
    Handle key = 0;
    EXPECT_EQ(store.createKey(HKLM, QStringLiteral("Software"), key), SettingsStore::BadDatabase);
    EXPECT_EQ(store.openKey(HKLM, QStringLiteral("Software"), key), SettingsStore::BadDatabase);
    EXPECT_FALSE(store.beginTransaction());
    EXPECT_EQ(readAll(notes), before);
}

} // namespace
