#include "sim/SimPrinter.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QElapsedTimer>
#include <QEventLoop>
#include <gtest/gtest.h>

namespace {
// Timers need the application's event dispatcher.
void ensureApplication()
{
    static int argc = 1;
    static char name[] = "sim_tests";
    static char* argv[] = {name, nullptr};
    if (!QCoreApplication::instance())
        new QCoreApplication(argc, argv);
}

// Turns the event loop until `condition` holds; false if the deadline passes first.
bool waitUntil(const std::function<bool()>& condition, int deadlineMs = 5000)
{
    const QDeadlineTimer deadline(deadlineMs);
    while (!condition()) {
        if (deadline.hasExpired())
            return false;
        QEventLoop loop;
        QTimer::singleShot(5, &loop, &QEventLoop::quit);
        loop.exec();
    }
    return true;
}

// Every piece a printer put out, with when it came, counted from the listener's making.
class Listener
{
public:
    explicit Listener(SimPrinter& printer)
    {
        m_clock.start();
        QObject::connect(&printer, &SimPrinter::output, &m_context, [this](const QByteArray& b) {
            pieces.append(b);
            times.append(m_clock.elapsed());
        });
    }

    QByteArray all() const { return pieces.join(); }

    QList<QByteArray> pieces;
    QList<qint64> times;

private:
    QElapsedTimer m_clock;
    QObject m_context;
};

class SimPrinterTest : public ::testing::Test
{
protected:
    void SetUp() override { ensureApplication(); }

    static std::unique_ptr<SimPrinter> printerOf(const QString& address)
    {
        QString error;
        std::unique_ptr<SimPrinter> printer = SimPrinter::fromAddress(address, error);
        EXPECT_TRUE(printer) << address.toStdString() << ": " << error.toStdString();
        return printer;
    }
};

TEST_F(SimPrinterTest, RepliesComeLaterAsEventsNeverWithinInput)
{
    for (const QString address : {"echo", "echo?delay=0"}) {
        const auto printer = printerOf(address);
        ASSERT_TRUE(printer);
        Listener listener(*printer);
        printer->input("ping");
        EXPECT_TRUE(listener.pieces.isEmpty()) << address.toStdString();
        EXPECT_EQ(printer->pendingBytes(), 4);
        ASSERT_TRUE(waitUntil([&] { return listener.all() == "ping"; })) << address.toStdString();
        EXPECT_EQ(printer->pendingBytes(), 0);

        // Output dropped never comes; what follows does.
        printer->input("lost");
        printer->dropPendingOutput();
        EXPECT_EQ(printer->pendingBytes(), 0);
        printer->input("next");
        ASSERT_TRUE(waitUntil([&] { return listener.all().size() >= 8; }));
        EXPECT_EQ(listener.all(), "pingnext");
    }
}

TEST_F(SimPrinterTest, FragmentsHaveTheGivenSizeAndFollowAGapApart)
{
    const auto printer = printerOf("echo?delay=0&fragment=3&gap=25");
    ASSERT_TRUE(printer);
    Listener listener(*printer);
    printer->input("abcdefgh");
    ASSERT_TRUE(waitUntil([&] { return listener.all() == "abcdefgh"; }));
    EXPECT_EQ(listener.pieces, QList<QByteArray>({"abc", "def", "gh"}));
    // A late piece may bunch up with the next, but none comes before its time.
    for (qsizetype index = 0; index < listener.times.size(); ++index)
        EXPECT_GE(listener.times.at(index), index * 25 - 1) << index;

    printer->input("ij");
    ASSERT_TRUE(waitUntil([&] { return listener.pieces.size() == 4; }));
    EXPECT_EQ(listener.pieces.last(), "ij");
}

TEST_F(SimPrinterTest, ASilentPrinterSaysNothingWhereAnotherWouldAnswer)
{
    const auto silent = printerOf("echo?silent=yes");
    const auto talking = printerOf("echo?silent=no");
    ASSERT_TRUE(silent && talking);
    Listener quiet(*silent);
    Listener answered(*talking);
    silent->input("hello");
    talking->input("hello");
    EXPECT_EQ(silent->pendingBytes(), 0);
    ASSERT_TRUE(waitUntil([&] { return answered.all() == "hello"; }));
    ASSERT_TRUE(waitUntil([&] { return talking->pendingBytes() == 0; }));
    EXPECT_TRUE(quiet.pieces.isEmpty());
}

} // namespace
