// The print application's queues and the headless monitor, as an administrator drives them
// with vigilctl.

#include "StatusReport.h"
#include "core/ErrorColours.h"
#include "core/TreeFixture.h"
#include "integration/VigilctlFixture.h"

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace {
using QueueStatusTest = VigilctlFixture;

TEST_F(QueueStatusTest, QueuesAreAddedListedWithTheirReachAndRemoved)
{
    EXPECT_EQ(vigilctl({"queue", "add", "Line 1", "--port", "sim:echo", "--type", "2100"}).code, 0);
    EXPECT_EQ(vigilctl({"queue", "add", "Line 2", "--port", "127.0.0.1:1", "--type", "123",
                        "--friendly", "Labeller"})
                  .code,
              0);

    // What can't name a port, a type or a new name is refused with one line.
    for (const QStringList& bad :
         QList<QStringList>{{"X", "--port", "printer", "--type", "1"},
                            {"X", "--port", "sim:teapot", "--type", "1"},
                            {"X", "--port", "sim:echo", "--type", "0"},
                            {"X", "--port", "sim:echo"},
                            {"line 1", "--port", "sim:echo", "--type", "1"},
                            {"X", "--port"}}) {
        const Outcome refused = vigilctl(QStringList{"queue", "add"} + bad);
        EXPECT_EQ(refused.code, 2) << bad.join(' ').toStdString();
        EXPECT_EQ(refused.err.count('\n'), 1) << refused.err.toStdString();
    }

    const Outcome listed = vigilctl({"queue", "list"});
    EXPECT_EQ(listed.code, 0);
    const QStringList lines = listed.out.split('\n', Qt::SkipEmptyParts);
    ASSERT_EQ(lines.size(), 3) << listed.out.toStdString();
    EXPECT_TRUE(lines[1].startsWith("Line 1  sim:echo     2100   reachable"))
        << lines[1].toStdString();
    EXPECT_TRUE(lines[2].contains("123    unreachable: 127.0.0.1:1: ")) << lines[2].toStdString();

    EXPECT_EQ(vigilctl({"queue", "remove", "Line 2"}).code, 0);
    EXPECT_EQ(vigilctl({"queue", "remove", "Line 2"}).code, 1);
    EXPECT_EQ(vigilctl({"queue", "list"}).out.count('\n'), 2);
}

TEST_F(QueueStatusTest, StatusPollsACopyAndLeavesTheStoreAsItWas)
{
    // Printer types no driver claims: local label printers.
    vigilctl({"queue", "add", "Line 1", "--port", "sim:echo", "--type", "1234"});
    vigilctl({"queue", "add", "Line 2", "--port", "sim:echo?delay=1", "--type", "1780"});
    // A coder that only ever echoes its question never gives a whole answer.
    vigilctl({"queue", "add", "Coder", "--port", "sim:echo", "--type", "2100"});
    // The shortest interval, so that two cycles take four seconds.
    vigilctl({"store", "set", "HKLM\\Software\\Orvane\\Vigil\\Options", "PollInterval", "4000",
              "--dword"});
    const QString before = vigilctl({"store", "export"}).out;

    const Outcome text = vigilctl({"status", "--cycles", "2"});
    EXPECT_EQ(text.code, 2) << text.err.toStdString();
    EXPECT_EQ(text.out, QStringLiteral("All Printers: 1 good, \"All Printers\"\n"
                                       "  Coder: 0 no answer, \"Coder: (0)\"\n"
                                       "  Line 1: 1 good, \"Line 1\"\n"
                                       "  Line 2: 1 good, \"Line 2\"\n"));
    EXPECT_EQ(vigilctl({"store", "export"}).out, before);

    vigilctl({"queue", "remove", "Coder"});
    const Outcome json = vigilctl({"status", "--json"});
    EXPECT_EQ(json.code, 0);
    const QJsonObject root = QJsonDocument::fromJson(json.out.toUtf8()).object();
    EXPECT_EQ(root["id"].toString(), QStringLiteral("GPRoot"));
    EXPECT_TRUE(root["group"].toBool());
    const QJsonArray children = root["children"].toArray();
    ASSERT_EQ(children.size(), 2);
    const QJsonObject line2 = children[1].toObject();
    EXPECT_EQ(line2["name"].toString() + " " + line2["handler"].toString(),
              QStringLiteral("Line 2 clsLBXPrinterHandler"));
    EXPECT_EQ(line2["printerNumber"].toInt(), 1780);
    EXPECT_EQ(line2["state"].toInt(), 1);
    EXPECT_TRUE(line2["id"].toString().startsWith("ID"));
}

TEST_F(QueueStatusTest, AStatusThatCannotRunSaysSoWithCodeThree)
{
    EXPECT_EQ(vigilctl({"status", "--cycles", "0"}).code, 3);
    EXPECT_EQ(vigilctl({"status", "extra"}).code, 3);
    QFile notAStore(storePath());
    ASSERT_TRUE(notAStore.open(QIODevice::WriteOnly) && notAStore.write("not a store bytes") > 0);
    notAStore.close();
    const Outcome failed = vigilctl({"status"});
    EXPECT_EQ(failed.code, 3);
    EXPECT_TRUE(failed.err.contains("can't be used")) << failed.err.toStdString();
}

// The exit codes as monitoring systems read them, from the worst enabled printer.
using StatusVerdictTest = TreeFixture;

TEST_F(StatusVerdictTest, TheWorstEnabledPrinterDecides)
{
    EXPECT_EQ(StatusReport::verdict(*g_oComponents), StatusReport::AllGood); // no printer at all
    auto hall = group("GPHall", "Hall", *g_oComponents);
    auto good = printer("IDA", "A", *hall);
    auto other = printer("IDB", "B", *g_oComponents);
    EXPECT_EQ(StatusReport::verdict(*g_oComponents), StatusReport::AllGood);

    const std::pair<qint32, StatusReport::Verdict> cases[] = {
        {StateWarning, StatusReport::Warning},   {StateFault, StatusReport::Critical},
        {StatePortBusy, StatusReport::Critical}, {StateNoAnswer, StatusReport::Critical},
        {StateGood, StatusReport::AllGood},
    };
    for (const auto& [state, verdict] : cases) {
        handlerOf(*good).state = state;
        EXPECT_EQ(StatusReport::verdict(*g_oComponents), verdict) << state;
    }
    handlerOf(*good).state = StateFault;
    good->setDisabled(true); // a disabled printer isn't counted
    EXPECT_EQ(StatusReport::verdict(*g_oComponents), StatusReport::AllGood);
    handlerOf(*other).state = StateWarning;
    EXPECT_EQ(StatusReport::verdict(*g_oComponents), StatusReport::Warning);

    const QString text = StatusReport::text(*g_oComponents);
    EXPECT_TRUE(text.contains("  Hall: 5 disabled, \"Hall\"\n    A: 5 disabled, \"A\"\n"))
        << text.toStdString();
}
} // namespace
