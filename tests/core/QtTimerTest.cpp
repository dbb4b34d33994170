#include "core/QtTimer.h"

#include <QCoreApplication>
#include <gtest/gtest.h>
#include <memory>

namespace {
// Runs the pending events once, without waiting for any.
void turnTheLoop()
{
    QCoreApplication::processEvents(QEventLoop::AllEvents);
}

// QTimer needs the event loop's dispatcher, which the application object brings.
class QtTimerTest : public ::testing::Test
{
protected:
    void SetUp() override
    {
        if (!QCoreApplication::instance())
            m_app = std::make_unique<QCoreApplication>(m_argc, m_argv);
    }

    int m_argc = 1;
    char m_name[6] = "tests";
    char* m_argv[2] = {m_name, nullptr};
    std::unique_ptr<QCoreApplication> m_app;
};

// At start-up the first tick enables Timer1 before any interval is applied: it must wait,
// enabled, without firing at every turn of the loop, and run once it is given a period.
TEST_F(QtTimerTest, AnEnabledTimerWithoutAPeriodWaitsUntilItGetsOne)
{
    int ticks = 0;
    QtTimer timer(0, false);
    timer.onTick([&ticks] { ++ticks; });
    timer.setEnabled(true);
    EXPECT_TRUE(timer.isEnabled());
    EXPECT_FALSE(timer.isActive());
    turnTheLoop();
    turnTheLoop();
    EXPECT_EQ(ticks, 0);

    timer.setInterval(20000);
    EXPECT_TRUE(timer.isEnabled());
    EXPECT_TRUE(timer.isActive());
    EXPECT_EQ(timer.interval(), 20000);
}

TEST_F(QtTimerTest, AStoppedTimerStaysStoppedWhateverItsPeriod)
{
    QtTimer timer1(200, false);
    EXPECT_EQ(timer1.interval(), 200);
    EXPECT_FALSE(timer1.isActive());
    timer1.setInterval(65000);
    EXPECT_FALSE(timer1.isActive());
    timer1.setEnabled(true);
    EXPECT_TRUE(timer1.isActive());
    timer1.setEnabled(false);
    EXPECT_FALSE(timer1.isActive());
    EXPECT_FALSE(timer1.isEnabled());
    EXPECT_EQ(timer1.interval(), 65000);
}
} // namespace
