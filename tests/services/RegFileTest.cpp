#include "services/RegFile.h"

#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace {
using Handle = SettingsStore::Handle;

class RegFileTest : public ::testing::Test
{
protected:
    std::unique_ptr<SettingsStore> newStore(const QString& name)
    {
        auto store = std::make_unique<SettingsStore>(m_dir.filePath(name));
        EXPECT_TRUE(store->isAvailable());
        return store;
    }

    static void set(SettingsStore& store, Handle hive, const QString& key, const QString& name,
                    quint32 type, const QByteArray& data)
    {
        Handle handle = 0;
        ASSERT_EQ(store.createKey(hive, key, handle), 0);
        ASSERT_EQ(store.setValue(handle, name, type, data), 0);
        store.closeKey(handle);
    }

    static QString exported(SettingsStore& store)
    {
        QString text;
        EXPECT_EQ(RegFile(store).exportAll(text), 0);
        return text;
    }

    QTemporaryDir m_dir;
};

TEST_F(RegFileTest, AnExportReadsBackExactly)
{
    auto store = newStore(QStringLiteral("a.sqlite"));
    const QString options = QStringLiteral("Software\\Orvane\\Vigil\\Options");
    set(*store, SettingsStore::MachineHive, options, QStringLiteral("PollInterval"), 4,
        QByteArray("\x20\x4e\x00\x00", 4));
    set(*store, SettingsStore::MachineHive, options, QStringLiteral("Limit"), 4,
        QByteArray("\xff\xff\xff\xff", 4));
    set(*store, SettingsStore::MachineHive, QStringLiteral("Software\\Orvane\\Common\\Branding"),
        QStringLiteral("Korvex Vigil"), 1,
        QStringLiteral("Line \"One\" \\ Zwei\r\nÄnde").toUtf8() + QByteArray(1, '\0'));
    set(*store, SettingsStore::UserHive, QStringLiteral("Software\\Blob"), QString(), 3,
        QByteArray("\x00\x01\xfe", 3));
    Handle empty = 0;
    ASSERT_EQ(store->createKey(SettingsStore::UserHive, QStringLiteral("Software\\Empty"), empty),
              0);

    const QString text = exported(*store);
    EXPECT_TRUE(text.contains(QStringLiteral("[HKLM\\Software\\Orvane\\Vigil\\Options]\n"
                                             "\"Limit\"=dword:ffffffff\n"
                                             "\"PollInterval\"=dword:00004e20\n")))
        << text.toStdString();
    EXPECT_TRUE(text.contains(QStringLiteral("@=hex(3):00,01,fe")));

    auto copy = newStore(QStringLiteral("b.sqlite"));
    const RegFile::ImportResult result = RegFile(*copy).importText(text);
    ASSERT_TRUE(result.ok) << result.error.toStdString();
    EXPECT_EQ(exported(*copy), text);
}

TEST_F(RegFileTest, AFaultAnywhereImportsNothing)
{
    auto store = newStore(QStringLiteral("s.sqlite"));
    const QString before = exported(*store);
    const struct
    {
        const char* text;
        const char* error;
    } faults[] = {
        {"\"Name\"=\"value before a key\"\n", "line 1: a value before any [key] line"},
        {"[HKLM\\A]\n\"N\"=dword:123456789\n", "line 2:"},
        {"[HKLM\\A]\n\"N\"=\"open\n", "line 2:"},
        {"[HKLM\\A]\n\n[HKXX\\B]\n", "line 3: \"HKXX\\B\" does not begin with HKLM or HKCU"},
        {"[HKLM\\A]\n\"N\"=hex(3):0,1\n", "line 2:"},
        {"[HKLM\\A]\nrubbish\n", "line 2: neither"},
    };
    for (const auto& fault : faults) {
        const RegFile::ImportResult result = RegFile(*store).importText(QLatin1String(fault.text));
        EXPECT_FALSE(result.ok) << fault.text;
        EXPECT_TRUE(result.error.startsWith(QLatin1String(fault.error)))
            << fault.text << " gave " << result.error.toStdString();
        EXPECT_EQ(exported(*store), before) << fault.text;
    }
}

TEST_F(RegFileTest, ImportDeletesKeysAndValuesAndReadsContinuedHexLines)
{
    auto store = newStore(QStringLiteral("s.sqlite"));
    set(*store, SettingsStore::MachineHive, QStringLiteral("A\\B\\C"), QStringLiteral("x"), 1,
        QByteArray("1\0", 2));
    set(*store, SettingsStore::MachineHive, QStringLiteral("A"), QStringLiteral("Gone"), 1,
        QByteArray("1\0", 2));
    const RegFile::ImportResult result =
        RegFile(*store).importText(QStringLiteral("Windows Registry Editor Version 5.00\r\n"
                                                  "; an administrator's comment\r\n"
                                                  "[-HKEY_LOCAL_MACHINE\\A\\B]\r\n"
                                                  "[HKLM\\A]\r\n"
                                                  "\"Gone\"=-\r\n"
                                                  "\"Bytes\"=hex:01,02,\\\r\n"
                                                  "  03\r\n"));
    ASSERT_TRUE(result.ok) << result.error.toStdString();
    EXPECT_EQ(exported(*store), QStringLiteral("Windows Registry Editor Version 5.00\n\n"
                                               "[HKLM\\A]\n\"Bytes\"=hex(3):01,02,03\n"));
}

TEST_F(RegFileTest, KeyPathsNameTheirHive)
{
    const auto machine = RegFile::parseKeyPath(QStringLiteral("hklm\\Software\\X"));
    ASSERT_TRUE(machine);
    EXPECT_EQ(machine->hive, SettingsStore::MachineHive);
    EXPECT_EQ(machine->path, QStringLiteral("Software\\X"));
    const auto user = RegFile::parseKeyPath(QStringLiteral("HKEY_CURRENT_USER"));
    ASSERT_TRUE(user);
    EXPECT_EQ(user->hive, SettingsStore::UserHive);
    EXPECT_TRUE(user->path.isEmpty());
    EXPECT_FALSE(RegFile::parseKeyPath(QStringLiteral("Software\\X")));

    auto store = newStore(QStringLiteral("s.sqlite"));
    QString text;
    EXPECT_EQ(RegFile(*store).exportKey(*machine, text), SettingsStore::FileNotFound);
}
} // namespace
