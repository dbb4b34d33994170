// The print application's queues and the headless monitor, as an administrator drives them
// with vigilctl.

#include "StatusReport.h"
#include "core/ErrorColours.h"
#include "core/StateCounts.h"
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
    // Each addition says which driver takes the type, so that a mistyped one shows at once.
    const Outcome coder =
        vigilctl({"queue", "add", "Line 1", "--port", "sim:echo", "--type", "2100"});
    EXPECT_EQ(coder.code, 0);
    EXPECT_EQ(coder.out, "added \"Line 1\", type 2100, Domino C-series coder: polled\n");
    const Outcome labeller = vigilctl({"queue", "add", "Line 2", "--port", "127.0.0.1:1", "--type",
                                       "123", "--friendly", "Labeller"});
    EXPECT_EQ(labeller.code, 0);
    EXPECT_EQ(labeller.out, "added \"Line 2\", type 123, Avery label printer: polled\n");

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
    EXPECT_EQ(vigilctl({"queue", "add", "Line 1", "--port", "sim:echo", "--type", "1234"}).out,
              "added \"Line 1\", type 1234, local label printer: shown, not polled\n");
    vigilctl({"queue", "add", "Line 2", "--port", "sim:echo?delay=1", "--type", "1780"});
    // A coder that never answers.
    vigilctl({"queue", "add", "Coder", "--port", "sim:c-series?silent=1", "--type", "2100"});
    // The shortest interval, so that two cycles take four seconds.
    vigilctl({"store", "set", "HKLM\\Software\\Orvane\\Vigil\\Options", "PollInterval", "4000",
              "--dword"});
    const QString before = vigilctl({"store", "export"}).out;

    // The first line is a monitoring plugin's, and agrees with the exit code.
    const Outcome text = vigilctl({"status", "--cycles", "2"});
    EXPECT_EQ(text.code, 2) << text.err.toStdString();
    EXPECT_EQ(text.out, QStringLiteral("CRITICAL - 3 printers: 2 good, 1 no answer | good=2 "
                                       "warning=0 fault=0 noanswer=1 busy=0 disabled=0\n"
                                       "All Printers: 1 good, \"All Printers\"\n"
                                       "  Coder: 0 no answer, \"Coder: (0)\"\n"
                                       "  Line 1: 1 good, \"Line 1\"\n"
                                       "  Line 2: 1 good, \"Line 2\"\n"));
    EXPECT_EQ(vigilctl({"store", "export"}).out, before);

    // One printer by its name; a name that isn't there is a check that could not run.
    const Outcome one = vigilctl({"status", "Line 1"});
    EXPECT_EQ(one.code, 0);
    EXPECT_EQ(one.out, QStringLiteral("OK - 1 printer: 1 good | good=1 warning=0 fault=0 "
                                      "noanswer=0 busy=0 disabled=0\n"
                                      "Line 1: 1 good, \"Line 1\"\n"));
    const Outcome none = vigilctl({"status", "Line 9"});
    EXPECT_EQ(none.code, 3);
    EXPECT_EQ(none.out,
              QStringLiteral("UNKNOWN - status: there is no group or printer named \"Line 9\"\n"));

    vigilctl({"queue", "remove", "Coder"});
    const Outcome json = vigilctl({"status", "--json"});
    EXPECT_EQ(json.code, 0);
    const QJsonObject root = QJsonDocument::fromJson(json.out.toUtf8()).object();
    EXPECT_EQ(root["id"].toString(), QStringLiteral("GPRoot"));
    EXPECT_TRUE(root["group"].toBool());
    EXPECT_EQ(root["summary"].toObject(), (QJsonObject{{"verdict", "OK"},
                                                       {"printers", 2},
                                                       {"good", 2},
                                                       {"warning", 0},
                                                       {"fault", 0},
                                                       {"noanswer", 0},
                                                       {"busy", 0},
                                                       {"disabled", 0}}));
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
    for (const QStringList& args : QList<QStringList>{
             {"status", "--cycles", "0"}, {"status", "one", "two"}, {"status", "--colour"}}) {
        const Outcome refused = vigilctl(args);
        EXPECT_EQ(refused.code, 3);
        EXPECT_TRUE(refused.out.startsWith("UNKNOWN - status: ")) << refused.out.toStdString();
    }
    QFile notAStore(storePath());
    ASSERT_TRUE(notAStore.open(QIODevice::WriteOnly) && notAStore.write("not a store bytes") > 0);
    notAStore.close();
    const Outcome failed = vigilctl({"status"});
    EXPECT_EQ(failed.code, 3);
    EXPECT_TRUE(failed.out.startsWith("UNKNOWN - the settings store ") &&
                failed.out.contains("can't be used"))
        << failed.out.toStdString();
}

// The answer as monitoring systems read it, from the worst enabled printer.
using StatusVerdictTest = TreeFixture;

TEST_F(StatusVerdictTest, TheWorstEnabledPrinterDecides)
{
    EXPECT_EQ(StateCounts::of(*g_oComponents).pluginLine(),
              "OK - 0 printers | good=0 warning=0 fault=0 noanswer=0 busy=0 disabled=0");
    auto hall = group("GPHall", "Hall", *g_oComponents);
    auto good = printer("IDA", "A", *hall);
    auto other = printer("IDB", "B", *g_oComponents);
    EXPECT_EQ(StateCounts::of(*g_oComponents).verdict(), StateCounts::Ok);

    const std::pair<ErrorState, StateCounts::Verdict> cases[] = {
        {StateWarning, StateCounts::Warning},   {StateFault, StateCounts::Critical},
        {StatePortBusy, StateCounts::Critical}, {StateNoAnswer, StateCounts::Critical},
        {StateGood, StateCounts::Ok},
    };
    for (const auto& [state, verdict] : cases) {
        handlerOf(*good).state = state;
        EXPECT_EQ(StateCounts::of(*g_oComponents).verdict(), verdict) << state;
    }
    handlerOf(*good).state = StateFault;
    good->setDisabled(true); // a disabled printer is counted, but makes nothing worse
    EXPECT_EQ(StateCounts::of(*g_oComponents).verdict(), StateCounts::Ok);
    handlerOf(*other).state = StateWarning;
    EXPECT_EQ(StateCounts::of(*g_oComponents).pluginLine(),
              "WARNING - 2 printers: 1 warning, 1 disabled | good=0 warning=1 fault=0 noanswer=0 "
              "busy=0 disabled=1");
    EXPECT_EQ(StateCounts::of(*hall).pluginLine(),
              "OK - 1 printer: 1 disabled | good=0 warning=0 fault=0 noanswer=0 busy=0 disabled=1");

    StateCounts site;
    for (const qint32 state : {1, 1, 1, 1, 1, 1, 1, 1, 1, 2, 3, 0})
        site.add(state);
    EXPECT_EQ(site.pluginLine(), "CRITICAL - 12 printers: 9 good, 1 warning, 1 fault, 1 no answer "
                                 "| good=9 warning=1 fault=1 noanswer=1 busy=0 disabled=0");
    site.add(StateWarning);
    site.add(99); // a state no driver gives is a fault
    EXPECT_TRUE(site.pluginLine().startsWith(
        "CRITICAL - 14 printers: 9 good, 2 warnings, 2 faults, 1 no answer |"));

    const QString text = StatusReport::text(*g_oComponents);
    EXPECT_TRUE(text.contains("  Hall: 5 disabled, \"Hall\"\n    A: 5 disabled, \"A\"\n"))
        << text.toStdString();
}
} // namespace
