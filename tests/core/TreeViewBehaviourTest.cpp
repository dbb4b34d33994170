#include "core/RunningControl.h"

namespace {
using TreeViewBehaviourTest = RunningControl;

TEST_F(TreeViewBehaviourTest, TheSelectionPicksThePageBesideTheTree)
{
    start({"Line 1", "Line 2"});
    const QString line1 = idOf("Line 1");
    click(line1);
    RecordingPage* printerPage = shownPage();
    ASSERT_NE(printerPage, nullptr);
    EXPECT_EQ(m_pages.pageNames(), QStringList{line1}); // the dashboard's page has gone
    EXPECT_EQ(m_pages.pageClass(line1), PrinterPage);
    EXPECT_EQ(printerPage->name, QStringLiteral("Line 1"));
    EXPECT_EQ(printerPage->handler, g_oComponents->FindPrinter("Line 1")->GetComponent());
    EXPECT_EQ(m_pages.containerBackColour(), ButtonFace);
    EXPECT_TRUE(m_pages.isPageParentVisible());

    // The printer already shown keeps its page, scroll position and all.
    const int resets = m_pages.scrollBarResets();
    const int made = RecordingPage::made;
    click(line1);
    EXPECT_EQ(shownPage(), printerPage);
    EXPECT_EQ(RecordingPage::made, made);
    EXPECT_EQ(m_pages.scrollBarResets(), resets);

    // The group already current builds its dashboard anew: its id isn't its dashboard's.
    click("GPRoot");
    click("GPRoot");
    EXPECT_EQ(RecordingPage::made, made + 2);
    EXPECT_EQ(m_pages.pageNames(), QStringList{"IDGPRoot"});

    // A group without a dashboard clears the pane and hides it.
    auto bare = shownGroup("GPBare", "Bare");
    click("GPBare");
    EXPECT_EQ(m_control->currentControl(), nullptr);
    EXPECT_TRUE(m_pages.pageNames().isEmpty());
    EXPECT_FALSE(m_pages.isPageParentVisible());
    EXPECT_EQ(m_control->currentComponent(), bare);
    EXPECT_TRUE(m_dialogs->boxes().isEmpty());
}

TEST_F(TreeViewBehaviourTest, NewGroupsAreNamedSelectedAndOpenedForTheirName)
{
    start({"Line 1"});
    QStringList names;
    for (int i = 0; i < 3; ++i) {
        m_view.selectItem("GPRoot");
        m_control->DoAddGroup();
        const QString id = m_view.selectedKey();
        ASSERT_TRUE(id.startsWith("GP") && id != "GPRoot");
        EXPECT_EQ(m_view.parentKey(id), QStringLiteral("GPRoot"));
        EXPECT_EQ(m_view.editedKey(), id);
        EXPECT_EQ(m_control->currentComponent()->m_sID, id);
        EXPECT_EQ(m_pages.pageClass("ID" + id), DashboardPage);
        names << g_oComponents->Find(id)->m_sName;
    }
    EXPECT_EQ(names, (QStringList{"New Group", "New Group 1", "New Group 2"}));
    EXPECT_EQ(storedChildren("Printers").size(), 4);

    // With a printer selected the group goes beside it.
    m_view.selectItem(idOf("Line 1"));
    m_control->DoAddGroup();
    EXPECT_EQ(m_view.parentKey(m_view.selectedKey()), QStringLiteral("GPRoot"));
}

TEST_F(TreeViewBehaviourTest, RenamingKeepsGroupNamesUniqueAmongSiblings)
{
    start({"Line 1"});
    shownGroup("GPA", "Hall A");
    shownGroup("GPB", "Hall B");

    // A printer's name is its queue's: its edit is cancelled before it begins.
    bool cancel = false;
    click(idOf("Line 1"));
    m_control->treePrinters_BeforeLabelEdit(cancel);
    EXPECT_TRUE(cancel);
    cancel = false;
    click("GPB");
    m_control->treePrinters_BeforeLabelEdit(cancel);
    EXPECT_FALSE(cancel);

    m_control->treePrinters_AfterLabelEdit(cancel, "Hall A");
    EXPECT_TRUE(cancel);
    EXPECT_EQ(g_oComponents->Find("GPB")->m_sName, QStringLiteral("Hall B"));
    ASSERT_EQ(m_dialogs->boxes().size(), 1);
    EXPECT_EQ(m_dialogs->boxes()[0].text, QStringLiteral("A group of that name is already there."));

    cancel = false;
    m_control->treePrinters_AfterLabelEdit(cancel, "Line 1"); // a printer's name is no clash
    EXPECT_FALSE(cancel);
    EXPECT_EQ(g_oComponents->Find("GPB")->m_sName, QStringLiteral("Line 1"));
    EXPECT_EQ(storedValue(DefaultRootKey + "\\Printers\\GPB", "Name"), QVariant("Line 1"));

    // An edit the view cancelled changes nothing.
    cancel = true;
    m_control->treePrinters_AfterLabelEdit(cancel, "Other");
    EXPECT_EQ(g_oComponents->Find("GPB")->m_sName, QStringLiteral("Line 1"));

    // A name the store can't take back from a backup is refused, and said.
    cancel = false;
    m_control->treePrinters_AfterLabelEdit(cancel, "Hall\nB");
    EXPECT_TRUE(cancel);
    EXPECT_EQ(g_oComponents->Find("GPB")->m_sName, QStringLiteral("Line 1"));
    ASSERT_EQ(m_dialogs->boxes().size(), 2);
    EXPECT_TRUE(m_dialogs->boxes()[1].text.startsWith("\"Hall\\nB\" can't be stored"))
        << m_dialogs->boxes()[1].text.toStdString();

    // The root takes a new name for this run.
    click("GPRoot");
    cancel = false;
    m_control->treePrinters_AfterLabelEdit(cancel, "Site");
    EXPECT_EQ(g_oComponents->m_sName, QStringLiteral("Site"));
}

TEST_F(TreeViewBehaviourTest, DeletingAGroupAsksOnceAndTakesItsPrinters)
{
    start();
    auto hall = shownGroup("GPHall", "Hall");
    hall->CreateUI();
    ScriptedHandler& handler = handlerOf(*printer("IDP", "Line 1", *hall));
    m_view.addItem("GPHall", "IDP", "Line 1", 0);
    click("GPHall");

    m_dialogs->answerNext(IDialogs::Answer::No);
    m_control->DoDelete();
    ASSERT_EQ(m_dialogs->boxes().size(), 1);
    EXPECT_EQ(m_dialogs->boxes()[0].text, QStringLiteral("Delete Hall?"));
    EXPECT_NE(g_oComponents->Find("GPHall"), nullptr);
    EXPECT_FALSE(handler.calls.contains("Delete"));

    const int closeDowns = ScriptedHandler::closeDowns;
    const int deletes = ScriptedHandler::deletes;
    m_dialogs->answerNext(IDialogs::Answer::Yes);
    m_control->DoDelete();
    EXPECT_EQ(m_dialogs->boxes().size(), 2);
    EXPECT_EQ(g_oComponents->Find("GPHall"), nullptr);
    EXPECT_EQ(ScriptedHandler::deletes, deletes + 1); // its queue goes too
    EXPECT_EQ(ScriptedHandler::closeDowns, closeDowns + 1);
    EXPECT_FALSE(m_view.hasItem("GPHall"));
    EXPECT_EQ(m_control->currentControl(), nullptr); // its dashboard went with it
    EXPECT_FALSE(m_pages.isPageParentVisible());
    EXPECT_FALSE(storedChildren("Printers").contains("GPHall"));

    // A click that comes late for the printer that went with it is the look-up's error, and
    // so is one for a top-level item that isn't the root; the page stays as it was.
    m_view.addItem({}, "IDStray", "Stray", 0);
    for (const QString key : {"IDP", "IDStray"}) {
        const int boxes = m_dialogs->boxes().size();
        m_control->treePrinters_NodeClick(key);
        ASSERT_EQ(m_dialogs->boxes().size(), boxes + 1) << key.toStdString();
        EXPECT_EQ(m_dialogs->boxes().last().title,
                  "AddInControl - SearchTreeForNodesObject - Korvex Vigil");
        EXPECT_EQ(m_control->currentControl(), nullptr);
    }
    EXPECT_TRUE(m_dialogs->boxes().last().text.endsWith(" - 5"));
    EXPECT_TRUE(m_dialogs->boxes()[2].text.endsWith(" - 35601"));
    m_view.removeItem("IDStray");

    // The root can't go, for an administrator either.
    m_view.selectItem("GPRoot");
    m_control->DoDelete();
    EXPECT_EQ(m_dialogs->boxes().last().text, QStringLiteral("The top group can't be deleted."));
    EXPECT_EQ(g_oComponents->Count(), 0);
}

TEST_F(TreeViewBehaviourTest, TheRightButtonPopsUpTheMenuOfWhatIsUnderIt)
{
    start({"Line 1"});
    const QString line1 = idOf("Line 1");
    m_view.placeItemAt(10, 20, "GPRoot");
    m_view.placeItemAt(10, 260, line1);
    click(line1);

    m_control->treePrinters_MouseUp(1, 0, 10, 20);   // the left button: nothing
    m_control->treePrinters_MouseUp(2, 0, 500, 500); // nothing there: nothing
    EXPECT_FALSE(m_menus.lastPopup());

    m_control->treePrinters_MouseUp(2, 0, 10, 20);
    EXPECT_EQ(m_menus.lastPopup(), IContextMenus::Menu::Group);
    EXPECT_EQ(m_control->clickedNode(), QStringLiteral("GPRoot"));
    EXPECT_EQ(m_view.selectedKey(), line1); // the selection stays where it was

    g_oComponents->FindPrinter("Line 1")->setDisabled(true);
    m_control->treePrinters_MouseUp(2, 0, 10, 260);
    EXPECT_EQ(m_menus.lastPopup(), IContextMenus::Menu::Tree);
    EXPECT_TRUE(m_menus.isDisableChecked());

    // The menus act on the selection, not on the item clicked.
    m_control->mnuTreeDisable_Click();
    EXPECT_FALSE(g_oComponents->FindPrinter("Line 1")->Disabled());
    m_control->mnuTreePrinterProperties_Click();
    EXPECT_TRUE(handlerNamed("Line 1").calls.contains("ShowProperties"));

    m_control->mnuGroupItem_Click(5); // a printer's name can't be edited
    EXPECT_TRUE(m_view.editedKey().isEmpty());
    m_view.selectItem("GPRoot");
    m_control->mnuGroupItem_Click(5);
    EXPECT_EQ(m_view.editedKey(), QStringLiteral("GPRoot"));

    m_view.selectItem(line1);
    m_dialogs->answerNext(IDialogs::Answer::Yes);
    const int deletes = ScriptedHandler::deletes;
    m_control->mnuGroupItem_Click(4);
    EXPECT_EQ(g_oComponents->FindPrinter("Line 1"), nullptr);
    EXPECT_EQ(ScriptedHandler::deletes, deletes + 1);

    m_view.selectItem("GPRoot");
    m_control->mnuGroupItem_Click(2);
    ASSERT_EQ(g_oComponents->Count(), 1);
    EXPECT_TRUE(g_oComponents->Item(1)->isGroup());
}

TEST_F(TreeViewBehaviourTest, F5RecoloursPrintersFromWhatTheyAlreadyKnow)
{
    start({"Line 1", "Line 2"});
    const QString line1 = idOf("Line 1");
    ScriptedHandler& handler = handlerNamed("Line 1");
    m_view.setItemColours(line1, 1, 2);
    m_view.setItemColours("GPRoot", 1, 2);
    handler.state = StateFault; // known to the handler, not yet shown
    handler.calls.clear();

    m_control->UserControl_KeyDown(115, 0); // F4: nothing
    EXPECT_EQ(m_view.item(line1).background, 1u);
    m_control->UserControl_KeyDown(AddInControl::KeyF5, 0);
    EXPECT_EQ(m_view.item(line1).background, LookUpColour(StateFault, TreePalette, false));
    EXPECT_EQ(m_view.item(line1).foreground, LookUpColour(StateFault, TreePalette, true));
    EXPECT_EQ(m_view.item("GPRoot").background, 1u); // groups are left as they are
    EXPECT_EQ(m_view.refreshes(), 1);
    EXPECT_FALSE(handler.calls.contains("Process"));
}

TEST_F(TreeViewBehaviourTest, PrintersMoveBetweenGroupsByDrag)
{
    start({"Filler", "Capper"});
    const QString filler = idOf("Filler");
    auto line2 = shownGroup("GPLine2", "Line 2");
    m_view.placeItemAt(10, 10, filler);
    m_view.placeItemAt(10, 20, idOf("Capper"));
    m_view.placeItemAt(10, 30, "GPLine2");
    ComponentHandler* handler = g_oComponents->FindPrinter("Filler")->GetComponent();

    // The drag starts from where the button went down.
    DragData data;
    m_control->treePrinters_MouseDown(1, 0, 10, 10);
    m_control->treePrinters_OLEStartDrag(data);
    ASSERT_EQ(data.text, "MSComponent " + filler);

    int effect = -1;
    m_control->treePrinters_OLEDragOver(data, effect, 10, 30, DragEnter);
    EXPECT_EQ(effect, DropEffectMove);
    EXPECT_EQ(m_view.dropHighlight(), "GPLine2");

    // Onto a printer: shown as a move, and nothing moves.
    m_control->treePrinters_OLEDragDrop(data, 10, 20);
    EXPECT_EQ(m_view.parentKey(filler), "GPRoot");

    m_control->treePrinters_OLEDragDrop(data, 10, 30);
    m_control->treePrinters_OLECompleteDrag();
    EXPECT_EQ(m_view.parentKey(filler), "GPLine2");
    EXPECT_EQ(g_oComponents->FindParent(filler), line2.get());
    EXPECT_EQ(g_oComponents->FindPrinter("Filler")->GetComponent(), handler); // same handler
    EXPECT_TRUE(m_view.dropHighlight().isEmpty());
    EXPECT_TRUE(storedChildren("Printers\\GPLine2").contains(filler));

    // A group drags, but nothing takes it; a foreign text neither.
    DragData groupDrag{QStringLiteral("MSComponent GPLine2"), std::nullopt};
    effect = -1;
    m_control->treePrinters_OLEDragOver(groupDrag, effect, 10, 30, DragOver);
    EXPECT_EQ(effect, DropEffectNone);
    DragData foreign{QStringLiteral("hello"), std::nullopt};
    effect = -1;
    m_control->treePrinters_OLEDragOver(foreign, effect, 10, 30, DragOver);
    EXPECT_EQ(effect, DropEffectNone);
    m_control->treePrinters_OLEDragOver(foreign, effect, 10, 30, DragLeave);
    EXPECT_TRUE(m_view.dropHighlight().isEmpty());
    // Even dropped by force, a group never goes inside itself.
    m_control->treePrinters_OLEDragDrop(groupDrag, 10, 30);
    EXPECT_EQ(m_view.parentKey("GPLine2"), "GPRoot");
    EXPECT_TRUE(m_dialogs->boxes().isEmpty());
}
} // namespace
