// The history view: the timeline's rows and bands for a group's printers, the list of their
// changes, what comes in at a refresh, and a history that is missing or damaged.

#include "platform/qt/HistoryView.h"

#include "core/ErrorState.h"
#include "core/PresentTime.h"
#include "platform/qt/HistoryChart.h"
#include "services/StateHistoryFile.h"
#include "support/FakeClock.h"
#include "ui/WidgetApplication.h"

#include <QAreaSeries>
#include <QCategoryAxis>
#include <QComboBox>
#include <QFile>
#include <QLabel>
#include <QLineSeries>
#include <QTemporaryDir>
#include <QTreeWidget>
#include <algorithm>
#include <memory>

namespace {
constexpr qint64 HourMs = 3600 * 1000LL;
const QDateTime Now = QDateTime::fromString(QStringLiteral("2026-11-20T12:00:00"), Qt::ISODate);
const qint64 NowMs = Now.toMSecsSinceEpoch();

StateChange change(qint64 hoursAgo, const QString& printer, const QString& group,
                   std::optional<qint32> oldState, qint32 newState, const QString& alert = {})
{
    return StateChange{
        NowMs - hoursAgo * HourMs, printer.toLower(), printer, {group}, oldState, newState, alert};
}

class HistoryViewTest : public ::testing::Test
{
protected:
    static void SetUpTestSuite() { EnsureWidgetApplication(); }
    void SetUp() override
    {
        InstallClock(m_clock);
        // Printer A was good before the day began; it faulted 3 hours ago and came back 1
        // hour ago. B came up 2 hours ago with a warning. C is in another group.
        write({change(30, "A", "Line 1", std::nullopt, StateGood),
               change(3, "A", "Line 1", StateGood, StateFault, "Ink low"),
               change(2, "B", "Line 1", std::nullopt, StateWarning),
               change(2, "C", "Line 2", std::nullopt, StateGood),
               change(1, "A", "Line 1", StateFault, StateGood)});
    }
    void TearDown() override { InstallClock(nullptr); }

    void write(const QList<StateChange>& changes)
    {
        StateHistoryFile file(path(), StateHistoryFile::Mode::Write);
        ASSERT_TRUE(file.append(changes)) << file.problem().toStdString();
    }
    QString path() const { return m_folder.filePath(QStringLiteral("history.sqlite")); }
    std::unique_ptr<HistoryView> lineOneView(const QString& historyPath)
    {
        auto view = std::make_unique<HistoryView>(historyPath);
        view->showScope(HistoryScope{{}, {QStringLiteral("Line 1")}}, QStringLiteral("Line 1"));
        return view;
    }
    static QStringList listed(const HistoryView& view)
    {
        QStringList lines;
        const auto& list = ChildOf<QTreeWidget>(view, "changes");
        for (int row = 0; row < list.topLevelItemCount(); ++row) {
            const QTreeWidgetItem* item = list.topLevelItem(row);
            lines << QStringList{item->text(1), item->text(2), item->text(3)}.join('|');
        }
        return lines;
    }
    // The names of the printers' rows, top first.
    static QStringList rows(HistoryView& view)
    {
        QStringList names;
        for (QAbstractAxis* axis : view.chart().axes(Qt::Vertical))
            names = static_cast<QCategoryAxis*>(axis)->categoriesLabels();
        std::reverse(names.begin(), names.end());
        return names;
    }

    std::shared_ptr<FakeClock> m_clock = std::make_shared<FakeClock>(Now);
    QTemporaryDir m_folder;
};

TEST_F(HistoryViewTest, AGroupShowsARowForEachOfItsPrintersWithBandsInTheTreesColours)
{
    auto view = lineOneView(path());

    EXPECT_EQ(rows(*view), (QStringList{"A", "B"}));
    QMap<QString, QColor> colours;
    QList<QPointF> faultBands;
    for (QAbstractSeries* series : view->chart().series()) {
        auto* area = static_cast<QAreaSeries*>(series);
        colours.insert(area->name(), area->color());
        if (area->name() == "fault")
            faultBands = area->upperSeries()->points();
    }
    EXPECT_EQ(colours.keys(), (QStringList{"fault", "good", "warning"}));
    EXPECT_EQ(colours["fault"], QColor(255, 0, 0));
    EXPECT_EQ(colours["warning"], QColor(255, 255, 0));
    EXPECT_EQ(colours["good"], QColor(0, 178, 0));
    // A's fault, from 3 hours ago to 1 hour ago.
    ASSERT_EQ(faultBands.size(), 4);
    EXPECT_EQ(qint64(faultBands[1].x()), NowMs - 3 * HourMs);
    EXPECT_EQ(qint64(faultBands[2].x()), NowMs - HourMs);
}

TEST_F(HistoryViewTest, ListsTheGroupsChangesOfThePeriodNewestLast)
{
    auto view = lineOneView(path());

    EXPECT_EQ(listed(*view),
              (QStringList{"Line 1 / A|good → fault|Ink low", "Line 1 / B|came up warning|",
                           "Line 1 / A|fault → good|"}));
    // The week reaches back to A's coming up.
    ChildOf<QComboBox>(*view, "period").setCurrentIndex(1);
    EXPECT_EQ(listed(*view).size(), 4);
    EXPECT_EQ(listed(*view).first(), "Line 1 / A|came up good|");
}

TEST_F(HistoryViewTest, ARefreshAddsOnlyWhatWasWrittenSince)
{
    auto view = lineOneView(path());
    write({change(0, "B", "Line 1", StateWarning, StateGood),
           change(0, "C", "Line 2", StateGood, StateFault)});

    view->refresh();
    view->refresh();

    EXPECT_EQ(listed(*view).size(), 4);
    EXPECT_EQ(listed(*view).last(), "Line 1 / B|warning → good|");
}

TEST_F(HistoryViewTest, AMissingOrDamagedHistoryIsSaidInOneLine)
{
    QFile damaged(m_folder.filePath(QStringLiteral("damaged.sqlite")));
    ASSERT_TRUE(damaged.open(QIODevice::WriteOnly));
    damaged.write(QByteArray(4096, 'x'));
    damaged.close();

    for (const QString& name :
         {m_folder.filePath(QStringLiteral("missing.sqlite")), damaged.fileName()}) {
        auto view = lineOneView(name);
        view->refresh();
        const auto& problem = ChildOf<QLabel>(*view, "problem");
        EXPECT_FALSE(problem.isHidden()) << name.toStdString();
        EXPECT_TRUE(problem.text().contains(name)) << problem.text().toStdString();
        EXPECT_FALSE(problem.text().contains('\n'));
        EXPECT_TRUE(listed(*view).isEmpty());
        EXPECT_TRUE(view->chart().series().isEmpty());
    }
}
} // namespace
