#include "core/RunningControl.h"

namespace {
// The control from start-up to going down.
class StartUpTest : public RunningControl
{
protected:
    // A tree saved by an earlier run: a group "Hall" with the printer "Old", and "Kept" at
    // the top.
    void storeEarlierTree()
    {
        const QString printers = DefaultRootKey + "\\Printers";
        for (const auto& [key, name] :
             {std::pair{"\\GP1", "Hall"}, {"\\GP1\\ID1", "Old"}, {"\\ID2", "Kept"}})
            ASSERT_EQ(WriteValue(HKEY_LOCAL_MACHINE, printers + key, "Name", REG_SZ, name), 0);
        ASSERT_EQ(
            WriteValue(HKEY_LOCAL_MACHINE, printers + "\\ID2", "ObjPrinterNumber", REG_DWORD, 900),
            0);
    }
};

TEST_F(StartUpTest, AnEmptyStoreGivesTheRootWithEveryQueue)
{
    m_application->queues.add("Line 1", 900);
    m_application->queues.add("Line 2", 2020);
    m_application->queues.add("Line 2", 901); // a second queue of the same name isn't added
    m_control->UserControl_Initialize();

    EXPECT_EQ(m_view.children(QString()), QStringList{"GPRoot"});
    EXPECT_EQ(m_view.children("GPRoot").size(), 2);
    EXPECT_TRUE(m_view.isExpanded("GPRoot"));
    EXPECT_EQ(m_view.selectedKey(), QStringLiteral("GPRoot"));
    // Saved before the first tick, and polling has begun.
    EXPECT_EQ(storedChildren("Printers").size(), 2);
    EXPECT_TRUE(m_timer1.isEnabled() && m_timeout.isEnabled());
    EXPECT_EQ(m_timer1.interval(), 20000);
    EXPECT_TRUE(m_dialogs->boxes().isEmpty());

    // The menus speak the catalogue's language, and the root's dashboard is on show.
    EXPECT_EQ(m_menus.caption(IContextMenus::Entry::GroupRename), QStringLiteral("Rename"));
    EXPECT_EQ(m_menus.caption(IContextMenus::Entry::TreePrinterProperties),
              QStringLiteral("Printer properties..."));
    EXPECT_EQ(m_pages.pageClass("IDGPRoot"), DashboardPage);
    EXPECT_EQ(m_pages.containerBackColour(), WindowBackground);
    ASSERT_NE(shownPage(), nullptr);
    EXPECT_EQ(shownPage()->name, QStringLiteral("All Printers"));
}

TEST_F(StartUpTest, TheSplitComesBackFromTheStoreAndGoesBackOnSave)
{
    // Never saved: the pane keeps its design width, and the read writes nothing.
    m_control->UserControl_Initialize();
    EXPECT_EQ(m_pages.treeWidth(), MemoryPagePane::DesignSplit);
    QVariant split;
    EXPECT_EQ(ReadValue(HKEY_LOCAL_MACHINE, DefaultRootKey, "Split", split), 2);

    m_pages.moveSplitter(4200);
    m_control->Save();
    MemoryPagePane nextPanes;
    AddInControl nextRun(ControlPorts{m_view, nextPanes, m_menus, m_timer1, m_timeout});
    m_control->UserControl_Hide();
    g_bExiting = false;
    nextRun.UserControl_Initialize();
    EXPECT_EQ(nextPanes.treeWidth(), 4200);
    nextRun.UserControl_Hide();
}

TEST_F(StartUpTest, TheSavedTreeIsReconciledWithTheQueues)
{
    storeEarlierTree();
    m_application->queues.add("Kept", 900);
    m_application->queues.add("New", 900);
    m_control->UserControl_Initialize();

    EXPECT_EQ(g_oComponents->Count(), 3); // Hall, Kept, New
    auto* hall = dynamic_cast<clsComponents*>(g_oComponents->Find("GP1"));
    ASSERT_NE(hall, nullptr);
    EXPECT_EQ(hall->Count(), 0); // Old's queue has gone; the group stays
    EXPECT_EQ(g_oComponents->FindParent(idOf("New")), g_oComponents.get());
    EXPECT_EQ(storedChildren("Printers\\GP1"), QStringList{""});
    EXPECT_TRUE(m_view.hasItem("GP1"));
    EXPECT_FALSE(m_view.hasItem("ID1"));
}

TEST_F(StartUpTest, AUserWhoMayNotChangeTheTreeKeepsPrintersWhoseQueueWent)
{
    storeEarlierTree();
    m_application->administrator = false;
    m_control->UserControl_Initialize();
    EXPECT_NE(g_oComponents->Find("ID1"), nullptr);
    EXPECT_NE(g_oComponents->Find("ID2"), nullptr);
}

TEST_F(StartUpTest, QueuesComingAndGoingWhileRunning)
{
    m_application->queues.add("Line 1", 900);
    m_control->UserControl_Initialize();
    const QString line1 = idOf("Line 1");

    // With a printer selected, a new printer becomes its sibling.
    m_view.selectItem(line1);
    m_application->queues.add("Line 2", 900);
    ASSERT_FALSE(idOf("Line 2").isEmpty());
    EXPECT_EQ(m_view.item(idOf("Line 2")).parent, QStringLiteral("GPRoot"));
    EXPECT_EQ(storedChildren("Printers").size(), 2);

    // A removed queue takes its node and item, and the tree is saved.
    m_application->queues.remove("Line 1");
    EXPECT_EQ(g_oComponents->FindPrinter("Line 1"), nullptr);
    EXPECT_FALSE(m_view.hasItem(line1));
    EXPECT_EQ(storedChildren("Printers"), QStringList{idOf("Line 2")});

    // For a user who may not delete, a removed queue leaves the printer.
    m_application->administrator = false;
    m_application->queues.remove("Line 2");
    EXPECT_NE(g_oComponents->FindPrinter("Line 2"), nullptr);
    EXPECT_TRUE(m_dialogs->boxes().isEmpty());
}

TEST_F(StartUpTest, WithoutTheApplicationTheControlStaysUnpolled)
{
    InstallApplicationFactory(nullptr);
    m_control->UserControl_Initialize();
    ASSERT_EQ(m_dialogs->boxes().size(), 2); // Retry/Cancel, then the start-up trap
    EXPECT_EQ(m_dialogs->boxes()[1].title,
              QStringLiteral("AddInControl - UserControl_Initialize - Korvex Vigil"));
    EXPECT_FALSE(m_timer1.isEnabled());
    EXPECT_FALSE(g_oComponents);
}

TEST_F(StartUpTest, DisposeRunsOnceAndLetsEveryHandlerGo)
{
    m_application->queues.add("Line 1", 900);
    m_control->UserControl_Initialize();
    m_control->Dispose();
    EXPECT_TRUE(g_bExiting);
    EXPECT_FALSE(g_oComponents);
    EXPECT_FALSE(m_timer1.isEnabled());
    EXPECT_EQ(storedChildren("Printers").size(), 1);
    EXPECT_TRUE(storedChildren("Printers").first().startsWith("ID"));

    ASSERT_EQ(DeleteKeyTree(HKEY_LOCAL_MACHINE, QString(), "Printers"), 0);
    m_control->Dispose(); // does nothing: the tree isn't written again
    EXPECT_TRUE(storedChildren("Printers").isEmpty());
    EXPECT_TRUE(m_control->CheckExit());
}

TEST_F(StartUpTest, TheLibraryStartsWithTheWordForNoPrinter)
{
    g_bExiting = true;
    LibraryStart();
    EXPECT_EQ(g_sNoPrinter, QStringLiteral("<none>"));
    EXPECT_FALSE(g_bExiting);
}
} // namespace
