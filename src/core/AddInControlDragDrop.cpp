// The control's tree view as a place to drag to: printers move between groups by drag.

#include "core/AddInControl.h"
#include "core/Globals.h"
#include "core/clsComponents.h"
#include "services/ErrorBox.h"
#include "services/TextUtilities.h"

namespace {
const QString Context = QStringLiteral("AddInControl - ");
const QString ComponentDragText = QStringLiteral("MSComponent");

// The id a node's drag text carries, or none for any other text.
std::optional<QString> draggedId(const DragData& oData)
{
    if (!oData.text || !oData.text->startsWith(ComponentDragText))
        return std::nullopt;
    return oData.text->mid(ComponentDragText.size()).trimmed();
}
} // namespace

void AddInControl::treePrinters_OLEStartDrag(DragData& oData)
{
    RunTrapped(Context + QStringLiteral("treePrinters_OLEStartDrag"), [&] {
        // From where the button went down, not where the drag was recognised.
        const QString key = m_treePrinters.hitTest(m_fMouseX, m_fMouseY);
        if (key.isEmpty())
            return;
        oData.clear();
        if (TreeNode* node = SearchTreeForNodesObject(key))
            oData.text = ComponentDragText + QLatin1Char(' ') + node->m_sID;
    });
}

void AddInControl::treePrinters_OLEDragOver(const DragData& oData, int& nEffect, float fX, float fY,
                                            int nState)
{
    RunTrapped(Context + QStringLiteral("treePrinters_OLEDragOver"), [&] {
        m_treePrinters.setDropHighlight(nState == DragLeave ? QString()
                                                            : m_treePrinters.hitTest(fX, fY));
        if (!oData.text)
            return;
        // Label files are refused until they can be assigned by drag.
        nEffect = DropEffectNone;
        const std::optional<QString> id = draggedId(oData);
        if (!id || !IsPrinterId(*id))
            return;
        nEffect = DropEffectMove;
        if (m_oDragComponent.expired() && g_oComponents)
            if (TreeNode* node = g_oComponents->Find(*id))
                m_oDragComponent = node->weak_from_this();
    });
}

void AddInControl::treePrinters_OLEDragDrop(const DragData& oData, float fX, float fY)
{
    RunTrapped(Context + QStringLiteral("treePrinters_OLEDragDrop"), [&] {
        TreeNode* target = GetHitTestComponent(fX, fY);
        const std::optional<QString> id = draggedId(oData);
        if (target && id && target->isGroup())
            ReParentItem(*id, target->m_sID);
        m_treePrinters.setDropHighlight(QString());
    });
}

void AddInControl::treePrinters_OLECompleteDrag()
{
    RunTrapped(Context + QStringLiteral("treePrinters_OLECompleteDrag"), [this] {
        m_oDragComponent.reset();
        m_treePrinters.resetMousePointer();
    });
}

void AddInControl::ReParentItem(const QString& sID, const QString& sNewParentID)
{
    RunTrapped(Context + QStringLiteral("ReParentItem"), [&] {
        if (!g_oComponents)
            return;
        TreeNode* found = g_oComponents->Find(sID);
        clsComponents* oldParent = g_oComponents->FindParent(sID);
        TreeNode* target = g_oComponents->Find(sNewParentID);
        if (!found || !oldParent || !target || !target->isGroup())
            return;
        // A group can't go inside itself.
        if (found == target || found->Contains(sNewParentID))
            return;
        auto* newParent = static_cast<clsComponents*>(target);
        // The node and its handler stay as they are: only the group it belongs to changes.
        const std::shared_ptr<TreeNode> node = found->shared_from_this();
        oldParent->Remove(sID);
        m_treePrinters.removeItem(sID);
        newParent->AddComponent(sID, node);
        m_treePrinters.addItem(sNewParentID, sID, node->TreeText(), node->GetIconIndex(0));
        m_treePrinters.refresh();
        Save();
    });
}
