// vigilctl history over what vigilctl status wrote while it polled simulated printers, and the
// share of time in each state it sums up.

#include "StateShares.h"
#include "integration/SimulatedSiteFixture.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace {
using HistoryCommandTest = SimulatedSiteFixture;

TEST_F(HistoryCommandTest, StatusRunsLeaveTheChangesThatHistoryPrints)
{
    // Ink low, a fault, two seconds after the first question; out three seconds later, a
    // fault still, which is no change.
    serve({{"Draining", {"c-series", 2100, R"("inklowafter": 2, "remaining": 3)"}},
           {"Steady", {"c-series", 2100, R"("file": "BATCH1")"}}});
    const Outcome before = vigilctl({"history"});
    EXPECT_EQ(before.code, 3);
    EXPECT_TRUE(before.err.contains("there is no history at")) << before.err.toStdString();

    const Outcome status = vigilctl({"status", "--cycles", "3"});
    ASSERT_TRUE(status.out.contains("  Draining: 3 fault")) << status.out.toStdString();

    const Outcome all = vigilctl({"history"});
    ASSERT_EQ(all.code, 0) << all.err.toStdString();
    const QStringList lines = all.out.split('\n', Qt::SkipEmptyParts);
    QStringList draining = lines.filter("  Draining  ");
    ASSERT_EQ(draining.size(), 2) << all.out.toStdString();
    EXPECT_TRUE(draining[0].endsWith("  Draining  came up good")) << all.out.toStdString();
    EXPECT_TRUE(draining[1].contains("  good -> fault  \"Ink low")) << all.out.toStdString();
    EXPECT_EQ(lines.filter("  Steady  ").size(), 1) << all.out.toStdString();
    // Newest last.
    EXPECT_LT(lines.indexOf(draining[0]), lines.indexOf(draining[1]));

    const Outcome csv = vigilctl({"history", "Draining", "--csv", "--since", "1h"});
    ASSERT_EQ(csv.code, 0);
    const QStringList rows = csv.out.split('\n', Qt::SkipEmptyParts);
    ASSERT_EQ(rows.size(), 3) << csv.out.toStdString();
    EXPECT_EQ(rows[0], QStringLiteral("time,printer_id,printer,groups,old_state,new_state,alert"));
    EXPECT_TRUE(rows[2].contains(",Draining,,good,fault,Ink low")) << csv.out.toStdString();
    // Nothing from a day to come.
    const QString tomorrow = QDate::currentDate().addDays(1).toString(Qt::ISODate);
    EXPECT_EQ(vigilctl({"history", "--since", tomorrow}).out, QString());

    const Outcome summary = vigilctl({"history", "--summary", "--json"});
    ASSERT_EQ(summary.code, 0) << summary.err.toStdString();
    const QJsonObject shares = QJsonDocument::fromJson(summary.out.toUtf8()).object();
    const QJsonArray printers = shares["printers"].toArray();
    ASSERT_EQ(printers.size(), 2) << summary.out.toStdString();
    for (const QJsonValue& printer : printers) {
        const QJsonObject share = printer["shares"].toObject();
        if (printer["name"] == "Steady")
            EXPECT_DOUBLE_EQ(share["good"].toDouble(), 1.0);
        else
            EXPECT_GT(share["fault"].toDouble(), 0.0);
    }

    // Bad input: a clear line and its code each.
    for (const auto& [args, code] : {std::pair{QStringList{"history", "--since", "yesterday"}, 2},
                                     {QStringList{"history", "--since"}, 2},
                                     {QStringList{"history", "--csv", "--json"}, 2},
                                     {QStringList{"history", "Nobody"}, 1}}) {
        const Outcome refused = vigilctl(args);
        EXPECT_EQ(refused.code, code) << args.join(' ').toStdString();
        EXPECT_FALSE(refused.err.isEmpty());
    }
    QFile damaged(m_dir.filePath("history.sqlite"));
    ASSERT_TRUE(damaged.open(QIODevice::WriteOnly | QIODevice::Truncate));
    damaged.write(QByteArray(4096, 'x'));
    damaged.close();
    const Outcome unreadable = vigilctl({"history"});
    EXPECT_EQ(unreadable.code, 3);
    EXPECT_TRUE(unreadable.err.contains("can't be")) << unreadable.err.toStdString();
    // A status run goes on without it, and says so once.
    const Outcome without = vigilctl({"status"});
    EXPECT_TRUE(without.out.contains("  Steady: 1 good")) << without.out.toStdString();
    EXPECT_EQ(without.err.split('\n').filter("history.sqlite").size(), 1)
        << without.err.toStdString();
}

TEST(StateSharesTest, EachPrinterCountsFromItsStateAtTheStartToTheEnd)
{
    // From 100 to 200: A was good from before the period, a fault from 150 on; B came up at
    // 180 and was not seen before.
    const QList<StateChange> changes{
        {40, "ID1", "A", {"Hall", "Line 1"}, {}, 1, {}},
        {150, "ID1", "A", {"Hall", "Line 1"}, 1, 3, "Ink empty"},
        {180, "ID2", "B", {"Hall"}, {}, 2, {}},
    };
    const StateShares shares(changes, 100, 200);
    // Ordered by their groups, then names: B, in the hall itself, before A of Line 1.
    ASSERT_EQ(shares.printers().size(), 2);
    const StateShares::Row& a = shares.printers()[1];
    EXPECT_EQ(a.observedMs(), 100);
    EXPECT_DOUBLE_EQ(a.share(1), 0.5);
    EXPECT_DOUBLE_EQ(a.share(3), 0.5);
    EXPECT_EQ(shares.printers()[0].observedMs(), 20);

    // A group holds its printers' time, also that of its groups'.
    ASSERT_EQ(shares.groups().size(), 2);
    const StateShares::Row& hall = shares.groups()[0];
    EXPECT_EQ(hall.name, QStringLiteral("Hall"));
    EXPECT_EQ(hall.observedMs(), 120);
    EXPECT_DOUBLE_EQ(hall.share(2), 20.0 / 120.0);
    EXPECT_EQ(shares.groups()[1].observedMs(), 100);
}
} // namespace
