#include "core/GroupHandler.h"

#include "core/IconFiles.h"
#include "core/clsComponent.h"
#include "services/MessageCatalogue.h"

void GroupHandler::setDisabled(bool disabled)
{
    m_bDisabled = disabled;
    emit StatusChanged();
}

bool GroupHandler::Initialise(clsComponent* oComponent, const QString& sKey, const QString& sName)
{
    m_oParent = oComponent;
    m_sID = sKey;
    m_sName = sName;
    return true;
}

void GroupHandler::Process()
{
    if (m_oParent)
        m_sName = m_oParent->m_sName;
    emit StatusChanged();
}

QString GroupHandler::HandlerFreindlyName()
{
    return GetMessage(99, QStringLiteral("Group"));
}

QString GroupHandler::PrinterIcon(qint32)
{
    return IconFile(QStringLiteral("Group.ico"));
}

ErrorState GroupHandler::GetErrorState()
{
    return m_bDisabled ? StateDisabled : StateNoAnswer;
}

TreeNode* GroupHandler::RequestComponent(const QString& sID)
{
    return m_oParent ? m_oParent->GetTreeComponent(sID, false) : nullptr;
}
