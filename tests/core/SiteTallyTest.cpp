// The site counted by state as printers change and come and go, going through the printers
// of one state, and since when polling is off.

#include "core/SiteTally.h"

#include "core/PollingNote.h"
#include "core/StateCycle.h"
#include "core/TreeFixture.h"
#include "support/EventLoop.h"

#include <QCoreApplication>

namespace {
class SiteTallyTest : public TreeFixture
{
protected:
    static void SetUpTestSuite() { EnsureApplication(); }
    void SetUp() override
    {
        TreeFixture::SetUp();
        QObject::connect(&m_tally, &SiteTally::countsChanged, [this] { ++m_changes; });
        m_hall = group("GPHall", "Hall", *g_oComponents);
        m_a = printer("IDA", "A", *m_hall);
        m_b = printer("IDB", "B", *m_hall);
        m_c = printer("IDC", "C", *g_oComponents);
    }
    void TearDown() override
    {
        m_a.reset();
        m_b.reset();
        m_c.reset();
        m_hall.reset();
        TreeFixture::TearDown();
    }

    // The printer's handler takes the state and says so, as a reply would make it.
    static void turn(clsComponent& node, ErrorState state)
    {
        handlerOf(node).state = state;
        handlerOf(node).RaiseStatusChanged(false);
    }

    static std::vector<int> countsOf(const StateCounts& counts)
    {
        std::vector<int> each;
        for (const ErrorState state :
             {StateNoAnswer, StateGood, StateWarning, StateFault, StatePortBusy, StateDisabled})
            each.push_back(counts.count(state));
        return each;
    }

    std::shared_ptr<clsComponents> m_hall;
    std::shared_ptr<clsComponent> m_a;
    std::shared_ptr<clsComponent> m_b;
    std::shared_ptr<clsComponent> m_c;
    SiteTally m_tally{[] {
        return g_oComponents.get();
    }};
    int m_changes = 0;
};
} // namespace

TEST_F(SiteTallyTest, AChangeOfStateMovesOneCountAsTheWholeTreeWouldCountIt)
{
    m_tally.recount();
    EXPECT_EQ(countsOf(m_tally.counts()), (std::vector<int>{0, 3, 0, 0, 0, 0}));
    m_changes = 0;

    turn(*m_a, StateFault);
    turn(*m_c, StateNoAnswer);
    turn(*m_c, StateNoAnswer); // told again, nothing changed
    m_b->setDisabled(true);
    EXPECT_EQ(m_changes, 3);
    EXPECT_EQ(countsOf(m_tally.counts()), (std::vector<int>{1, 0, 0, 1, 0, 1}));
    EXPECT_EQ(countsOf(m_tally.counts()), countsOf(StateCounts::of(*g_oComponents)));

    turn(*m_a, static_cast<ErrorState>(42)); // a state no driver gives: still a fault
    EXPECT_EQ(m_changes, 3);
    turn(*m_a, StatePortBusy);
    EXPECT_EQ(countsOf(m_tally.counts()), countsOf(StateCounts::of(*g_oComponents)));
}

TEST_F(SiteTallyTest, PrintersThatComeAndGoAreFoundByOneWalkAtTheNextTurn)
{
    m_tally.recount();
    m_changes = 0;
    auto d = printer("IDD", "D", *m_hall);
    m_tally.treeChanged();
    m_hall->Delete("IDA");
    m_tally.treeChanged();
    EXPECT_EQ(m_tally.counts().printers(), 3); // nothing walked yet
    EXPECT_TRUE(WaitUntil([this] { return m_changes > 0; }));
    QCoreApplication::processEvents();
    EXPECT_EQ(m_changes, 1);
    EXPECT_EQ(m_tally.counts().printers(), 3);

    // The one that went is no longer followed; the new one is.
    turn(*m_a, StateFault);
    turn(*d, StateWarning);
    EXPECT_EQ(countsOf(m_tally.counts()), (std::vector<int>{0, 2, 1, 0, 0, 0}));

    // A printer that is destroyed goes at once.
    m_a.reset();
    d.reset();
    m_hall->Delete("IDD");
    EXPECT_EQ(countsOf(m_tally.counts()), (std::vector<int>{0, 2, 0, 0, 0, 0}));
}

TEST_F(SiteTallyTest, TheNextPrinterInAStateGoesRoundTheTreeInItsOrder)
{
    turn(*m_a, StateFault);
    turn(*m_c, StateFault);
    auto next = [](ErrorState state, const QString& after) {
        const clsComponent* found = StateCycle::next(*g_oComponents, state, after);
        return found ? found->m_sID : QStringLiteral("none");
    };
    EXPECT_EQ(next(StateFault, ""), "IDA");
    EXPECT_EQ(next(StateFault, "GPHall"), "IDA"); // a group selected: from the top
    EXPECT_EQ(next(StateFault, "IDA"), "IDC");
    EXPECT_EQ(next(StateFault, "IDB"), "IDC");
    EXPECT_EQ(next(StateFault, "IDC"), "IDA"); // round again
    EXPECT_EQ(next(StateGood, "IDB"), "IDB");  // the only one stays
    EXPECT_EQ(next(StateWarning, "IDA"), "none");
}

TEST(PollingNoteTest, SaysSinceWhenPollingHasBeenOff)
{
    const QDateTime off(QDate(2026, 3, 9), QTime(14, 3, 27));
    PollingNote note;
    note.follow(false, off);
    EXPECT_EQ(note.text(off), "");
    note.follow(true, off);
    note.follow(true, off.addSecs(600)); // still off: the first moment holds
    EXPECT_EQ(note.text(off.addSecs(600)), "Polling off since 14:03");
    EXPECT_EQ(note.text(off.addDays(1)), "Polling off since 9 Mar 2026 14:03");
    note.follow(false, off.addSecs(700));
    EXPECT_EQ(note.text(off.addSecs(700)), "");
    note.follow(true, off.addSecs(900));
    EXPECT_EQ(note.text(off.addSecs(900)), "Polling off since 14:18");
}

TEST(StateCountsTest, TellsTheWorstTroubleFirstAmongFaultsNoAnswerBusyAndWarnings)
{
    StateCounts counts;
    for (const qint32 state : {StateGood, StateDisabled, StateDisabled})
        counts.add(state);
    EXPECT_EQ(counts.worstTrouble(), std::nullopt);
    const std::pair<ErrorState, const char*> worse[] = {{StateWarning, "1 warning"},
                                                        {StatePortBusy, "1 busy"},
                                                        {StateNoAnswer, "1 no answer"},
                                                        {StateFault, "1 fault"}};
    for (const auto& [state, told] : worse) {
        counts.add(state);
        EXPECT_EQ(counts.worstTrouble(), state);
        EXPECT_EQ(counts.told(state), told);
    }
    counts.add(StateFault);
    EXPECT_EQ(counts.told(StateFault), "2 faults");
    counts.take(StateFault);
    counts.take(StateFault);
    counts.take(StateFault); // never below none
    EXPECT_EQ(counts.count(StateFault), 0);
    EXPECT_EQ(counts.worstTrouble(), StateNoAnswer);
}
