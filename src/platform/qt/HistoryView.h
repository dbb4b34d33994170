#pragma once

#include "core/HistoryTail.h"
#include "core/HistoryTimeline.h"

#include <QTimer>
#include <QWidget>

class HistoryChart;
class QChartView;
class QComboBox;
class QLabel;
class QTreeWidget;

// A window on the printers' history: the timeline of the states of a printer, or of a
// group's printers, over the last day or week, and below it the list of their changes,
// newest last. What was written since comes in every few seconds.
class HistoryView : public QWidget
{
    Q_OBJECT

public:
    static constexpr int RefreshMs = 5000;

    explicit HistoryView(const QString& historyPath, QWidget* parent = nullptr);

    // Shows those printers, under that title.
    void showScope(const HistoryScope& scope, const QString& title);
    // Takes in what was written since the last look.
    void refresh();

    HistoryChart& chart() { return *m_chart; }

protected:
    // Reads only while it is shown.
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    // Reads the period afresh and shows it.
    void reload();
    qint64 periodMs() const;
    void showProblem();
    void addToList(const StateChange& change);
    void drawTimeline(qint64 toMs);

    HistoryTail m_tail;
    HistoryScope m_scope;
    QComboBox* m_period;
    QLabel* m_problem;
    HistoryChart* m_chart;
    QChartView* m_chartView;
    QTreeWidget* m_list;
    QTimer m_refresh;
    qint64 m_fromMs = 0;
};
