#include "core/PresentTime.h"
#include "core/RunningControl.h"
#include "support/FakeClock.h"

namespace {
// What the host reads of one command: visible, enabled, and the state it passed in or got.
struct Update
{
    bool visible = false;
    bool enabled = false;
    qint16 state = -3;

    bool operator==(const Update&) const = default;
};

using OnUpdate = void (AddInControl::*)(bool&, bool&, qint16&);

class CommandsTest : public RunningControl
{
protected:
    Update ask(OnUpdate operation)
    {
        Update update{!m_bVisibleBefore, !m_bVisibleBefore, -3};
        (m_control.get()->*operation)(update.visible, update.enabled, update.state);
        return update;
    }

    // Whether the command is offered, both flags agreeing and the state left alone.
    bool offered(OnUpdate operation)
    {
        const Update update = ask(operation);
        EXPECT_EQ(update.visible, update.enabled);
        EXPECT_EQ(update.state, -3);
        return update.enabled;
    }

    // Starts with a group "Hall" holding "Line 2" beside "Line 1" at the top.
    void startSite()
    {
        start({"Line 1"});
        auto hall = shownGroup("GPHall", "Hall");
        hall->CreateUI();
        printer("IDLine2", "Line 2", *hall);
        m_view.addItem("GPHall", "IDLine2", "Line 2", 0);
    }

