#include "pages/DominoFrame.h"

#include "drivers/QueuedPrinterHandler.h"
#include "pages/PrinterPage.h"

#include <QPushButton>

namespace {
constexpr QSize DesignSize(10500, 8250);
constexpr int ButtonGap = 6;
constexpr qint32 MsgApply = 17;
constexpr qint32 MsgCancel = 16;
} // namespace

DominoFrame::DominoFrame(QWidget* parent)
    : PrinterFrame(QStringLiteral("tabSheet"), true, parent)
    , m_cmdApply(new QPushButton(QStringLiteral("apply"), this))
    , m_cmdCancel(new QPushButton(QStringLiteral("cancel"), this))
{
    m_cmdApply->setObjectName(QStringLiteral("cmdApply"));
    m_cmdCancel->setObjectName(QStringLiteral("cmdCancel"));
    m_cmdApply->setEnabled(false);
    m_cmdCancel->setEnabled(false);
}

void DominoFrame::addPages(const QList<Tab>& tabs, const QList<PageName>& searchOrder,
                           const QList<QWidget*>& pages, const QList<PrinterPage*>& setupOrder)
{
    m_searchOrder = searchOrder;
    m_setupOrder = setupOrder;
    addTabs(tabs, pages);
    Caption(*m_cmdApply, MsgApply, m_cmdApply->text());
    Caption(*m_cmdCancel, MsgCancel, m_cmdCancel->text());
    layOut(DesignSize, ButtonGap + buttonSize().height());
}

void DominoFrame::setupPages(const QString& sName, ComponentHandler& handler)
{
    for (PrinterPage* page : m_setupOrder)
        page->Setup(sName, &handler);
}

QWidget* DominoFrame::pageForTag(const QString& tag)
{
    for (const PageName& entry : m_searchOrder)
        if (tag.contains(entry.name))
            return entry.page;
    return nullptr;
}

QString DominoFrame::timeoutMessage(ComponentHandler& handler) const
{
    const auto* queued = qobject_cast<const QueuedPrinterHandler*>(&handler);
    return queued ? queued->TimeoutMessage() : QString();
}

QSize DominoFrame::buttonSize() const
{
    return m_cmdCancel->sizeHint().expandedTo(m_cmdApply->sizeHint());
}

// The buttons keep their place under the tab strip's right end, cancel rightmost.
void DominoFrame::placeAroundTabs()
{
    const QRect sheet = tabSheet()->geometry();
    const QSize button = buttonSize();
    const int top = sheet.bottom() + 1 + ButtonGap;
    m_cmdCancel->setGeometry(sheet.right() + 1 - button.width(), top, button.width(),
                             button.height());
    m_cmdApply->setGeometry(m_cmdCancel->x() - ButtonGap - button.width(), top, button.width(),
                            button.height());
}
