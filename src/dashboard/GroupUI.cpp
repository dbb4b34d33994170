#include "dashboard/GroupUI.h"

#include "core/GroupHandler.h"
#include "pages/HandlerMismatch.h"
#include "platform/qt/QtTreeView.h"
#include "platform/qt/Twips.h"

#include <QLabel>

namespace {
constexpr int Margin = 8;
// An empty dashboard's surface, in twips.
constexpr QSize SurfaceSize(6600, 5280);
} // namespace

GroupUI::GroupUI(QWidget* parent)
    : QWidget(parent)
    , m_lblName(new QLabel(QStringLiteral("group name"), this))
{
    setObjectName(QStringLiteral("GroupUI"));
    resize(SurfaceSize / TwipsPerPixel);
    m_lblName->setObjectName(QStringLiteral("lblName"));
    QFont font(QStringLiteral("Arial"));
    font.setPointSize(12);
    font.setBold(true);
    m_lblName->setFont(font);
    m_lblName->setGeometry(Margin, Margin, width() - 2 * Margin, m_lblName->sizeHint().height());
}

void GroupUI::Setup(const QString&, ComponentHandler* oHandler)
{
    auto* handler = qobject_cast<GroupHandler*>(oHandler);
    if (!handler)
        throw HandlerMismatch(QStringLiteral("GroupUI"), oHandler);
    if (m_Handler)
        m_Handler->disconnect(this);
    m_Handler = handler;
    connect(handler, &ComponentHandler::StatusChanged, this, &GroupUI::m_Handler_StatusChanged);
    m_Handler_StatusChanged();
}

void GroupUI::m_Handler_StatusChanged()
{
    if (m_Handler)
        m_lblName->setText(m_Handler->m_sName);
}
