#include "core/PollScheduler.h"

#include "services/ApplicationOptions.h"
#include "services/SettingsAccess.h"
#include "services/VigilError.h"
#include "support/FakeTimer.h"
#include "support/ServicesFixture.h"

#include <stdexcept>

namespace {
// A fake timer that can be made to refuse a new period.
class BrittleTimer : public FakeTimer
{
public:
    using FakeTimer::FakeTimer;
    void setInterval(qint32 milliseconds) override
    {
        if (failing)
            throw VigilError(380, QStringLiteral("Timer"),
                             QStringLiteral("Invalid property value"));
        FakeTimer::setInterval(milliseconds);
    }
    bool failing = false;
};

// A scheduler on the control's two timers, with their design values, and hooks that note
// what a tick asks of the control and the tree.
class Rig
{
public:
    Rig()
        : scheduler(timer1, tmrTimeout,
                    {[this] {
                         exitChecks.append(timer1.isEnabled());
                         return exiting;
                     },
                     [this] {
                         ++walks;
                         timersDuringWalk = timer1.isEnabled() || tmrTimeout.isEnabled();
                         if (walk)
                             walk();
                     },
                     [this](qint16 s) {
                         seconds.append(s);
                         if (timeoutWalk)
                             timeoutWalk();
                     }})
    {}

    // Start-up: the direct tick at the end of loading the tree, then the stored interval.
    void start()
    {
        scheduler.Timer1_Timer();
        scheduler.UpdatePollInterval();
    }
    // Fires Timer1 and tells whether the tick walked the tree.
    bool tick()
    {
        const int before = walks;
        timer1.fire();
        return walks > before;
    }
    // Ticks until a walk; answers how many ticks that took.
    int cycle()
    {
        for (int ticks = 1; ticks <= 1000; ++ticks) {
            if (tick())
                return ticks;
        }
        return -1;
    }

    BrittleTimer timer1{200, false};
    BrittleTimer tmrTimeout{0, false};
    bool exiting = false;
    std::function<void()> walk;
    std::function<void()> timeoutWalk;
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

    QString boxTitle(qsizetype index) const { return m_dialogs->boxes().value(index).title; }
    QString boxText(qsizetype index) const { return m_dialogs->boxes().value(index).text; }
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
    EXPECT_TRUE(rig.timer1.isEnabled());
    EXPECT_TRUE(rig.tmrTimeout.isEnabled());
    EXPECT_EQ(rig.tmrTimeout.interval(), 5000);

    rig.scheduler.UpdatePollInterval();
    EXPECT_EQ(rig.scheduler.pollInterval(), 20000);
    EXPECT_EQ(rig.timer1.interval(), 20000);
    EXPECT_TRUE(rig.timer1.isEnabled());
    const int restarts = rig.timer1.restarts();
    rig.scheduler.UpdatePollInterval();
    EXPECT_EQ(rig.timer1.restarts(), restarts);

