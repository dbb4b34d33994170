#pragma once

#include "core/StateCounts.h"

#include <QHash>
#include <QObject>
#include <QTimer>
#include <functional>

class clsComponent;
class clsComponents;

// The printers of the site counted by state, kept up to date as they change: a printer that
// changes state moves one count, without a walk of the tree; printers added or removed are
// found by one walk, however many changes come in the same turn of the event loop.
class SiteTally : public QObject
{
    Q_OBJECT

public:
    // The root group the printers are found under; it may be none, or another one at the
    // next walk.
    explicit SiteTally(std::function<clsComponents*()> root, QObject* parent = nullptr);

    const StateCounts& counts() const { return m_counts; }
    // Printers may have come or gone: the tree is walked once, at the next turn of the loop.
    void treeChanged();
    // The walk, at once.
    void recount();

signals:
    void countsChanged();

private:
    void follow(clsComponent& printer);
    void printerChanged(clsComponent& printer);
    void forget(QObject* printer);

    std::function<clsComponents*()> m_root;
    QTimer m_walk;
    // Each printer followed, and the state it is counted in.
    QHash<QObject*, ErrorState> m_known;
    StateCounts m_counts;
};
