#include "core/PollScheduler.h"

#include "services/ApplicationOptions.h"
#include "services/SettingsAccess.h"
#include "services/VigilError.h"
#include "support/FakeTimer.h"
#include "support/ServicesFixture.h"

namespace {
// A scheduler on the control's two timers, with their design values, and hooks that note
// what a tick asks of the control and the tree.
class Rig
{
public:
    Rig()
        : scheduler(timer1, tmrTimeout,
                    {[this] {
                         exitChecks.append(timer1.isEnabled());
                         return false;
                     },
                     [this] {
                         ++walks;
                         timersDuringWalk = timer1.isEnabled() || tmrTimeout.isEnabled();
                         if (walk)
                             walk();
                     },
                     [this](qint16 s) {
                         seconds.append(s);
                     }})
    {}

    // The direct tick at the end of loading the tree, then the stored interval.
    void start()
    {
        scheduler.Timer1_Timer();
        scheduler.UpdatePollInterval();
    }
    bool tick() // whether the tick walked the tree
    {
        const int before = walks;
        timer1.fire();
        return walks > before;
    }
    int cycle() // how many ticks until a walk
    {
        for (int ticks = 1; ticks <= 1000; ++ticks)
            if (tick())
                return ticks;
        return -1;
    }

    FakeTimer timer1{200, false};
    FakeTimer tmrTimeout{0, false};
    std::function<void()> walk;
    int walks = 0;
    bool timersDuringWalk = false;
    // Timer1's enabled state at each CheckExit.
    QList<bool> exitChecks;
    QList<qint16> seconds;
    PollScheduler scheduler;
};

class PollSchedulerTest : public ServicesFixture
{
protected:
    static void setOption(qint32 milliseconds)
    {
        ASSERT_EQ(
            WriteValue(HKEY_LOCAL_MACHINE, OptionsKey, "PollInterval", REG_DWORD, milliseconds), 0);
        ApplicationOptions::process() = ApplicationOptions();
    }
};

TEST_F(PollSchedulerTest, StartUpPollsOnceThenAppliesTheStoredIntervalWhenItDiffers)
{
    setOption(20000);
    Rig rig;
    rig.scheduler.Timer1_Timer();
    EXPECT_EQ(rig.walks, 1);
    EXPECT_FALSE(rig.timersDuringWalk);
    EXPECT_EQ(rig.exitChecks, (QList<bool>{false, true})); // before the walk and after it
    EXPECT_EQ(rig.scheduler.remainingInterval(), -1);
    EXPECT_EQ(rig.timer1.interval(), 0); // no interval applied yet
    EXPECT_TRUE(rig.timer1.isEnabled() && rig.tmrTimeout.isEnabled());
    EXPECT_EQ(rig.tmrTimeout.interval(), 5000);

    rig.scheduler.UpdatePollInterval();
    EXPECT_EQ(rig.timer1.interval(), 20000);
    const int restarts = rig.timer1.restarts();
    rig.scheduler.UpdatePollInterval();
    EXPECT_EQ(rig.timer1.restarts(), restarts);

    // A new interval in a slice wait takes effect at once.
    setOption(200000);
    rig.scheduler.UpdatePollInterval();
    EXPECT_EQ(rig.timer1.restarts(), restarts + 1);
    EXPECT_FALSE(rig.tick());
    EXPECT_FALSE(rig.tick());
    ASSERT_EQ(rig.scheduler.remainingInterval(), 5000);
    const int sliced = rig.timer1.restarts();
    setOption(30000);
    rig.scheduler.UpdatePollInterval();
    EXPECT_EQ(rig.timer1.interval(), 30000);
    EXPECT_EQ(rig.timer1.restarts(), sliced + 1);
    EXPECT_TRUE(rig.timer1.isEnabled());
    EXPECT_EQ(rig.scheduler.remainingInterval(), -1);
    EXPECT_TRUE(rig.tick());
    EXPECT_TRUE(m_dialogs->boxes().isEmpty());
}

// Up to one slice every tick polls; longer intervals are waited out in slices.
TEST_F(PollSchedulerTest, IntervalsAreWaitedOutInSlicesOfAtMostOneTimerPeriod)
{
    const struct
    {
        qint32 interval;
        QList<bool> polls;
        // Timer1's period and what is left to wait, after each tick.
        QList<qint32> periods;
        QList<qint32> remaining;
    } cases[] = {
        {4000, {true}, {4000}, {-1}},
        {65000, {true}, {65000}, {-1}},
        {65001, {false, true}, {1, 65000}, {0, 1}},
        {130000, {false, true}, {65000, 65000}, {0, 65000}},
        {200000,
         {false, false, false, true},
         {65000, 65000, 5000, 65000},
         {70000, 5000, 0, 135000}},
    };
    for (const auto& c : cases) {
        setOption(c.interval);
        Rig rig;
        rig.start();
        EXPECT_EQ(rig.timer1.interval(), std::min(c.interval, 65000)) << c.interval;
        EXPECT_EQ(rig.scheduler.remainingInterval(), c.interval > 65000 ? c.interval - 65000 : -1)
            << c.interval;
        for (int round = 0; round < 2; ++round)
            for (qsizetype i = 0; i < c.polls.size(); ++i) {
                EXPECT_EQ(rig.tick(), c.polls[i]) << c.interval << " tick " << i;
                EXPECT_EQ(rig.timer1.interval(), c.periods[i]) << c.interval << " tick " << i;
                EXPECT_EQ(rig.scheduler.remainingInterval(), c.remaining[i]) << c.interval;
            }
        EXPECT_FALSE(rig.timersDuringWalk) << c.interval;
        // A tick that only waits asks nothing of the control.
        EXPECT_EQ(rig.exitChecks.size(), 2 + 2 * 2) << c.interval;
    }
}

TEST_F(PollSchedulerTest, TimeoutPeriodAndSecondsFollowThePollInterval)
{
    const struct
    {
        qint32 interval;
        qint32 period;
        qint16 seconds;
    } cases[] = {{4000, 3500, 3},  {4499, 3999, 3},  {4500, 4000, 4}, {4999, 4499, 4},
                 {5000, 4500, 5},  {5250, 4750, 5},  {5499, 4999, 5}, {5500, 5000, 5},
                 {20000, 5000, 5}, {200000, 5000, 5}};
    for (const auto& c : cases) {
        setOption(c.interval);
        Rig rig;
        rig.start();
        rig.tmrTimeout.setInterval(1);
        ASSERT_GT(rig.cycle(), 0) << c.interval;
        EXPECT_EQ(rig.tmrTimeout.interval(), c.period) << c.interval;
        // It doesn't stop itself: every firing until the next poll goes down the tree.
        rig.tmrTimeout.fire();
        rig.tmrTimeout.fire();
        EXPECT_EQ(rig.seconds, (QList<qint16>{c.seconds, c.seconds})) << c.interval;
    }

    // Both measures read the option anew, not the interval in force on Timer1.
    setOption(20000);
    Rig rig;
    rig.start();
    setOption(4500);
    rig.tmrTimeout.fire();
    EXPECT_EQ(rig.seconds, QList<qint16>{4});
    EXPECT_TRUE(rig.tick());
    EXPECT_EQ(rig.tmrTimeout.interval(), 4000);
    EXPECT_EQ(rig.timer1.interval(), 20000);
}

TEST_F(PollSchedulerTest, WithPollingOffTheTimersRunOnButTheTreeIsLeftAlone)
{
    setOption(130000);
    Rig rig;
    rig.start();
    rig.scheduler.DoDisablePolling();
    rig.tmrTimeout.setInterval(1);
    EXPECT_FALSE(rig.tick());
    EXPECT_FALSE(rig.tick());
    // The cycle's tick ran, only without the walk.
    EXPECT_EQ(rig.tmrTimeout.interval(), 5000);
    EXPECT_TRUE(rig.timer1.isEnabled() && rig.tmrTimeout.isEnabled());
    EXPECT_EQ(rig.exitChecks.size(), 4);
    EXPECT_TRUE(rig.tmrTimeout.fire());
    EXPECT_TRUE(rig.seconds.isEmpty());

    rig.scheduler.DoEnablePolling();
    EXPECT_TRUE(rig.tmrTimeout.fire());
    EXPECT_EQ(rig.seconds, QList<qint16>{5});
    EXPECT_EQ(rig.cycle(), 2);
}

TEST_F(PollSchedulerTest, AFailedWalkIsShownAndTheTimersStartAgain)
{
    setOption(20000);
    Rig rig;
    rig.start();
    rig.walk = [] {
        throw VigilError(91, QStringLiteral("clsComponents"), QStringLiteral("Object not set"));
    };
    EXPECT_TRUE(rig.tick());
    ASSERT_EQ(m_dialogs->boxes().size(), 1);
    EXPECT_EQ(m_dialogs->boxes()[0].title,
              QStringLiteral("AddInControl - ProcessComponents - Korvex Vigil"));
    EXPECT_EQ(m_dialogs->boxes()[0].text, QStringLiteral("Object not set - 91"));
    EXPECT_TRUE(rig.timer1.isEnabled() && rig.tmrTimeout.isEnabled());
    EXPECT_EQ(rig.exitChecks.size(), 4);

    // A failure that stays comes back every cycle.
    EXPECT_TRUE(rig.tick());
    EXPECT_EQ(m_dialogs->boxes().size(), 2);
    rig.walk = nullptr;
    EXPECT_TRUE(rig.tick());
    EXPECT_EQ(m_dialogs->boxes().size(), 2);
}
} // namespace
