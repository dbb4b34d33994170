#include "pages/PrinterFrame.h"

#include "core/AddInControl.h"
#include "core/ComponentHandler.h"
#include "core/ErrorColours.h"
#include "core/Globals.h"
#include "core/clsComponent.h"
#include "core/clsComponents.h"
#include "pages/HandlerMismatch.h"
#include "pages/PrinterStatusStrip.h"
#include "pages/SettingsWebLink.h"
#include "pages/ctlGeneralPage.h"
#include "platform/qt/QtTreeView.h"
#include "platform/qt/Twips.h"
#include "services/ErrorBox.h"
#include "services/MessageCatalogue.h"

#include <QTabWidget>

namespace {
constexpr int Margin = 8;
constexpr qint32 LargeIcon = 3;
// The size the frame is made at, in twips.
constexpr QSize DesignSize(7000, 4500);

// The handler doesn't tell its node; printers are named after their queues, one node each.
clsComponent* nodeOf(const ComponentHandler& handler)
{
    return g_oComponents ? g_oComponents->FindPrinter(handler.m_sName) : nullptr;
}

// The node's large icon as the tree's image list holds it; none before its images are added.
QString largeIconOf(clsComponent& node)
{
    const qint32 index = node.GetIconIndex(LargeIcon);
    const ImageList::Picture* picture =
        index && g_oAddIn ? g_oAddIn->GetFromImageList(LargeIcon, index) : nullptr;
    return picture ? picture->path : QString();
}
} // namespace

PrinterFrame::PrinterFrame(Kind kind, QWidget* parent)
    : QWidget(parent)
    , m_kind(std::move(kind))
    , m_statusStrip(new PrinterStatusStrip(bool(m_kind.timeoutMessage), this))
    , m_TabStrip1(new QTabWidget(this))
    , m_generalPage(new ctlGeneralPage)
{
    // Pages look for their frame by the name of the page their handler gives.
    setObjectName(m_kind.controlName);
    m_TabStrip1->setObjectName(QStringLiteral("TabStrip1"));
    m_generalPage->setObjectName(QStringLiteral("ctlGeneralPage_Page"));
    m_TabStrip1->addTab(m_generalPage, QString());
    if (!m_kind.settingsCaption.isEmpty()) {
        m_ctlSettingsWebBrowser = new SettingsWebLink;
        m_ctlSettingsWebBrowser->setObjectName(QStringLiteral("ctlSettingsWebBrowser"));
        m_TabStrip1->addTab(m_ctlSettingsWebBrowser, m_kind.settingsCaption);
    }
    connect(m_TabStrip1, &QTabWidget::currentChanged, this, &PrinterFrame::TabStrip1_Click);

    const QSize size = m_kind.minimumSize.value_or(DesignSize);
    resize(toPixels(size.width()), toPixels(size.height()));
    const int stripHeight = m_statusStrip->sizeHint().height();
    m_statusStrip->setGeometry(Margin, Margin, width() - 2 * Margin, stripHeight);
    const int tabTop = Margin + stripHeight + Margin;
    m_TabStrip1->setGeometry(Margin, tabTop, width() - 2 * Margin, height() - tabTop - Margin);
}

QString PrinterFrame::context(const char* routine) const
{
    return m_kind.controlName + QStringLiteral(" - ") + QLatin1String(routine);
}

void PrinterFrame::Setup(const QString&, ComponentHandler* oHandler)
{
    if (!oHandler || oHandler->GetControlName() != m_kind.controlName)
        throw HandlerMismatch(m_kind.controlName, oHandler);
    m_TabStrip1->setTabText(m_TabStrip1->indexOf(m_generalPage),
                            GetMessage(m_kind.generalCaptionId, QStringLiteral("general")));
    if (m_Handler)
        m_Handler->disconnect(this);
    m_Handler = oHandler;
    connect(oHandler, &ComponentHandler::StatusChanged, this,
            &PrinterFrame::m_Handler_StatusChanged);
    m_Handler_StatusChanged();
    m_rightMargin = width() - m_TabStrip1->width();
    m_bottomMargin = height() - m_TabStrip1->height();
    m_TabStrip1->setCurrentWidget(m_generalPage);
}

void PrinterFrame::m_Handler_StatusChanged()
{
    RunTrapped(context("m_Handler_StatusChanged"), [this] {
        if (!m_Handler)
            return;
        ComponentHandler& handler = *m_Handler;
        m_generalPage->Setup(handler.m_sName, handler.Port(), handler.HandlerFreindlyName(),
                             handler.PortBusy(), handler.Disabled());
        clsComponent* node = nodeOf(handler);
        m_statusStrip->setIcon(node ? largeIconOf(*node) : QString());
        m_statusStrip->setName(handler.m_sName);
        if (m_kind.timeoutMessage)
            m_statusStrip->setTimeout(m_kind.timeoutMessage(handler));
        m_statusStrip->setColour(node ? node->GetErrorColour(DashboardPalette, false) : ButtonFace);
    });
}

std::optional<bool> PrinterFrame::DoResize(qint16 nWidth, qint16 nHeight)
{
    if (!m_kind.minimumSize)
        return std::nullopt;
    resize(toPixels(std::max<int>(nWidth, m_kind.minimumSize->width())),
           toPixels(std::max<int>(nHeight, m_kind.minimumSize->height())));
    return true;
}

void PrinterFrame::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    if (m_rightMargin == -1)
        return;
    m_TabStrip1->resize(width() - m_rightMargin, height() - m_bottomMargin);
    m_statusStrip->resize(m_TabStrip1->width(), m_statusStrip->height());
}

// The printer's web page is loaded the first time its tab is shown; later visits keep what
// the view shows.
void PrinterFrame::TabStrip1_Click(int index)
{
    RunTrapped(context("TabStrip1_Click"), [&] {
        if (!m_ctlSettingsWebBrowser || m_TabStrip1->widget(index) != m_ctlSettingsWebBrowser ||
            !m_ctlSettingsWebBrowser->isBlank() || !m_Handler)
            return;
        const QString host = m_Handler->Port().section(QLatin1Char(':'), 0, 0);
        m_ctlSettingsWebBrowser->navigate(QStringLiteral(R"(http:\\)") + host);
    });
}
