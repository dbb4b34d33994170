// The host window's glance at the site: the counts in the status bar and what their buttons
// select, the title led by the worst trouble, the note while polling is off, and what the
// window does for the trouble notices.

#include "core/Globals.h"
#include "core/PresentTime.h"
#include "core/StateCounts.h"
#include "core/clsComponent.h"
#include "core/clsComponents.h"
#include "pages/PageRegistry.h"
#include "platform/host/GlanceTitle.h"
#include "platform/host/MainWindow.h"
#include "printing/clsLBXHandler.h"
#include "support/EventLoop.h"
#include "support/FakeApplication.h"
#include "support/FakeClock.h"
#include "support/ScriptedHandler.h"
#include "support/ServicesFixture.h"
#include "ui/WidgetApplication.h"

#include <QMenuBar>
#include <QToolButton>

namespace {
class SiteGlanceTest : public ServicesFixture
{
protected:
    static void SetUpTestSuite() { EnsureWidgetApplication(); }
    void SetUp() override
    {
        ServicesFixture::SetUp();
        writeCatalogue(450, {}, "text ");
        LibraryStart();
        RegisterPages();
        InstallClock(m_clock);
        m_application->administrator = true;
        for (const char* name : {"A", "B", "C"})
            m_application->queues.add(name, ScriptedHandler::FirstNumber);
        InstallApplicationFactory([this] { return m_application; });
        m_window->start();
        // The first count comes at the next turn of the loop.
        ASSERT_TRUE(WaitUntil([this] { return good().text() == "3 good"; }));
    }
    void TearDown() override
    {
        m_window.reset();
        InstallClock(nullptr);
        UnregisterPages();
        ReleaseGlobalLBX();
        InstallApplicationFactory(nullptr);
        ServicesFixture::TearDown();
    }

    QToolButton& good() { return *m_window->glance().bar().button(StateGood); }
    QToolButton& faults() { return *m_window->glance().bar().button(StateFault); }
    QString selectedName() const
    {
        const QString key = m_window->controlWidget().treeView().selectedKey();
        const TreeNode* node = g_oComponents->Find(key);
        return node ? node->m_sName : key;
    }

    static void turn(const QString& name, ErrorState state)
    {
        auto& handler =
            static_cast<ScriptedHandler&>(*g_oComponents->FindPrinter(name)->GetComponent());
        handler.state = state;
        handler.RaiseStatusChanged(false);
    }

    std::shared_ptr<FakeClock> m_clock =
        std::make_shared<FakeClock>(QDateTime(QDate(2026, 3, 9), QTime(14, 3, 27)));
    ScriptedHandler::Registration m_scripted;
    std::shared_ptr<FakeApplication> m_application = std::make_shared<FakeApplication>();
    std::unique_ptr<MainWindow> m_window =
        std::make_unique<MainWindow>("Vigil", QDBusConnection(QStringLiteral("no bus")));
};
} // namespace

TEST_F(SiteGlanceTest, CountsLeadTheTitleAndTheirButtonsGoRoundThePrintersOfTheirState)
{
    EXPECT_EQ(m_window->windowTitle(), "Vigil");
    EXPECT_FALSE(faults().isEnabled());
    turn("A", StateFault);
    turn("C", StateFault);
    turn("B", StateWarning);
    EXPECT_EQ(faults().text(), "2 faults");
    EXPECT_EQ(good().text(), "0 good");
    EXPECT_FALSE(good().isEnabled());
    EXPECT_EQ(m_window->windowTitle(), "2 faults \u2014 Vigil");

    // Each press the next one in the tree's order, its group opened, its page shown.
    auto& tree = m_window->controlWidget().treeView().widget();
    tree.collapseAll();
    faults().click();
    EXPECT_EQ(selectedName(), "A");
    EXPECT_TRUE(tree.topLevelItem(0)->isExpanded());
    EXPECT_EQ(m_window->controlWidget().control().currentComponent()->m_sName, "A");
    faults().click();
    EXPECT_EQ(selectedName(), "C");
    faults().click();
    EXPECT_EQ(selectedName(), "A");

    turn("A", StateGood);
    turn("C", StateNoAnswer);
    EXPECT_EQ(m_window->windowTitle(), "1 no answer \u2014 Vigil");

    // A printer that goes is counted out at the next turn.
    m_application->queues.remove("C");
    EXPECT_TRUE(WaitUntil([this] { return m_window->windowTitle() == "1 warning \u2014 Vigil"; }));
}

TEST_F(SiteGlanceTest, WhilePollingIsOffTheStatusBarSaysSinceWhen)
{
    const QLabel& note = m_window->glance().bar().pollingNote();
    EXPECT_FALSE(note.isVisibleTo(m_window.get()));
    m_window->controlWidget().control().DoDisablePolling();
    m_window->updateCommands();
    m_clock->setNow(m_clock->now().addSecs(300));
    m_window->updateCommands();
    EXPECT_TRUE(note.isVisibleTo(m_window.get()));
    EXPECT_EQ(note.text(), "Polling off since 14:03");
    m_window->controlWidget().control().DoEnablePolling();
    m_window->updateCommands();
    EXPECT_FALSE(note.isVisibleTo(m_window.get()));
}

TEST_F(SiteGlanceTest, AClickedNoticeShowsItsPrinterWhichAcknowledgeCanSilence)
{
    QAction& acknowledge = m_window->notices().acknowledgeAction();
    QMenu* holder = nullptr;
    for (QMenu* menu : m_window->menuBar()->findChildren<QMenu*>())
        holder = menu->actions().contains(&acknowledge) ? menu : holder;
    ASSERT_NE(holder, nullptr);
    EXPECT_EQ(holder->title(), "Monitoring");

    turn("B", StateFault);
    auto& tree = m_window->controlWidget().treeView().widget();
    tree.collapseAll();
    const QString b = g_oComponents->FindPrinter("B")->m_sID;
    emit m_window->notices().printerAsked(b);
    EXPECT_EQ(selectedName(), "B");
    EXPECT_TRUE(tree.topLevelItem(0)->isExpanded());
    EXPECT_TRUE(acknowledge.isEnabled());
    acknowledge.trigger();
    EXPECT_FALSE(acknowledge.isEnabled());
    EXPECT_FALSE(m_window->notices().watch().canAcknowledge(b));

    // A printer that is well has nothing to acknowledge.
    emit m_window->notices().printerAsked(g_oComponents->FindPrinter("A")->m_sID);
    EXPECT_EQ(selectedName(), "A");
    EXPECT_FALSE(acknowledge.isEnabled());
}

TEST(GlanceTitleTest, LeadsWithTheWorstTroubleOnly)
{
    StateCounts counts;
    counts.add(StateGood);
    counts.add(StateDisabled);
    EXPECT_EQ(GlanceTitle::of(counts, "Korvex Vigil"), "Korvex Vigil");
    counts.add(StateWarning);
    counts.add(StatePortBusy);
    EXPECT_EQ(GlanceTitle::of(counts, "Korvex Vigil"), "1 busy \u2014 Korvex Vigil");
    counts.add(StateFault);
    counts.add(StateFault);
    EXPECT_EQ(GlanceTitle::of(counts, "Korvex Vigil"), "2 faults \u2014 Korvex Vigil");
}
