// The control's tree view as a place to drag to: printers move between groups by drag, and
// label files dropped on printers and groups are assigned to them.

#include "core/AddInControl.h"
#include "core/Globals.h"
#include "core/clsComponent.h"
#include "core/clsComponents.h"
#include "drivers/Application.h"
#include "printing/clsLBXHandler.h"
#include "services/ErrorBox.h"
#include "services/TextUtilities.h"

#include <QDir>
#include <algorithm>

namespace {
const QString Context = QStringLiteral("AddInControl - ");
// The file view's key of a file: this, then the file's full path.
const QString FileKeyPrefix = QStringLiteral("ID");

// The id a node's drag text carries, or none for any other text.
std::optional<QString> draggedId(const DragData& oData)
{
    if (!oData.text || !oData.text->startsWith(ComponentDragText))
        return std::nullopt;
    return oData.text->mid(ComponentDragText.size()).trimmed();
}

// Files from the desktop can only be formats.
bool allFormats(const QStringList& files)
{
    return std::all_of(files.cbegin(), files.cend(), [](const QString& file) {
        return file.right(4).toLower() == QLatin1String(".fmt");
    });
}

// The path of a file below the label folder, which is what nodes are assigned; a file
// elsewhere is reached from the label folder by "..".
QString pathInLabelFolder(const QString& fullPath)
{
    return QDir(GetGlobalLBX().LBX_App().LabelRootFolder()).relativeFilePath(fullPath);
}
} // namespace

bool AddInControl::CanDropFile(const QString& sItemKey, const QString& sFile) const
{
    // A text that ends in "]" has a file assigned, or an alert showing.
    const bool taken = m_treePrinters.itemText(sItemKey).endsWith(QLatin1Char(']'));
    if (taken)
        return false;
    if (IsGroupId(sItemKey))
        return sFile.endsWith(QLatin1String(".LBS"));
    return sFile.endsWith(QLatin1String(".FMT"));
}

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
        if (oData.files) {
            nEffect = allFormats(*oData.files) ? DropEffectCopy : DropEffectNone;
            return;
        }
        if (!oData.text)
            return;
        nEffect = DropEffectNone;
        if (oData.text->startsWith(FileDragText)) {
            const QString key = m_treePrinters.hitTest(fX, fY);
            if (!key.isEmpty() && CanDropFile(key, *oData.text))
                nEffect = DropEffectCopy;
            return;
        }
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
        if (target)
            dropOn(*target, oData);
        m_treePrinters.setDropHighlight(QString());
    });
}

void AddInControl::dropOn(TreeNode& target, const DragData& oData)
{
    if (oData.files) {
        if (!oData.files->isEmpty())
            assignFile(target, pathInLabelFolder(oData.files->first()));
        return;
    }
    if (const std::optional<QString> id = draggedId(oData)) {
        if (target.isGroup())
            ReParentItem(*id, target.m_sID);
        return;
    }
    if (!oData.text || !oData.text->startsWith(FileDragText))
        return;
    const QString key = oData.text->mid(FileDragText.size()).trimmed();
    if (!key.startsWith(FileKeyPrefix) || !CanDropFile(target.m_sID, *oData.text))
        return;
    assignFile(target, pathInLabelFolder(key.mid(FileKeyPrefix.size())));
    m_treePrinters.setItemText(target.m_sID, target.TreeText());
}

void AddInControl::assignFile(TreeNode& target, const QString& sFilename)
{
    if (target.isGroup())
        static_cast<clsComponents&>(target).SetAssignedFile(sFilename);
    else
        static_cast<clsComponent&>(target).SetAssignedFile(sFilename);
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
