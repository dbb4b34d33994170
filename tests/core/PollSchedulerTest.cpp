#include "core/PollScheduler.h"

#include "services/ApplicationOptions.h"
#include "services/SettingsAccess.h"
#include "services/VigilError.h"
#include "support/FakeTimer.h"
#include "support/ServicesFixture.h"

namespace {
class PollSchedulerTest : public ServicesFixture
{
protected:
    void SetUp() override
    {
        ServicesFixture::SetUp();
        m_scheduler = std::make_unique<PollScheduler>(
            m_timer1, m_timeout,
            PollScheduler::Hooks{[this] { return m_exiting; },
                                 [this] {
                                     ++m_walks;
                                     if (m_failWalk)
                                         throw VigilError(91, "clsComponents", "Object not set");
                                 },
                                 [this](qint16 seconds) {
                                     m_timeoutSeconds.append(seconds);
                                 }});
    }

    static void setOption(qint32 milliseconds)
    {
        ASSERT_EQ(
            WriteValue(HKEY_LOCAL_MACHINE, OptionsKey, "PollInterval", REG_DWORD, milliseconds), 0);
        ApplicationOptions::process() = ApplicationOptions();
    }

    // Start-up: the first direct tick with both fields 0, then the stored interval.
    void start(qint32 milliseconds)
    {
        setOption(milliseconds);
        m_scheduler->Timer1_Timer();
        m_scheduler->UpdatePollInterval();
    }

    // Fires Timer1 and tells whether the tick walked the tree.
    bool tick()
    {
        const int before = m_walks;
        m_timer1.fire();
        return m_walks > before;
    }

