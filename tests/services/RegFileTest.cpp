#include "services/RegFile.h"

#include "support/OlderStore.h"
#include "support/RegRoundTrip.h"

#include <QRandomGenerator>
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

// Names of every kind a site gives: blanks at either end, quotes, brackets, "=", non-ASCII,
// and backslashes in value names; each a number of its own, so that siblings never fold to
// one name.
QString generatedName(QRandomGenerator& random, int number, bool backslashes)
{
    static const QString pieces[] = {" ", "\"", "[",  "]", "=",  "@",    ";", "-", "ä",
                                     "ß", "€",  "日", "😀", "\t", "Line", "x", "Y"};
    QString name;
    const int length = random.bounded(1, 6);
    for (int i = 0; i < length; ++i)
        name += pieces[random.bounded(int(std::size(pieces)))];
    if (backslashes && random.bounded(2))
        name.insert(random.bounded(name.size() + 1), QLatin1Char('\\'));
    name.insert(random.bounded(name.size() + 1), QString::number(number));
    switch (random.bounded(4)) {
    case 0:
        return QLatin1Char(' ') + name;
    case 1:
        return name + QStringLiteral("  ");
    default:
        return name;
    }
}

TEST_F(RegFileTest, GeneratedNamesComeBackByteForByte)
{
    for (quint32 seed = 1; seed <= 12; ++seed) {
        SCOPED_TRACE(seed);
        QRandomGenerator random(seed);
        auto store = newStore(QStringLiteral("%1.sqlite").arg(seed));
        QStringList keys{QString()};
        for (int number = 0; number < 12; ++number) {
            const QString parent = keys.at(random.bounded(keys.size()));
            const QString key = (parent.isEmpty() ? QString() : parent + QLatin1Char('\\')) +
                                generatedName(random, number, false);
            const Handle hive =
                random.bounded(2) ? SettingsStore::MachineHive : SettingsStore::UserHive;
            Handle handle = 0;
            ASSERT_EQ(store->createKey(hive, key, handle), 0);
            for (int value = random.bounded(4); value > 0; --value) {
                const QString name = value == 3 ? QString() : generatedName(random, value, true);
                const QByteArray text =
                    (generatedName(random, value, true) + "\r\n").toUtf8() + QByteArray(1, 0);
                const QByteArray data =
                    random.bounded(2) ? text : QByteArray::number(random.generate(), 16);
                ASSERT_EQ(store->setValue(handle, name, random.bounded(1, 12), data), 0);
            }
            store->closeKey(handle);
            keys.append(key);
        }
        const QString backup = exported(*store);
        EXPECT_EQ(RoundTripFault(backup), QString()) << backup.toStdString();
    }
}

TEST_F(RegFileTest, NamesTheStoreRefusesImportNothingAndSaySoInOneLine)
{
    auto store = newStore(QStringLiteral("s.sqlite"));
    const QString before = exported(*store);
    const std::pair<QString, QString> refused[] = {
        {"[HKLM\\A" + QString(QChar(0)) + "B]\n",
         "line 1: key HKLM\\A\\0B cannot be created: \"A\\0B\" can't be stored"},
        {"[HKLM\\A]\n\"x\\ny\"=dword:1\n",
         "line 2: value \"x\\ny\" cannot be written: \"x\\ny\" can't be stored"},
        {"[HKLM\\A]\n\"x\\ry\"=\"\"\n", "line 2: value \"x\\ry\" cannot be written"},
    };
    for (const auto& [text, error] : refused) {
        const RegFile::ImportResult result = RegFile(*store).importText(text);
        EXPECT_FALSE(result.ok);
        EXPECT_TRUE(result.error.startsWith(error)) << result.error.toStdString();
        EXPECT_FALSE(result.error.contains('\n') || result.error.contains(QChar(0)));
        EXPECT_EQ(exported(*store), before);
    }
}

TEST_F(RegFileTest, AnOldStoreWithNamesNoLineCanHoldExportsTheRestAndSaysWhatItLeftOut)
{
    {
        auto store = newStore(QStringLiteral("old.sqlite"));
        set(*store, SettingsStore::MachineHive, QStringLiteral("Old\\Kept"), QStringLiteral("v"), 4,
            QByteArray(4, 0));
        set(*store, SettingsStore::MachineHive, QStringLiteral("Old\\Nul"), QStringLiteral("v"), 4,
            QByteArray(4, 0));
        set(*store, SettingsStore::MachineHive, QStringLiteral("Old\\Kept"), QStringLiteral("w"), 4,
            QByteArray(4, 0));
    }
    // A key named by one NUL, and a value named with a line break.
    ASSERT_TRUE(WriteAsAnOlderVersion(
        m_dir.filePath(QStringLiteral("old.sqlite")),
        "UPDATE store_keys SET name = CAST(X'00' AS TEXT), "
        "path = 'HKLM\\OLD\\' || CAST(X'00' AS TEXT) WHERE path = 'HKLM\\OLD\\NUL';"
        "UPDATE store_values SET name = 'a' || char(10) || 'b', folded = 'A' || char(10) || 'B' "
        "WHERE folded = 'W';"));
    SettingsStore store(m_dir.filePath(QStringLiteral("old.sqlite")));
    RegFile file(store);
    QString text;
    ASSERT_EQ(file.exportAll(text), 0);
    EXPECT_EQ(text, QStringLiteral("Windows Registry Editor Version 5.00\n\n[HKLM\\Old]\n\n"
                                   "[HKLM\\Old\\Kept]\n\"v\"=dword:00000000\n"));
    EXPECT_EQ(file.leftOut(), (QStringList{"HKLM\\Old\\\\0", "HKLM\\Old\\Kept \"a\\nb\""}));
}
} // namespace
