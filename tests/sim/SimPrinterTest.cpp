#include "sim/SimPrinter.h"

#include "sim/SimRegistry.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QElapsedTimer>
#include <QEventLoop>
#include <functional>
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
    for (const QString& address : QStringList{"echo", "echo?delay=0"}) {
        const std::unique_ptr<SimPrinter> printer = printerOf(address);
        ASSERT_TRUE(printer);
        Listener listener(*printer);
        printer->input("ping");
        EXPECT_TRUE(listener.pieces.isEmpty()) << address.toStdString();
        EXPECT_EQ(printer->pendingBytes(), 4);
        ASSERT_TRUE(waitUntil([&] { return listener.all() == "ping"; })) << address.toStdString();
        EXPECT_EQ(printer->pendingBytes(), 0);
    }
}

TEST_F(SimPrinterTest, DelayHoldsRepliesBackAndTheyKeepTheirOrder)
{
    const std::unique_ptr<SimPrinter> printer = printerOf(QStringLiteral("echo?delay=60"));
    ASSERT_TRUE(printer);
    Listener listener(*printer);
    printer->input("first");
    printer->input("second");
    ASSERT_TRUE(waitUntil([&] { return listener.pieces.size() == 2; }));
    EXPECT_EQ(listener.pieces, QList<QByteArray>({"first", "second"}));
    // The printer counts whole milliseconds, so a reply may start up to one early.
    EXPECT_GE(listener.times.first(), 59);
}

TEST_F(SimPrinterTest, AShortReplyWaitsBehindALongOneInPieces)
{
    const std::unique_ptr<SimPrinter> printer =
        printerOf(QStringLiteral("echo?delay=0&fragment=2&gap=20"));
    ASSERT_TRUE(printer);
    Listener listener(*printer);
    printer->input("abcdef");
    printer->input("XY");
    ASSERT_TRUE(waitUntil([&] { return listener.pieces.size() == 4; }));
    EXPECT_EQ(listener.pieces, QList<QByteArray>({"ab", "cd", "ef", "XY"}));
    // It waits its turn, a gap after the last piece before it.
    EXPECT_GE(listener.times.last(), 3 * 20 - 1);
}

