#include "core/QtTimer.h"

#include <QCoreApplication>
#include <gtest/gtest.h>
#include <memory>

namespace {
// At start-up the first tick enables Timer1 before any interval is applied: it must wait,
// enabled, without firing at every turn of the loop, and run once it is given a period.
// A stopped timer stays stopped whatever its period.
TEST(QtTimerTest, ATimerRunsOnlyWhenEnabledAndGivenAPeriod)
{
    int argc = 1;
    char name[] = "tests";
    char* argv[] = {name, nullptr};
    std::unique_ptr<QCoreApplication> app;
    if (!QCoreApplication::instance())
        app = std::make_unique<QCoreApplication>(argc, argv);

    int ticks = 0;
    QtTimer timer(0, false);
    timer.onTick([&ticks] { ++ticks; });
    timer.setEnabled(true);
    EXPECT_TRUE(timer.isEnabled());
    EXPECT_FALSE(timer.isActive());
    QCoreApplication::processEvents();
    QCoreApplication::processEvents();
    EXPECT_EQ(ticks, 0);
    timer.setInterval(20000);
    EXPECT_TRUE(timer.isActive());
    EXPECT_EQ(timer.interval(), 20000);

    QtTimer timer1(200, false);
    timer1.setInterval(65000);
    EXPECT_FALSE(timer1.isActive());
    timer1.setEnabled(true);
    EXPECT_TRUE(timer1.isActive());
    timer1.setEnabled(false);
    EXPECT_FALSE(timer1.isActive());
    EXPECT_EQ(timer1.interval(), 65000);
}
} // namespace