    setOption(30000);
    rig.scheduler.UpdatePollInterval();
    EXPECT_EQ(rig.timer1.interval(), 30000);
    EXPECT_EQ(rig.timer1.restarts(), restarts + 1);
    EXPECT_TRUE(rig.tick());
    EXPECT_TRUE(m_dialogs->boxes().isEmpty());
}

TEST_F(PollSchedulerTest, IntervalsUpToOneSlicePollOnEveryTick)
{
    for (const qint32 interval : {4000, 20000, 65000}) {
        setOption(interval);
        Rig rig;
        rig.start();
        EXPECT_EQ(rig.timer1.interval(), interval);
        EXPECT_EQ(rig.scheduler.remainingInterval(), -1);
        for (int i = 0; i < 3; ++i)
            EXPECT_TRUE(rig.tick()) << interval;
        EXPECT_FALSE(rig.timersDuringWalk) << interval;
        EXPECT_EQ(rig.timer1.interval(), interval);
        EXPECT_EQ(rig.scheduler.remainingInterval(), -1);
    }
}

TEST_F(PollSchedulerTest, LongIntervalsAreWaitedOutInSlices)
{
    const struct
    {
        qint32 interval;
        QList<bool> polls;
        // Timer1's period and what is left to wait, after each tick.
        QList<qint32> periods;
        QList<qint32> remaining;
    } cases[] = {
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
        ASSERT_EQ(rig.timer1.interval(), 65000) << c.interval;
        EXPECT_EQ(rig.scheduler.remainingInterval(), c.interval - 65000) << c.interval;
        for (int round = 0; round < 2; ++round) {
            QList<bool> polls;
            QList<qint32> periods;
            QList<qint32> remaining;
            for (qsizetype i = 0; i < c.polls.size(); ++i) {
                polls.append(rig.tick());
                periods.append(rig.timer1.interval());
                remaining.append(rig.scheduler.remainingInterval());
            }
            EXPECT_EQ(polls, c.polls) << c.interval;
            EXPECT_EQ(periods, c.periods) << c.interval;
            EXPECT_EQ(remaining, c.remaining) << c.interval;
        }
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

TEST_F(PollSchedulerTest, ANewIntervalInASliceWaitTakesEffectAtOnce)
{
    setOption(200000);
    Rig rig;
    rig.start();
    EXPECT_FALSE(rig.tick());
    EXPECT_FALSE(rig.tick());
    ASSERT_EQ(rig.scheduler.remainingInterval(), 5000);
    const int restarts = rig.timer1.restarts();

    setOption(20000);
    rig.scheduler.UpdatePollInterval();
    EXPECT_EQ(rig.timer1.interval(), 20000);
    EXPECT_EQ(rig.timer1.restarts(), restarts + 1);
    EXPECT_TRUE(rig.timer1.isEnabled());
    EXPECT_EQ(rig.scheduler.remainingInterval(), -1);
    EXPECT_TRUE(rig.tick());
}

TEST_F(PollSchedulerTest, WithPollingOffTheTimersRunOnButTheTreeIsLeftAlone)
{
    setOption(130000);
    Rig rig;
    rig.start();
    const int restarts = rig.timer1.restarts();
    rig.scheduler.DoDisablePolling();
    EXPECT_TRUE(rig.scheduler.pollingDisabled());
    EXPECT_EQ(rig.timer1.restarts(), restarts);

    rig.tmrTimeout.setInterval(1);
    EXPECT_FALSE(rig.tick());
    EXPECT_EQ(rig.scheduler.remainingInterval(), 0);
    EXPECT_FALSE(rig.tick());
    EXPECT_EQ(rig.scheduler.remainingInterval(), 65000);
    EXPECT_EQ(rig.tmrTimeout.interval(), 5000);
    EXPECT_TRUE(rig.timer1.isEnabled());
    EXPECT_TRUE(rig.tmrTimeout.isEnabled());
    EXPECT_EQ(rig.exitChecks.size(), 4); // the cycle's tick ran, only without the walk
    EXPECT_TRUE(rig.tmrTimeout.fire());
    EXPECT_TRUE(rig.seconds.isEmpty());

    rig.scheduler.DoEnablePolling();
    EXPECT_FALSE(rig.scheduler.pollingDisabled());
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
    EXPECT_EQ(boxTitle(0), QStringLiteral("AddInControl - ProcessComponents - Korvex Vigil"));
    EXPECT_EQ(boxText(0), QStringLiteral("Object not set - 91"));
    EXPECT_TRUE(rig.timer1.isEnabled());
    EXPECT_TRUE(rig.tmrTimeout.isEnabled());
    EXPECT_EQ(rig.exitChecks.size(), 4);

    // A failure that stays comes back every cycle.
    EXPECT_TRUE(rig.tick());
    EXPECT_EQ(m_dialogs->boxes().size(), 2);
    rig.walk = nullptr;
    EXPECT_TRUE(rig.tick());
    EXPECT_EQ(m_dialogs->boxes().size(), 2);
}

} // namespace