TEST_F(SimPrinterTest, FragmentsHaveTheGivenSizeAndFollowAGapApart)
{
    const std::unique_ptr<SimPrinter> printer =
        printerOf(QStringLiteral("echo?delay=0&fragment=3&gap=25"));
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
    const std::unique_ptr<SimPrinter> silent = printerOf(QStringLiteral("echo?silent=yes"));
    const std::unique_ptr<SimPrinter> talking = printerOf(QStringLiteral("echo?silent=no"));
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

TEST_F(SimPrinterTest, GarbageReplacesEveryNthReplyWithNoiseOfTheSameLength)
{
    const std::unique_ptr<SimPrinter> printer =
        printerOf(QStringLiteral("echo?delay=0&garbage=3&seed=42"));
    ASSERT_TRUE(printer);
    Listener listener(*printer);
    const QList<QByteArray> sent{"r1", "reply2", "reply-three", "r4", "reply five", "six!", "7"};
    for (const QByteArray& bytes : sent)
        printer->input(bytes);
    ASSERT_TRUE(waitUntil([&] { return listener.pieces.size() == sent.size(); }));
    for (qsizetype index = 0; index < sent.size(); ++index) {
        const bool garbled = (index + 1) % 3 == 0;
        EXPECT_EQ(listener.pieces.at(index).size(), sent.at(index).size()) << index;
        EXPECT_EQ(listener.pieces.at(index) != sent.at(index), garbled) << index;
    }
}

TEST_F(SimPrinterTest, TheSameSeedGivesTheSameNoise)
{
    const auto noiseOf = [](const QString& address) {
        const std::unique_ptr<SimPrinter> printer = printerOf(address);
        if (!printer)
            return QByteArray();
        Listener listener(*printer);
        for (int reply = 0; reply < 4; ++reply)
            printer->input(QByteArray(16, 'x'));
        EXPECT_TRUE(waitUntil([&] { return listener.pieces.size() == 4; }));
        return listener.all();
    };
    const QByteArray first = noiseOf(QStringLiteral("echo?delay=0&garbage=1&seed=5"));
    EXPECT_EQ(first.size(), 64);
    EXPECT_EQ(noiseOf(QStringLiteral("echo?delay=0&garbage=1&seed=5")), first);
    EXPECT_NE(noiseOf(QStringLiteral("echo?delay=0&garbage=1&seed=6")), first);
}

TEST_F(SimPrinterTest, AnUnknownKindABadValueOrAKnobNobodyReadsIsRefusedByName)
{
    const QList<std::pair<QString, QString>> refused{
        {"zebra", "zebra"},
        {"", "echo"}, // the message lists the kinds there are
        {"echo?colour=red", "colour"},
        {"echo?delay=-1", "delay"},
        {"echo?delay=soon", "delay"},
        {"echo?delay=600001", "delay"},
        {"echo?fragment=1048577", "fragment"},
        {"echo?gap=60001", "gap"},
        {"echo?silent=maybe", "silent"},
        {"echo?garbage=1.5", "garbage"},
        {"echo?seed=4294967296", "seed"},
        {"echo?delay=1&delay=2", "delay"},
    };
    for (const auto& [address, named] : refused) {
        QString error;
        EXPECT_FALSE(SimPrinter::fromAddress(address, error)) << address.toStdString();
        EXPECT_TRUE(error.contains(named)) << address.toStdString() << ": " << error.toStdString();
    }

    for (const QString& address :
         QStringList{"echo", "echo?",
                     "echo?delay=600000&fragment=1048576&gap=60000&silent=off&garbage=0"
                     "&seed=4294967295"}) {
        QString error;
        const std::unique_ptr<SimPrinter> printer = SimPrinter::fromAddress(address, error);
        EXPECT_TRUE(printer) << address.toStdString() << ": " << error.toStdString();
        EXPECT_TRUE(error.isEmpty()) << error.toStdString();
        EXPECT_EQ(printer ? printer->kind() : QString(), QStringLiteral("echo"));
    }
}

// Answers each input `times` times, numbered, and once with nothing at all.
class ChattyEngine : public SimEngine
{
public:
    static std::unique_ptr<SimEngine> create(const SimKnobs& knobs, QString& error)
    {
        const qint64 times = knobs.number(QStringLiteral("times"), 1, 1, 9, error);
        if (!error.isEmpty())
            return nullptr;
        return std::make_unique<ChattyEngine>(times);
    }

    explicit ChattyEngine(qint64 times)
        : m_times(times)
    {}

    QList<QByteArray> receive(const QByteArray& bytes, const QDateTime&) override
    {
        QList<QByteArray> replies{QByteArray()};
        for (qint64 reply = 1; reply <= m_times; ++reply)
            replies.append(bytes + QByteArray::number(reply));
        return replies;
    }

private:
    qint64 m_times;
};

TEST_F(SimPrinterTest, AKindOfItsOwnTakesItsKnobsAlongsideTheWires)
{
    SimRegistry::registerKind(QStringLiteral("test-chatty"), &ChattyEngine::create);
    EXPECT_TRUE(SimRegistry::kinds().contains(QStringLiteral("test-chatty")));

    QString error;
    EXPECT_FALSE(SimPrinter::fromAddress(QStringLiteral("test-chatty?times=10"), error));
    EXPECT_TRUE(error.contains(QStringLiteral("times"))) << error.toStdString();

    const std::unique_ptr<SimPrinter> printer =
        printerOf(QStringLiteral("test-chatty?times=3&delay=0&garbage=2"));
    ASSERT_TRUE(printer);
    Listener listener(*printer);
    printer->input("a");
    ASSERT_TRUE(waitUntil([&] { return listener.pieces.size() == 3; }));
    // Empty replies go nowhere and count for nothing: the noise falls on the second reply
    // that has bytes.
    EXPECT_EQ(listener.pieces.at(0), "a1");
    EXPECT_NE(listener.pieces.at(1), "a2");
    EXPECT_EQ(listener.pieces.at(1).size(), 2);
    EXPECT_EQ(listener.pieces.at(2), "a3");
}
} // namespace
