#include "pages/PrinterFrame.h"

#include "core/ComponentHandler.h"
#include "core/ErrorColours.h"
#include "core/clsComponent.h"
#include "pages/HandlerMismatch.h"
#include "pages/PrinterPage.h"
#include "pages/PrinterStatusStrip.h"
#include "platform/qt/Twips.h"
#include "services/ErrorBox.h"
#include "services/MessageCatalogue.h"

#include <QBoxLayout>
#include <QStackedWidget>
#include <QTabBar>

namespace {
constexpr int Margin = 8;
constexpr qint32 LargeIcon = 3;
} // namespace

PrinterFrame::PrinterFrame(const QString& tabStripName, bool bShowsTimeout, QWidget* parent)
    : QWidget(parent)
    , m_statusStrip(new PrinterStatusStrip(bShowsTimeout, this))
    , m_tabSheet(new QWidget(this))
    , m_tabBar(new QTabBar(m_tabSheet))
    , m_pageArea(new QStackedWidget(m_tabSheet))
{
    m_tabSheet->setObjectName(tabStripName);
    m_tabBar->setObjectName(tabStripName + QStringLiteral("_Tabs"));
    m_tabBar->setExpanding(false);
    m_pageArea->setFrameShape(QFrame::StyledPanel);
    auto* sheet = new QVBoxLayout(m_tabSheet);
    sheet->setContentsMargins(0, 0, 0, 0);
    sheet->setSpacing(0);
    sheet->addWidget(m_tabBar);
    sheet->addWidget(m_pageArea, 1);
    connect(m_tabBar, &QTabBar::currentChanged, this, &PrinterFrame::tabClicked);
}

void PrinterFrame::addTabs(const QList<Tab>& tabs, const QList<QWidget*>& pages)
{
    m_tabs = tabs;
    // The tabs are added silently: no page is current before Setup.
    const QSignalBlocker quiet(m_tabBar);
    for (const Tab& tab : tabs) {
        const int index = m_tabBar->addTab(tab.caption);
        m_tabBar->setTabData(index, tab.key);
    }
    for (QWidget* page : pages)
        m_pageArea->addWidget(page);
}

void PrinterFrame::layOut(QSize designTwips, int roomBelowTabs)
{
    const int stripHeight = m_statusStrip->sizeHint().height();
    const int tabTop = Margin + stripHeight + Margin;
    const int below = roomBelowTabs + Margin;
    const QSize sheet = m_tabSheet->sizeHint();
    resize(std::max(toPixels(designTwips.width()), sheet.width() + 2 * Margin),
           std::max(toPixels(designTwips.height()), tabTop + sheet.height() + below));
    m_statusStrip->setGeometry(Margin, Margin, width() - 2 * Margin, stripHeight);
    m_tabSheet->setGeometry(Margin, tabTop, width() - 2 * Margin, height() - tabTop - below);
    placeAroundTabs();
}

QString PrinterFrame::context(const char* routine) const
{
    return QLatin1String(metaObject()->className()) + QStringLiteral(" - ") +
           QLatin1String(routine);
}

void PrinterFrame::Setup(const QString& sName, ComponentHandler* oHandler)
{
    const QString frameClass = QLatin1String(metaObject()->className());
    if (!oHandler || oHandler->GetControlName() != frameClass)
        throw HandlerMismatch(frameClass, oHandler);
    for (int index = 0; index < m_tabs.size(); ++index) {
        const Tab& tab = m_tabs[index];
        if (tab.captionId)
            m_tabBar->setTabText(index, GetMessage(tab.captionId, tab.caption));
    }
    if (m_Handler)
        m_Handler->disconnect(this);
    m_Handler = oHandler;
    connect(oHandler, &ComponentHandler::StatusChanged, this,
            &PrinterFrame::m_Handler_StatusChanged);
    setupPages(sName, *oHandler);
    m_Handler_StatusChanged();
    m_rightMargin = width() - m_tabSheet->width();
    m_bottomMargin = height() - m_tabSheet->height();
    m_tabBar->setCurrentIndex(0);
    tabClicked(0);
}

void PrinterFrame::m_Handler_StatusChanged()
{
    RunTrapped(context("m_Handler_StatusChanged"), [this] {
        if (!m_Handler)
            return;
        ComponentHandler& handler = *m_Handler;
        refreshGeneralPage(handler);
        clsComponent* node = PrinterNode(handler);
        m_statusStrip->setIcon(node ? node->GetIcon(LargeIcon) : QString());
        m_statusStrip->setName(handler.m_sName);
        m_statusStrip->setTimeout(timeoutMessage(handler));
        m_statusStrip->setColour(node ? node->GetErrorColour(DashboardPalette, false) : ButtonFace);
        statusChanged();
    });
}

void PrinterFrame::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    if (m_rightMargin == -1)
        return;
    m_tabSheet->resize(width() - m_rightMargin, height() - m_bottomMargin);
    m_statusStrip->resize(m_tabSheet->width(), m_statusStrip->height());
    placeAroundTabs();
}

void PrinterFrame::tabClicked(int index)
{
    RunTrapped(context("tabSheet_Click"), [&] {
        const QString tag = m_tabBar->tabData(index).toString();
        if (m_currentPage && tag == QLatin1String(m_currentPage->metaObject()->className()))
            return;
        if (QWidget* page = pageForTag(tag))
            showPage(page);
    });
}

void PrinterFrame::showPage(QWidget* page)
{
    m_pageArea->setCurrentWidget(page);
    m_currentPage = page;
}
