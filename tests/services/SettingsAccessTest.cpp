#include "services/SettingsAccess.h"

#include "services/VigilError.h"
#include "support/ServicesFixture.h"

namespace {
const QString OptionsKey = QStringLiteral("Software\\Orvane\\Vigil\\Options\\");
const QString K = QStringLiteral("K");

class SettingsAccessTest : public ServicesFixture
{
protected:
    bool keyExists(qint32 hive, const QString& path)
    {
        SettingsStore::Handle key = 0;
        const bool found = store().openKey(SettingsStore::Handle(hive), path, key) == 0;
        if (found)
            store().closeKey(key);
        return found;
    }

    // What ReadValue finds, or an invalid value when it fails.
    static QVariant stored(qint32 hive, const QString& key, const QString& name)
    {
        QVariant value;
        return ReadValue(hive, key, name, value) == 0 ? value : QVariant();
    }
};

TEST_F(SettingsAccessTest, NewerReadTakesTheDefaultAndWritesItBackOnlyWhenAsked)
{
    QVariant value;
    for (const bool writeDefault : {false, true}) {
        EXPECT_EQ(TransferValueEx(HKEY_LOCAL_MACHINE, OptionsKey, TransferRead, REG_DWORD,
                                  QStringLiteral("PollInterval"), value, 20000, writeDefault),
                  0);
        EXPECT_EQ(value, QVariant(20000));
        EXPECT_EQ(stored(HKEY_LOCAL_MACHINE, OptionsKey, "pollinterval"),
                  writeDefault ? QVariant(20000) : QVariant());
    }
    // A stored value wins over the default, and texts come back as texts.
    const QString text = QStringLiteral("Grüße aus Köln");
    ASSERT_EQ(WriteValue(HKEY_CURRENT_USER, K, QStringLiteral("T"), REG_SZ, text), 0);
    EXPECT_EQ(TransferValueEx(HKEY_CURRENT_USER, K, TransferRead, REG_SZ, QStringLiteral("t"),
                              value, QStringLiteral("default"), true),
              0);
    EXPECT_EQ(value, QVariant(text));
}

TEST_F(SettingsAccessTest, AValueOfAnotherTypeCountsAsMissing)
{
    SettingsStore::Handle key = 0;
    ASSERT_EQ(store().createKey(SettingsStore::MachineHive, K, key), 0);
    ASSERT_EQ(store().setValue(key, QStringLiteral("Blob"), 3, QByteArray("\x01\x02", 2)), 0);

    QVariant value;
    EXPECT_EQ(ApiRegQueryValueExNull(HKEY_LOCAL_MACHINE, K, QStringLiteral("Blob"), value), -1);
    EXPECT_EQ(ReadValue(HKEY_LOCAL_MACHINE, K, QStringLiteral("Blob"), value), -1);
    EXPECT_EQ(TransferValueEx(HKEY_LOCAL_MACHINE, K, TransferRead, REG_DWORD,
                              QStringLiteral("Blob"), value, 7, false),
              0);
    EXPECT_EQ(value, QVariant(7));
}

TEST_F(SettingsAccessTest, OlderReadLeavesTheCallersValueUnlessItWritesTheDefault)
{
    QVariant value = 42;
    EXPECT_NE(TransferValue(TransferRead, false, QStringLiteral("Options"),
                            QStringLiteral("Missing"), REG_DWORD, 7, value, false),
              0);
    EXPECT_EQ(value, QVariant(42));

    // Read under another root; the default lands under the default root.
    EXPECT_EQ(TransferValue(TransferRead, true, QStringLiteral("Section"), QStringLiteral("Name"),
                            REG_SZ, QStringLiteral("dflt"), value, true,
                            QStringLiteral("Software\\Elsewhere")),
              0);
    EXPECT_EQ(value, QVariant(QStringLiteral("dflt")));
    EXPECT_EQ(stored(HKEY_CURRENT_USER, QStringLiteral("Software\\Orvane\\Vigil\\Section"), "Name"),
              QVariant(QStringLiteral("dflt")));
    EXPECT_FALSE(keyExists(HKEY_CURRENT_USER, QStringLiteral("Software\\Elsewhere")));

    // A write goes to root, backslash, section.
    value = 5;
    EXPECT_EQ(TransferValue(TransferWrite, false, QStringLiteral("Options"), QStringLiteral("N"),
                            REG_DWORD, 0, value, false),
              0);
    EXPECT_EQ(stored(HKEY_LOCAL_MACHINE, OptionsKey, "N"), QVariant(5));
}

TEST_F(SettingsAccessTest, ANumberThatIsNotOneRaisesOrShowsTheNewerBox)
{
    EXPECT_THROW(WriteValue(HKEY_LOCAL_MACHINE, K, QStringLiteral("N"), REG_DWORD, "abc"),
                 VigilError);

    QVariant value = QStringLiteral("abc");
    EXPECT_EQ(TransferValueEx(HKEY_LOCAL_MACHINE, K, TransferWrite, REG_DWORD, QStringLiteral("N"),
                              value, 0, false),
              0);
    ASSERT_EQ(m_dialogs->boxes().size(), 1);
    EXPECT_EQ(m_dialogs->boxes()[0].title, QStringLiteral("TransferValueEx"));
    EXPECT_EQ(m_dialogs->boxes()[0].text, QStringLiteral("Type mismatch"));
    EXPECT_TRUE(m_dialogs->boxes()[0].foreground);
    EXPECT_EQ(value, QVariant(QStringLiteral("abc")));

    // Other types write nothing and succeed.
    EXPECT_EQ(WriteValue(HKEY_LOCAL_MACHINE, K, QStringLiteral("B"), 3, 1), 0);
    EXPECT_FALSE(stored(HKEY_LOCAL_MACHINE, K, "B").isValid());
}

TEST_F(SettingsAccessTest, EnumSubKeysListsFromTheFirstAndAnEmptyKeyAsOneEmptyName)
{
    QStringList names{QStringLiteral("left alone")};
    EXPECT_FALSE(EnumSubKeys(HKEY_LOCAL_MACHINE, names, QStringLiteral("Printers")));
    EXPECT_EQ(names, QStringList{QStringLiteral("left alone")});

    ASSERT_EQ(CreateKey(DefaultRootKey + QStringLiteral("\\Printers"), HKEY_LOCAL_MACHINE), 0);
    EXPECT_TRUE(EnumSubKeys(HKEY_LOCAL_MACHINE, names, QStringLiteral("Printers")));
    EXPECT_EQ(names, QStringList{QString()});

    for (const char* id : {"ID200001011200", "GP200001011200"})
        ASSERT_EQ(CreateKey(DefaultRootKey + "\\Printers\\" + id, HKEY_LOCAL_MACHINE), 0);
    EXPECT_TRUE(EnumSubKeys(HKEY_LOCAL_MACHINE, names, QStringLiteral("printers")));
    EXPECT_EQ(names, (QStringList{"GP200001011200", "ID200001011200"}));
}

TEST_F(SettingsAccessTest, WithoutAStoreReadsTakeDefaultsAndWritesFail)
{
    writeFile(QStringLiteral("junk"), QByteArray(8192, 'j'));
    SettingsStore::install(std::make_shared<SettingsStore>(m_home.filePath("junk")));

    QVariant value;
    EXPECT_EQ(TransferValueEx(HKEY_LOCAL_MACHINE, OptionsKey, TransferRead, REG_DWORD,
                              QStringLiteral("PollInterval"), value, 20000, true),
              0);
    EXPECT_EQ(value, QVariant(20000));
    EXPECT_NE(WriteValue(HKEY_LOCAL_MACHINE, OptionsKey, "PollInterval", REG_DWORD, 5000), 0);
    QStringList names;
    EXPECT_FALSE(EnumSubKeys(HKEY_LOCAL_MACHINE, names, QString()));
}
} // namespace
