#include "core/TreeFixture.h"

namespace {
class TreePersistenceTest : public TreeFixture
{
protected:
    void SetUp() override
    {
        TreeFixture::SetUp();
        writeCatalogue(30, {{23, "All Printers"}});
    }

    static QVariant stored(const QString& key, const QString& name)
    {
        return storedValue(DefaultRootKey + QLatin1Char('\\') + key, name);
    }

    // A root loaded from the store as start-up loads it.
    static std::shared_ptr<clsComponents> reload()
    {
        auto root = std::make_shared<clsComponents>();
        root->m_sID = QStringLiteral("GPRoot");
        root->CreateUI();
        root->LoadState(QStringLiteral("Printers"));
        return root;
    }
};

TEST_F(TreePersistenceTest, TheTreeIsSavedInItsKeyLayoutAndComesBack)
{
    clsComponents& root = *g_oComponents;
    root.CreateUI();
    auto lines = group("GP1", "Lines", root);
    lines->CreateUI();
    auto one = printer("ID1", "Line 1", *lines);
    for (const char* name : {"A", "B", "C"})
        one->AddStoredSetting(name, QString::number(name[0] - 'A' + 1));
    one->RemoveStoredSetting("B");
    printer("ID2", "Line 2", root);
    m_control->Save();

    EXPECT_EQ(stored("Printers", "ID"), QVariant("GPRoot"));
    EXPECT_EQ(stored("Printers", "GLV"), QVariant("True"));
    EXPECT_EQ(stored("Printers\\GP1", "Name"), QVariant("Lines"));
    EXPECT_EQ(stored("Printers\\ID2", "ExtendedCount"), QVariant(-1));
    EXPECT_FALSE(stored("Printers\\ID2", "Ext.0.Name").isValid());
    EXPECT_EQ(stored("Printers\\GP1\\ID1", "ObjPrinterNumber"), QVariant(9000));
    EXPECT_EQ(stored("Printers\\GP1\\ID1", "ObjName"), QVariant("ScriptedHandler"));
    // The freed row is compacted away: rows are renumbered.
    EXPECT_EQ(stored("Printers\\GP1\\ID1", "ExtendedCount"), QVariant(1));
    EXPECT_EQ(stored("Printers\\GP1\\ID1", "Ext.1.Name"), QVariant("C"));
    EXPECT_EQ(stored("GLV\\Printers", "ObjName"), QVariant("GroupHandler"));
    EXPECT_EQ(stored("GLV\\Printers\\GP1", "ObjControl"), QVariant("GroupUI"));

    auto loaded = reload();
    EXPECT_EQ(loaded->m_sName, QStringLiteral("All Printers"));
    ASSERT_EQ(loaded->Count(), 2);
    auto* again = dynamic_cast<clsComponent*>(loaded->Find("ID1"));
    ASSERT_NE(again, nullptr);
    EXPECT_EQ(again->m_sName, QStringLiteral("Line 1"));
    EXPECT_EQ(again->m_lRemoteObjectPrinterNumber, 9000);
    QString value;
    EXPECT_TRUE(again->GetStoredSetting("C", value));
    EXPECT_EQ(value, QStringLiteral("3"));
    EXPECT_FALSE(again->GetStoredSetting("B", value));
    auto* loadedLines = dynamic_cast<clsComponents*>(loaded->Find("GP1"));
    ASSERT_NE(loadedLines, nullptr);
    EXPECT_TRUE(loadedLines->HasUI());
}

TEST_F(TreePersistenceTest, AMovedPrinterLeavesNoOldCopyAndStaleKeysGo)
{
    clsComponents& root = *g_oComponents;
    auto lines = group("GP1", "Lines", root);
    auto moved = printer("ID1", "Line 1", *lines);
    m_control->Save();
    ASSERT_EQ(CreateKey(DefaultRootKey + "\\Printers\\Stale", HKEY_LOCAL_MACHINE), 0);
    EXPECT_EQ(reload()->Count(), 1); // the stale key is skipped

    lines->Remove("ID1");
    root.AddComponent("ID1", moved);
    m_control->Save();
    EXPECT_EQ(storedChildren("Printers"), (QStringList{"GP1", "ID1"}));
    EXPECT_EQ(storedChildren("Printers\\GP1"), QStringList{""});
}

TEST_F(TreePersistenceTest, AnEmptyStoreGivesTheRootAndWritesItsDefaults)
{
    EXPECT_EQ(reload()->Count(), 0);
    EXPECT_EQ(stored("Printers", "ID"), QVariant("GPRoot"));
    EXPECT_EQ(stored("Printers", "GLV"), QVariant("False"));
}

TEST_F(TreePersistenceTest, DamagedKeysLoadWhatTheyCan)
{
    const QString key = DefaultRootKey + "\\Printers\\ID1";
    ASSERT_EQ(WriteValue(HKEY_LOCAL_MACHINE, key, "Name", REG_SZ, "Line 1"), 0);
    ASSERT_EQ(WriteValue(HKEY_LOCAL_MACHINE, key, "ObjPrinterNumber", REG_SZ, "not a number"), 0);
    ASSERT_EQ(WriteValue(HKEY_LOCAL_MACHINE, key, "ExtendedCount", REG_DWORD, 2000000000), 0);
    ASSERT_EQ(WriteValue(HKEY_LOCAL_MACHINE, key, "Ext.0.Name", REG_SZ, "Only"), 0);
    ASSERT_EQ(WriteValue(HKEY_LOCAL_MACHINE, DefaultRootKey + "\\Printers", "Name", REG_DWORD, 7),
              0);

    auto loaded = reload();
    auto* node = dynamic_cast<clsComponent*>(loaded->Find("ID1"));
    ASSERT_NE(node, nullptr);
    EXPECT_EQ(node->m_lRemoteObjectPrinterNumber, 0);
    EXPECT_EQ(node->GetStoredSettingByIdx(0, true), QStringLiteral("Only"));
    EXPECT_EQ(node->GetStoredSettingByIdx(1, true), QStringLiteral("-1"));
}

TEST_F(TreePersistenceTest, ASaveThatFailsLeavesThePreviousTreeWhole)
{
    class FailingNode : public clsComponent
    {
    public:
        void Save(const QString&) override
        {
            throw VigilError(61, QStringLiteral("FailingNode"), QStringLiteral("Disk full"));
        }
    };
    clsComponents& root = *g_oComponents;
    printer("ID1", "Line 1", root);
    m_control->Save();

    printer("ID2", "Line 2", root);
    auto failing = std::make_shared<FailingNode>();
    failing->m_sID = QStringLiteral("ID3");
    root.AddComponent("ID3", failing);
    m_control->Save();

    ASSERT_EQ(m_dialogs->boxes().size(), 1);
    EXPECT_EQ(m_dialogs->boxes()[0].title, QStringLiteral("AddInControl - Save - Korvex Vigil"));
    EXPECT_EQ(m_dialogs->boxes()[0].text, QStringLiteral("Disk full - 61"));
    EXPECT_EQ(storedChildren("Printers"), QStringList{"ID1"});
}
} // namespace