    bool m_bVisibleBefore = false;
};

TEST_F(CommandsTest, EachCommandIsOfferedForWhatIsSelected)
{
    startSite();
    const auto offers = [this] {
        QStringList names;
        const std::pair<const char*, OnUpdate> commands[] = {
            {"delete", &AddInControl::OnUpdateDoDelete},
            {"properties", &AddInControl::OnUpdateDoProperties},
            {"disable", &AddInControl::OnUpdateDoDisablePrinter},
            {"enable", &AddInControl::OnUpdateDoEnablePrinter},
            {"group", &AddInControl::OnUpdateDoAddGroup},
            {"printer", &AddInControl::OnUpdateDoAddPrinter},
            {"time", &AddInControl::OnUpdateDoSyncroniseTime},
            {"options", &AddInControl::OnUpdateDoDisplayOptions},
            {"poll", &AddInControl::OnUpdateDoEnablePolling},
            {"nopoll", &AddInControl::OnUpdateDoDisablePolling},
        };
        for (const auto& [name, operation] : commands)
            if (offered(operation))
                names << QString::fromLatin1(name);
        return names.join(' ');
    };

    m_view.selectItem("IDLine2");
    m_view.removeItem("IDLine2"); // nothing selected: what needs a printer is off
    ASSERT_TRUE(m_view.selectedKey().isEmpty());
    EXPECT_EQ(offers(), QStringLiteral("group printer time options nopoll"));
    m_view.selectItem("GPRoot");
    EXPECT_EQ(offers(), QStringLiteral("group printer time options nopoll"));
    m_view.selectItem("GPHall");
    m_control->DoDisablePrinter(); // a group's printers are left alone
    EXPECT_FALSE(g_oComponents->FindPrinter("Line 2")->Disabled());
    EXPECT_EQ(offers(), QStringLiteral("delete group printer time options nopoll"));
    m_view.selectItem(idOf("Line 1"));
    EXPECT_EQ(offers(),
              QStringLiteral("delete properties disable group printer time options nopoll"));
    m_control->DoDisablePrinter();
    m_control->DoDisablePrinter(); // again: still disabled, not flipped
    m_control->DoDisablePolling();
    EXPECT_EQ(offers(), QStringLiteral("delete properties enable group printer time options poll"));
    EXPECT_TRUE(m_control->scheduler().pollingDisabled());

    // The answers don't hang on what the host passed in; clearing assignments is always
    // enabled and leaves the host's visibility alone.
    m_control->DoEnablePolling();
    m_control->DoEnablePrinter();
    m_bVisibleBefore = true;
    EXPECT_EQ(offers(),
              QStringLiteral("delete properties disable group printer time options nopoll"));
    EXPECT_EQ(ask(&AddInControl::OnUpdateDoClearFileAssignments), (Update{false, true, -3}));
    EXPECT_TRUE(m_dialogs->boxes().isEmpty());
}

TEST_F(CommandsTest, AUserWithoutTheRightIsToldOrIgnoredAsTheCommandSays)
{
    startSite();
    m_application->administrator = false;
    m_application->userName = QStringLiteral("operator");
    m_view.selectItem("GPHall");
    EXPECT_FALSE(offered(&AddInControl::OnUpdateDoDelete));
    m_control->DoAddGroup();
    m_control->DoDelete();
    EXPECT_TRUE(m_dialogs->boxes().isEmpty());
    EXPECT_EQ(g_oComponents->Count(), 2);

    m_view.selectItem(idOf("Line 1"));
    m_control->DoAddPrinter();
    m_control->DoDisablePrinter();
    m_control->DoEnablePrinter();
    ASSERT_EQ(m_dialogs->boxes().size(), 3);
    for (const auto& box : m_dialogs->boxes()) {
        EXPECT_EQ(box.text, QStringLiteral("operator may not change the printers."));
        EXPECT_EQ(box.icon, IDialogs::Icon::Warning);
    }
    EXPECT_FALSE(g_oComponents->FindPrinter("Line 1")->Disabled());

    // A user the application can't name is called by the catalogue's word.
    m_application->userName.clear();
    m_control->DoAddPrinter();
    EXPECT_EQ(m_dialogs->boxes().last().text,
              QStringLiteral("this user may not change the printers."));

    // Anybody may read a printer's state: the context menu's read needs no right.
    m_control->treePrinters_NodeClick(idOf("Line 1"));
    EXPECT_EQ(m_dialogs->boxes().size(), 4);
}

TEST_F(CommandsTest, TheClockGoesToEveryPrinterBelowTheSelection)
{
    auto clock = std::make_shared<FakeClock>();
    clock->setNow(QDateTime(QDate(2026, 11, 22), QTime(6, 0)));
    InstallClock(clock);
    startSite();
    const QString synced = QStringLiteral("SyncTime 2026-11-22T06:00:00");
    m_view.selectItem("GPHall");
    m_control->DoSyncroniseTime();
    m_view.selectItem("GPRoot");
    m_control->DoSyncroniseTime();
    EXPECT_EQ(handlerNamed("Line 1").calls.count(synced), 1);
    EXPECT_EQ(handlerNamed("Line 2").calls.count(synced), 2);
    InstallClock(nullptr);
}

TEST_F(CommandsTest, TheFileViewTakesThePaneAndGivesItBack)
{
    startSite();
    click(idOf("Line 1"));
    EXPECT_EQ(ask(&AddInControl::OnUpdateDoDisplayFileView), (Update{true, true, 0}));

    m_control->DoDisplayFileView();
    EXPECT_TRUE(m_control->IsFileViewShowing());
    EXPECT_EQ(m_pages.pageNames(), QStringList{"FileView"});
    EXPECT_EQ(m_pages.pageClass("FileView"), QStringLiteral("KorvexVigil.FileViewControl"));
    EXPECT_FALSE(m_pages.areScrollBarsVisible());
    EXPECT_EQ(ask(&AddInControl::OnUpdateDoDisplayFileView), (Update{true, true, 1}));

    // The selection moves on while the file view stays.
    click("GPHall");
    EXPECT_TRUE(m_control->IsFileViewShowing());
    EXPECT_EQ(m_control->currentComponent()->m_sID, QStringLiteral("GPHall"));

    m_control->DoDisplayFileView();
    EXPECT_FALSE(m_control->IsFileViewShowing());
    EXPECT_EQ(m_pages.pageNames(), QStringList{"IDGPHall"});
    EXPECT_TRUE(m_pages.areScrollBarsVisible());
}
} // namespace
