#pragma once

#include "core/HistoryTimeline.h"

#include <QChart>

// A timeline drawn as a chart: one row a printer, named on the left, with a band of its
// state's colour in the tree for each stretch of time.
class HistoryChart : public QChart
{
    Q_OBJECT

public:
    explicit HistoryChart(QGraphicsItem* parent = nullptr);

    // Draws these rows over that period in place of what was drawn.
    void show(const HistoryTimeline& timeline, qint64 fromMs, qint64 toMs);
};
