#include "platform/qt/HistoryChart.h"

#include "core/ErrorColours.h"
#include "core/StateWords.h"
#include "platform/qt/QtTreeView.h"

#include <QAreaSeries>
#include <QCategoryAxis>
#include <QDateTime>
#include <QDateTimeAxis>
#include <QGuiApplication>
#include <QLegendMarker>
#include <QLineSeries>
#include <QMap>
#include <QSet>

namespace {
// Of a row's height, what its band fills.
constexpr qreal BandHeight = 0.7;

// One state's bands on one row, as the area between a line that rises over each band and
// the row's floor.
QAreaSeries* bandsOf(const QList<HistoryTimeline::Band>& bands, qreal floor, qreal top)
{
    auto* upper = new QLineSeries;
    auto* lower = new QLineSeries;
    for (const HistoryTimeline::Band& band : bands) {
        upper->append(qreal(band.fromMs), floor);
        upper->append(qreal(band.fromMs), top);
        upper->append(qreal(band.toMs), top);
        upper->append(qreal(band.toMs), floor);
    }
    lower->append(qreal(bands.first().fromMs), floor);
    lower->append(qreal(bands.last().toMs), floor);
    return new QAreaSeries(upper, lower);
}

// The tree's colour of the state, or its text colour where the tree leaves the background
// plain.
QColor bandColour(qint32 state, const QPalette& palette)
{
    const quint32 background = LookUpColour(state, TreePalette, false);
    const quint32 colour =
        background == WindowBackground ? LookUpColour(state, TreePalette, true) : background;
    return QtTreeView::toColor(colour, palette);
}

// The printer's name, with its groups where another row already has that name.
QString rowLabel(QCategoryAxis& axis, const HistoryTimeline::Row& row)
{
    const QString name = row.printer;
    if (!axis.categoriesLabels().contains(name))
        return name;
    return (row.groups + QStringList{name, row.printerId}).join(QStringLiteral(" / "));
}
} // namespace

HistoryChart::HistoryChart(QGraphicsItem* parent)
    : QChart(parent)
{
    legend()->setAlignment(Qt::AlignBottom);
    setMargins(QMargins(4, 4, 4, 4));
}

void HistoryChart::show(const HistoryTimeline& timeline, qint64 fromMs, qint64 toMs)
{
    // The chart deletes the series it drops, but gives the axes back.
    removeAllSeries();
    for (QAbstractAxis* axis : axes()) {
        removeAxis(axis);
        delete axis;
    }

    auto* time = new QDateTimeAxis;
    const qint64 spanMs = toMs - fromMs;
    time->setFormat(spanMs > 2 * 24 * 3600 * 1000LL ? QStringLiteral("ddd d MMM")
                    : spanMs > 3600 * 1000LL        ? QStringLiteral("HH:mm")
                                                    : QStringLiteral("HH:mm:ss"));
    time->setRange(QDateTime::fromMSecsSinceEpoch(fromMs), QDateTime::fromMSecsSinceEpoch(toMs));
    auto* printers = new QCategoryAxis;
    printers->setLabelsPosition(QCategoryAxis::AxisLabelsPositionOnValue);
    printers->setGridLineVisible(false);
    const auto rows = timeline.rows();
    printers->setRange(-0.5, qMax<qreal>(rows.size(), 1) - 0.5);
    addAxis(time, Qt::AlignBottom);
    addAxis(printers, Qt::AlignLeft);

    const QPalette palette = QGuiApplication::palette();
    // The first row at the top, as in the tree; the axis takes its rows from the bottom up.
    QSet<qint32> named;
    for (qsizetype index = rows.size() - 1; index >= 0; --index) {
        const HistoryTimeline::Row& row = rows[index];
        const qreal centre = qreal(rows.size() - 1 - index);
        printers->append(rowLabel(*printers, row), centre);
        QMap<qint32, QList<HistoryTimeline::Band>> byState;
        for (const HistoryTimeline::Band& band : row.bands)
            byState[band.state].append(band);
        for (auto state = byState.cbegin(); state != byState.cend(); ++state) {
            QAreaSeries* series = bandsOf(*state, centre - BandHeight / 2, centre + BandHeight / 2);
            series->setName(StateWord(state.key()));
            series->setColor(bandColour(state.key(), palette));
            series->setPen(Qt::NoPen);
            addSeries(series);
            // An area doesn't own its lines: they go with it.
            series->upperSeries()->setParent(series);
            series->lowerSeries()->setParent(series);
            series->attachAxis(time);
            series->attachAxis(printers);
            // One entry in the legend for each state.
            const bool first = !named.contains(state.key());
            named.insert(state.key());
            for (QLegendMarker* marker : legend()->markers(series))
                marker->setVisible(first);
        }
    }
}
