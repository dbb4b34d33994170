#include "platform/qt/HistoryView.h"

#include "core/PresentTime.h"
#include "core/StateWords.h"
#include "platform/qt/HistoryChart.h"

#include <QChartView>
#include <QComboBox>
#include <QDateTime>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QSplitter>
#include <QTreeWidget>
#include <QVBoxLayout>
#include <algorithm>

namespace {
constexpr qint64 DayMs = 24 * 3600 * 1000LL;
constexpr qint64 WeekMs = 7 * DayMs;
const QString GroupSeparator = QStringLiteral(" / ");

qint64 nowMs()
{
    return PresentTime().toMSecsSinceEpoch();
}
} // namespace

HistoryView::HistoryView(const QString& historyPath, QWidget* parent)
    : QWidget(parent, Qt::Window)
    , m_tail(historyPath)
    , m_period(new QComboBox)
    , m_problem(new QLabel)
    , m_chart(new HistoryChart)
    , m_chartView(new QChartView(m_chart))
    , m_list(new QTreeWidget)
{
    m_period->setObjectName(QStringLiteral("period"));
    m_period->addItem(tr("Last day"), DayMs);
    m_period->addItem(tr("Last week"), WeekMs);
    m_problem->setObjectName(QStringLiteral("problem"));
    m_problem->setVisible(false);
    m_chartView->setObjectName(QStringLiteral("timeline"));
    m_chartView->setRenderHint(QPainter::Antialiasing, false);
    m_chartView->setMinimumHeight(240);
    m_list->setObjectName(QStringLiteral("changes"));
    m_list->setRootIsDecorated(false);
    m_list->setHeaderLabels({tr("Time"), tr("Printer"), tr("Change"), tr("Alert")});
    m_list->header()->setSectionResizeMode(QHeaderView::ResizeToContents);

    auto* top = new QHBoxLayout;
    auto* periodLabel = new QLabel(tr("&Period:"));
    periodLabel->setBuddy(m_period);
    top->addWidget(periodLabel);
    top->addWidget(m_period);
    top->addWidget(m_problem, 1);
    top->addStretch();
    auto* split = new QSplitter(Qt::Vertical);
    split->addWidget(m_chartView);
    split->addWidget(m_list);
    split->setStretchFactor(0, 3);
    split->setStretchFactor(1, 2);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(top);
    layout->addWidget(split, 1);
    resize(900, 600);

    connect(m_period, &QComboBox::currentIndexChanged, this, &HistoryView::reload);
    m_refresh.setInterval(RefreshMs);
    connect(&m_refresh, &QTimer::timeout, this, &HistoryView::refresh);
}

void HistoryView::showEvent(QShowEvent* event)
{
    QWidget::showEvent(event);
    m_refresh.start();
}

void HistoryView::hideEvent(QHideEvent* event)
{
    m_refresh.stop();
    QWidget::hideEvent(event);
}

void HistoryView::showScope(const HistoryScope& scope, const QString& title)
{
    m_scope = scope;
    setWindowTitle(tr("History of %1").arg(title));
    reload();
}

qint64 HistoryView::periodMs() const
{
    return m_period->currentData().toLongLong();
}

void HistoryView::reload()
{
    const qint64 now = nowMs();
    m_fromMs = now - periodMs();
    m_list->clear();
    if (!m_tail.readFrom(m_fromMs)) {
        showProblem();
        return;
    }
    m_problem->setVisible(false);
    for (const StateChange& change : m_tail.changes())
        addToList(change);
    drawTimeline(now);
}

void HistoryView::refresh()
{
    const qsizetype added = m_tail.readNew();
    if (!m_tail.problem().isEmpty()) {
        showProblem();
        return;
    }
    m_problem->setVisible(false);
    const QList<StateChange>& changes = m_tail.changes();
    for (qsizetype index = changes.size() - added; index < changes.size(); ++index)
        addToList(changes[index]);
    drawTimeline(nowMs());
}

void HistoryView::showProblem()
{
    m_list->clear();
    drawTimeline(nowMs());
    m_problem->setText(tr("No history to show: %1").arg(m_tail.problem()));
    m_problem->setVisible(true);
}

void HistoryView::addToList(const StateChange& change)
{
    // The states before the period only start the timeline.
    if (change.atMs < m_fromMs || !m_scope.covers(change))
        return;
    const QString move = change.oldState ? StateWord(*change.oldState) + QStringLiteral(" → ") +
                                               StateWord(change.newState)
                                         : tr("came up %1").arg(StateWord(change.newState));
    auto* item = new QTreeWidgetItem(
        m_list,
        {QDateTime::fromMSecsSinceEpoch(change.atMs)
             .toString(QStringLiteral("yyyy-MM-dd HH:mm:ss")),
         (change.groups + QStringList{change.printer}).join(GroupSeparator), move, change.alert});
    m_list->scrollToItem(item);
}

void HistoryView::drawTimeline(qint64 toMs)
{
    const HistoryTimeline timeline(m_tail.changes(), m_scope, m_fromMs, toMs);
    // Before the history begins there is nothing to draw: the time axis starts with it.
    qint64 fromMs = toMs;
    for (const HistoryTimeline::Row& row : timeline.rows())
        fromMs = std::min(fromMs, row.bands.first().fromMs);
    m_chart->show(timeline, fromMs < toMs ? fromMs : m_fromMs, toMs);
}
