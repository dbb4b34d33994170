#include "platform/host/SiteGlance.h"

#include "core/Globals.h"
#include "core/PresentTime.h"
#include "core/StateCycle.h"
#include "core/clsComponent.h"
#include "core/clsComponents.h"
#include "platform/host/GlanceTitle.h"
#include "platform/qt/ControlWidget.h"

#include <QMainWindow>
#include <QStatusBar>

SiteGlance::SiteGlance(QMainWindow& window, ControlWidget& control, const QString& name)
    : m_window(window)
    , m_control(control)
    , m_name(name)
    , m_tally([] { return g_oComponents.get(); })
    , m_bar(new GlanceBar)
{
    // Permanent, so that the actions' status tips don't cover it.
    window.statusBar()->addPermanentWidget(m_bar);
    connect(&m_tally, &SiteTally::countsChanged, this, &SiteGlance::showCounts);
    connect(m_bar, &GlanceBar::nextAsked, this, &SiteGlance::selectNext);
    // Items come and go with the printers and groups: each time the tree is walked again, once
    // for all that came in the same turn.
    const QAbstractItemModel* items = control.treeView().widget().model();
    connect(items, &QAbstractItemModel::rowsInserted, &m_tally, &SiteTally::treeChanged);
    connect(items, &QAbstractItemModel::rowsRemoved, &m_tally, &SiteTally::treeChanged);
    connect(items, &QAbstractItemModel::modelReset, &m_tally, &SiteTally::treeChanged);
}

void SiteGlance::followPolling()
{
    const QDateTime now = PresentTime();
    m_polling.follow(m_control.control().scheduler().pollingDisabled(), now);
    m_bar->showPollingNote(m_polling.text(now));
}

void SiteGlance::selectNext(ErrorState state)
{
    if (!g_oComponents)
        return;
    const QString current = m_control.treeView().selectedKey();
    const clsComponent* printer = StateCycle::next(*g_oComponents, state, current);
    if (printer)
        selectPrinter(printer->m_sID);
}

void SiteGlance::selectPrinter(const QString& printerId)
{
    QtTreeView& view = m_control.treeView();
    for (QString group = view.parentKey(printerId); !group.isEmpty(); group = view.parentKey(group))
        view.expandItem(group);
    m_control.control().SelectTreeItem(printerId);
}

void SiteGlance::showCounts()
{
    m_bar->showCounts(m_tally.counts());
    m_window.setWindowTitle(GlanceTitle::of(m_tally.counts(), m_name));
}