    FakeTimer m_timer1{200, false};
    FakeTimer m_timeout{0, false};
    std::unique_ptr<PollScheduler> m_scheduler;
    bool m_exiting = false;
    bool m_failWalk = false;
    int m_walks = 0;
    QList<qint16> m_timeoutSeconds;
};

TEST_F(PollSchedulerTest, TheFirstTickAtStartUpPollsAndStartsBothTimers)
{
    setOption(20000);
    m_scheduler->Timer1_Timer();
    EXPECT_EQ(m_walks, 1);
    EXPECT_TRUE(m_timer1.isEnabled());
    EXPECT_TRUE(m_timeout.isEnabled());
    EXPECT_EQ(m_timeout.interval(), 5000);
    EXPECT_EQ(m_scheduler->remainingInterval(), -1);

    m_scheduler->UpdatePollInterval();
    EXPECT_EQ(m_timer1.interval(), 20000);
    EXPECT_EQ(m_scheduler->pollInterval(), 20000);
    const int restarts = m_timer1.restarts();
    m_scheduler->UpdatePollInterval(); // the same option: nothing to do
    EXPECT_EQ(m_timer1.restarts(), restarts);
}

TEST_F(PollSchedulerTest, IntervalsUpToOneSlicePollOnEveryTick)
{
    start(65000);
    EXPECT_EQ(m_timer1.interval(), 65000);
    EXPECT_EQ(m_scheduler->remainingInterval(), -1);
    EXPECT_TRUE(tick());
    EXPECT_TRUE(tick());
}

TEST_F(PollSchedulerTest, LongIntervalsAreWaitedOutInSlices)
{
    start(65001);
    EXPECT_EQ(m_scheduler->remainingInterval(), 1);
    EXPECT_FALSE(tick());
    EXPECT_EQ(m_timer1.interval(), 1);
    EXPECT_EQ(m_scheduler->remainingInterval(), 0);
    EXPECT_TRUE(tick());
    EXPECT_EQ(m_timer1.interval(), 65000);
    EXPECT_EQ(m_scheduler->remainingInterval(), 1);

    start(130000);
    EXPECT_EQ(m_scheduler->remainingInterval(), 65000);
    EXPECT_FALSE(tick());
    EXPECT_EQ(m_timer1.interval(), 65000);
    EXPECT_EQ(m_scheduler->remainingInterval(), 0);
    EXPECT_TRUE(tick());

    start(200000);
    QList<qint32> periods;
    QList<bool> polled;
    for (int i = 0; i < 4; ++i) {
        polled.append(tick());
        periods.append(m_timer1.interval());
    }
    EXPECT_EQ(polled, (QList<bool>{false, false, false, true}));
    EXPECT_EQ(periods, (QList<qint32>{65000, 65000, 5000, 65000}));
}

TEST_F(PollSchedulerTest, TimeoutPeriodAndSecondsFollowThePollInterval)
{
    const struct
    {
        qint32 poll;
        qint32 period;
        qint16 seconds;
    } cases[] = {{4000, 3500, 3}, {4500, 4000, 4}, {5000, 4500, 5},
                 {5499, 4999, 5}, {5500, 5000, 5}, {20000, 5000, 5}};
    for (const auto& c : cases) {
        start(c.poll);
        ASSERT_TRUE(tick()) << c.poll;
        EXPECT_EQ(m_timeout.interval(), c.period) << c.poll;
        m_timeoutSeconds.clear();
        m_timeout.fire();
        EXPECT_EQ(m_timeoutSeconds, QList<qint16>{c.seconds}) << c.poll;
    }
}

TEST_F(PollSchedulerTest, ANewIntervalInASliceWaitTakesEffectAtOnce)
{
    start(200000);
    EXPECT_FALSE(tick());
    EXPECT_FALSE(tick());
    setOption(20000);
    m_scheduler->UpdatePollInterval();
    EXPECT_EQ(m_timer1.interval(), 20000);
    EXPECT_EQ(m_scheduler->remainingInterval(), -1);
    EXPECT_TRUE(tick());
}

TEST_F(PollSchedulerTest, AChangeOfIntervalNeverStartsAStoppedTimer)
{
    setOption(30000);
    m_scheduler->UpdatePollInterval();
    EXPECT_FALSE(m_timer1.isEnabled());
    EXPECT_EQ(m_timer1.interval(), 30000);
}

TEST_F(PollSchedulerTest, WithPollingOffTheSlicesGoOnButNothingIsWalked)
{
    start(130000);
    m_scheduler->DoDisablePolling();
    EXPECT_FALSE(tick());
    EXPECT_EQ(m_scheduler->remainingInterval(), 0);
    EXPECT_FALSE(tick());
    EXPECT_EQ(m_scheduler->remainingInterval(), 65000);
    EXPECT_EQ(m_timeout.interval(), 5000);
    EXPECT_TRUE(m_timer1.isEnabled());
    m_timeout.fire();
    EXPECT_TRUE(m_timeoutSeconds.isEmpty());

    m_scheduler->DoEnablePolling();
    tick();
    EXPECT_TRUE(tick());
}

TEST_F(PollSchedulerTest, AFailedWalkIsShownAndTheNextTickPollsAgain)
{
    start(20000);
    m_failWalk = true;
    tick();
    ASSERT_EQ(m_dialogs->boxes().size(), 1);
    EXPECT_EQ(m_dialogs->boxes()[0].title,
              QStringLiteral("AddInControl - ProcessComponents - Korvex Vigil"));
    EXPECT_EQ(m_dialogs->boxes()[0].text, QStringLiteral("Object not set - 91"));
    EXPECT_TRUE(m_timer1.isEnabled());
    EXPECT_TRUE(m_timeout.isEnabled());
    m_failWalk = false;
    EXPECT_TRUE(tick());
}

TEST_F(PollSchedulerTest, AFailureWhileTheTimersAreStoppedLeavesThemStopped)
{
    class FailingTimer : public FakeTimer
    {
    public:
        void setInterval(qint32) override
        {
            throw VigilError(380, "tmrTimeout", "Invalid property value");
        }
    } failing;
    PollScheduler scheduler(m_timer1, failing,
                            {[] { return false; }, [] {},
                             [](qint16) {
                             }});
    setOption(20000);
    scheduler.Timer1_Timer();
    ASSERT_EQ(m_dialogs->boxes().size(), 1);
    EXPECT_EQ(m_dialogs->boxes()[0].title,
              QStringLiteral("AddInControl - Timer1_Timer - Korvex Vigil"));
    EXPECT_FALSE(m_timer1.isEnabled());
    EXPECT_FALSE(failing.isEnabled());
    scheduler.UpdatePollInterval();
    EXPECT_FALSE(m_timer1.isEnabled());
}

TEST_F(PollSchedulerTest, ATickOfAControlGoingDownDoesNotWalk)
{
    start(20000);
    m_exiting = true;
    EXPECT_FALSE(tick());
    EXPECT_TRUE(m_timer1.isEnabled()); // CheckExit stops it; the scheduler itself doesn't
}
} // namespace
