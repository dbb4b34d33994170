// The control's tree view: items made and removed, the selection and the page it shows,
// groups added, renamed and deleted, the pop-up menus and the keyboard.

#include "core/AddInControl.h"
#include "core/ErrorColours.h"
#include "core/Globals.h"
#include "core/IContextMenus.h"
#include "core/IPagePane.h"
#include "core/clsComponent.h"
#include "core/clsComponents.h"
#include "printing/GroupIdentifierEditing.h"
#include "printing/GroupIdentifierSettings.h"
#include "services/ErrorBox.h"
#include "services/IDialogs.h"
#include "services/MessageCatalogue.h"
#include "services/SettingsStore.h"
#include "services/VigilError.h"

namespace {
const QString Context = QStringLiteral("AddInControl - ");
const QString GroupPrefix = QStringLiteral("GP");
const QString PrinterPrefix = QStringLiteral("ID");
// What the runtime raises for a class it can't create, and the tree control for a key it
// doesn't hold.
constexpr qint32 ClassNotAvailable = 711;
constexpr qint32 ElementNotFound = 35601;

void informationBox(const QString& text, const QString& title)
{
    IDialogs::Box box;
    box.text = text;
    box.title = title;
    box.icon = IDialogs::Icon::Information;
    IDialogs::process().show(box);
}

bool askYesNo(const QString& text)
{
    IDialogs::Box question;
    question.text = text;
    question.title = GetErrorTitle(QString());
    question.icon = IDialogs::Icon::Question;
    question.buttons = IDialogs::Buttons::YesNo;
    return IDialogs::process().show(question) == IDialogs::Answer::Yes;
}

// The node of a view item, found from the root down the item's parents by key. A key that
// the view no longer holds, and an item without a group above it, raise.
TreeNode* nodeOfItem(const ITreeView& view, const QString& key)
{
    if (key.compare(AddInControl::RootId, Qt::CaseInsensitive) == 0)
        return g_oComponents.get();
    if (!view.hasItem(key))
        throw VigilError(ElementNotFound, QStringLiteral("AddInControl"),
                         QStringLiteral("The tree holds no item %1").arg(key));
    const QString parentKey = view.parentKey(key);
    TreeNode* parent = parentKey.isEmpty() ? nullptr : nodeOfItem(view, parentKey);
    if (!parent || !parent->isGroup())
        throw VigilError(VigilError::InvalidProcedureCall, QStringLiteral("AddInControl"),
                         QStringLiteral("The tree item %1 has no group above it").arg(key));
    return static_cast<clsComponents*>(parent)->Item(key).get();
}
} // namespace

std::optional<TreeItem> AddInControl::GetTreeNode(const QString& sID)
{
    std::optional<TreeItem> item;
    RunTrapped(Context + QStringLiteral("GetTreeNode"), [&] {
        if (m_treePrinters.hasItem(sID))
            item.emplace(m_treePrinters, sID);
    });
    return item;
}

void AddInControl::SelectTreeItem(const QString& sID)
{
    IgnoringFailure([&] {
        if (!m_treePrinters.hasItem(sID))
            return;
        m_treePrinters.selectItem(sID);
        treePrinters_NodeClick(sID);
    });
}

void AddInControl::BuildTreeNodes(clsComponents& oGroup, const QString& sParentKey)
{
    m_treePrinters.setVisible(false);
    RunTrapped(Context + QStringLiteral("As "), [&] {
        oGroup.AddImages(m_imlSmallList, m_imlLargeList);
        m_treePrinters.addItem(sParentKey, oGroup.m_sID, oGroup.TreeText(), oGroup.GetIconIndex(0));
        for (const auto& child : oGroup.Col().snapshot()) {
            if (child->isGroup()) {
                BuildTreeNodes(static_cast<clsComponents&>(*child), oGroup.m_sID);
            } else {
                child->AddImages(m_imlSmallList, m_imlLargeList);
                m_treePrinters.addItem(oGroup.m_sID, child->m_sID, child->TreeText(),
                                       child->GetIconIndex(0));
            }
        }
    });
    IgnoringFailure([this] { m_treePrinters.setVisible(true); });
}

void AddInControl::bAddNode(const std::shared_ptr<TreeNode>& oItem, clsComponents& oParent,
                            bool bSelect, bool bAddItem)
{
    RunTrapped(Context + QStringLiteral("bAddNode "), [&] {
        oItem->AddImages(m_imlSmallList, m_imlLargeList);
        oParent.AddComponent(oItem->m_sID, oItem);
        if (bAddItem)
            m_treePrinters.addItem(oParent.m_sID, oItem->m_sID, oItem->TreeText(),
                                   oItem->GetIconIndex(0));
        if (bSelect && m_treePrinters.hasItem(oItem->m_sID)) {
            m_treePrinters.selectItem(oItem->m_sID);
            treePrinters_NodeClick(oItem->m_sID);
        }
    });
}

void AddInControl::AddGroup(bool bUseMouse)
{
    RunTrapped(Context + QStringLiteral("AddGroup"), [&] {
        if (!IsAdministrator())
            return;
        if (clsComponents* parent = GetSelctedParent(bUseMouse)) {
            QString name = GetMessage(21);
            for (qint32 n = 1; !parent->UniqueGroupName(name); ++n)
                name = GetMessage(21) + QLatin1Char(' ') + QString::number(n);
            auto group = std::make_shared<clsComponents>();
            group->m_sID = CreateUniqueID(true);
            group->m_sName = name;
            group->CreateUI();
            parent->AddComponent(group->m_sID, group);
            BuildTreeNodes(*group, parent->m_sID);
            m_treePrinters.selectItem(group->m_sID);
            treePrinters_NodeClick(group->m_sID);
            m_treePrinters.startLabelEdit(group->m_sID);
        }
        Save();
    });
}

void AddInControl::DeleteItem(const QString& sID, bool bAllowAny, bool bQuiet, bool bRemoveItem)
{
    RunTrapped(Context + QStringLiteral("DeleteItem"), [&] {
        if (sID.isEmpty() || !IsAdministrator() || !g_oComponents)
            return;
        TreeNode* node = g_oComponents->Find(sID);
        if (!node)
            return;
        clsComponents* parent = g_oComponents->FindParent(sID);
        if (!parent) {
            informationBox(GetMessage(2), GetErrorTitle(QString()));
            return;
        }
        const bool isGroup = node->isGroup();
        if (!bAllowAny) {
            if (!isGroup)
                return;
            if (node->Contains(PrinterPrefix)) {
                informationBox(GetMessage(3), QStringLiteral("DeleteItem"));
                return;
            }
        }
        const QString name = node->m_sName;
        if (!bQuiet && !askYesNo(FormatMessage(22, {name})))
            return;
        // The question let other events run: the node may have gone meanwhile.
        node = g_oComponents->Find(sID);
        parent = g_oComponents->FindParent(sID);
        if (!node || !parent)
            return;
        if (bQuiet)
            parent->Remove(sID);
        else
            parent->Delete(sID);
        // The page of a node that has gone would show a printer that no longer exists.
        const auto current = currentComponent();
        if (!IsFileViewShowing() && (!current || !g_oComponents->Find(current->m_sID))) {
            ClearCurrentControl();
            m_pages.setPageParentVisible(false);
        }
        if (isGroup) {
            DeletePrinterGroupIdentifiers(*g_oComponents, name);
            if (bRemoveItem)
                m_treePrinters.removeItem(sID);
            Save();
        }
    });
}

void AddInControl::ShowProperties(const QString& sID)
{
    RunTrapped(Context + QStringLiteral("ShowProperties"), [&] {
        if (sID.isEmpty() || !sID.startsWith(PrinterPrefix, Qt::CaseInsensitive) || !g_oComponents)
            return;
        if (TreeNode* node = g_oComponents->Find(sID))
            static_cast<clsComponent*>(node)->ShowProperties();
    });
}

TreeNode* AddInControl::GetSelectedComponent()
{
    const QString key = m_treePrinters.selectedKey();
    return key.isEmpty() ? nullptr : SearchTreeForNodesObject(key);
}

QString AddInControl::GetSelectedID(bool bUseMouse)
{
    QString id;
    RunTrapped(Context + QStringLiteral("GetSelectedID"), [&] {
        if (bUseMouse) {
            if (TreeNode* node = GetHitTestComponent(-1, -1)) {
                id = node->m_sID;
                return;
            }
        }
        id = m_treePrinters.selectedKey();
    });
    return id;
}

clsComponents* AddInControl::GetSelctedParent(bool bUseMouse)
{
    clsComponents* parent = nullptr;
    RunTrapped(Context + QStringLiteral("GetSelctedParent"), [&] {
        if (!g_oComponents)
            return;
        TreeNode* node = bUseMouse ? GetHitTestComponent(-1, -1) : nullptr;
        if (!node) {
            const QString selected = m_treePrinters.selectedKey();
            node = selected.isEmpty() ? g_oComponents.get() : SearchTreeForNodesObject(selected);
        }
        if (!node)
            return;
        parent = node->isGroup() ? static_cast<clsComponents*>(node)
                                 : g_oComponents->FindParent(node->m_sID);
    });
    return parent;
}

TreeNode* AddInControl::GetHitTestComponent(float fX, float fY)
{
    TreeNode* node = nullptr;
    RunTrapped(Context + QStringLiteral("GetHitTestComponent"), [&] {
        const QString key =
            m_treePrinters.hitTest(fX == -1 ? m_fMouseX : fX, fY == -1 ? m_fMouseY : fY);
        if (!key.isEmpty())
            node = SearchTreeForNodesObject(key);
    });
    return node;
}

TreeNode* AddInControl::SearchTreeForNodesObject(const QString& sKey)
{
    TreeNode* node = nullptr;
    RunTrapped(Context + QStringLiteral("SearchTreeForNodesObject"),
               [&] { node = nodeOfItem(m_treePrinters, sKey); });
    return node;
}

void AddInControl::treePrinters_NodeClick(const QString& sKey)
{
    RunTrapped(Context + QStringLiteral("treePrinters_NodeClick"), [&] {
        TreeNode* node = SearchTreeForNodesObject(sKey);
        if (!node)
            return;
        // Keep the node alive: a page's set-up can let events run.
        const std::shared_ptr<TreeNode> held = node->shared_from_this();
        if (!IsFileViewShowing()) {
            if (node->isGroup())
                DisplayComponents(static_cast<clsComponents&>(*node));
            else
                DisplayComponent(static_cast<clsComponent&>(*node));
        }
        m_oCurrentComponent = held;
        EnablePrinter(2, false, false);
    });
}

void AddInControl::DisplayComponent(clsComponent& oNode)
{
    RunTrapped(Context + QStringLiteral("DisplayComponent"), [&] {
        const auto current = currentComponent();
        if (current && current->m_sID == oNode.m_sID)
            return;
        ClearCurrentControl();
        m_pages.setContainerBackColour(ButtonFace);
        const QString className = oNode.GetControlName();
        IPage* page = m_pages.createPage(className, oNode.m_sID);
        if (!page)
            throw VigilError(ClassNotAvailable, QStringLiteral("AddInControl"),
                             QStringLiteral("No page of the class %1 can be made").arg(className));
        m_oCurrentControl = page;
        m_sCurrentControlName = oNode.m_sID;
        oNode.InitialiseControl(*page);
        m_pages.setPageParentVisible(true);
        m_oCurrentComponent = oNode.weak_from_this();
        m_pages.resetScrollBars();
        m_pages.layout();
    });
}

void AddInControl::DisplayComponents(clsComponents& oGroup)
{
    RunTrapped(Context + QStringLiteral("DisplayComponents"), [&] {
        if (clsComponent* dashboard = oGroup.DisplayComponent()) {
            DisplayComponent(*dashboard);
            m_pages.setContainerBackColour(WindowBackground);
        } else {
            ClearCurrentControl();
            m_pages.setPageParentVisible(false);
        }
    });
}

void AddInControl::ClearCurrentControl()
{
    RunTrapped(Context + QStringLiteral("ClearCurrentControl"), [this] {
        if (!m_oCurrentControl)
            return;
        m_oCurrentControl = nullptr;
        m_oCurrentComponent.reset();
        m_pages.removePage(std::exchange(m_sCurrentControlName, QString()));
    });
}

bool AddInControl::ResizeComponent(qint16 nWidth, qint16 nHeight)
{
    const auto current = currentComponent();
    if (!m_oCurrentControl || !current)
        return false;
    // A group's page is its dashboard's.
    clsComponent* node = current->isGroup()
                             ? static_cast<clsComponents&>(*current).DisplayComponent()
                             : static_cast<clsComponent*>(current.get());
    return node && node->Resize(*m_oCurrentControl, nWidth, nHeight);
}

bool AddInControl::IsFileViewShowing() const
{
    return m_oCurrentControl && m_sCurrentControlName == FileViewName;
}

void AddInControl::treePrinters_BeforeLabelEdit(bool& bCancel)
{
    // A printer's name is its queue's.
    if (m_treePrinters.selectedKey().startsWith(PrinterPrefix, Qt::CaseInsensitive))
        bCancel = true;
}

void AddInControl::treePrinters_AfterLabelEdit(bool& bCancel, const QString& sNewName)
{
    RunTrapped(Context + QStringLiteral("treePrinters_AfterLabelEdit"), [&] {
        const auto current = currentComponent();
        if (current && !bCancel && g_oComponents) {
            // A group's name is stored: it must be one the store takes.
            if (const QString problem = SettingsStore::nameProblem(sNewName); !problem.isEmpty()) {
                bCancel = true;
                ShowError(problem, QStringLiteral("AfterLabelEdit"));
                return;
            }
            const QString id = current->m_sID;
            clsComponents* parent = g_oComponents->FindParent(id);
            if (parent && !parent->UniqueGroupName(sNewName)) {
                bCancel = true;
                ShowError(GetMessage(8, QStringLiteral("a group with that name already exists.")),
                          QStringLiteral("AfterLabelEdit"));
                return;
            }
            if (TreeNode* node = g_oComponents->Find(id))
                node->m_sName = sNewName;
        }
        Save();
    });
}

void AddInControl::treePrinters_MouseDown(int, int, float fX, float fY)
{
    m_fMouseX = fX;
    m_fMouseY = fY;
}

void AddInControl::treePrinters_MouseMove(int, int, float, float)
{
    RunTrapped(Context + QStringLiteral("treePrinters_MouseMove"),
               [this] { m_treePrinters.resetMousePointer(); });
}

void AddInControl::treePrinters_MouseUp(int nButton, int, float fX, float fY)
{
    if (nButton != RightButton)
        return;
    RunTrapped(Context + QStringLiteral("treePrinters_MouseUp"), [&] {
        const QString key = m_treePrinters.hitTest(fX, fY);
        if (key.isEmpty())
            return;
        m_oClickedNode = key;
        if (key.startsWith(GroupPrefix, Qt::CaseInsensitive)) {
            m_menus.popup(IContextMenus::Menu::Group);
            return;
        }
        if (TreeNode* node = GetHitTestComponent(fX, fY))
            m_menus.setDisableChecked(node->Disabled());
        m_menus.popup(IContextMenus::Menu::Tree);
    });
}

void AddInControl::mnuGroupItem_Click(int nIndex)
{
    RunTrapped(QStringLiteral("mnuGroupItem_Click"), [&] {
        switch (nIndex) {
        case 0:
            mnuGroupIdentifiers_Click();
            break;
        case 2:
            DoAddGroup();
            break;
        case 4:
            DoDelete();
            break;
        case 5: {
            const QString selected = m_treePrinters.selectedKey();
            if (selected.startsWith(GroupPrefix, Qt::CaseInsensitive))
                m_treePrinters.startLabelEdit(selected);
            break;
        }
        default:
            break;
        }
    });
}

void AddInControl::mnuGroupIdentifiers_Click()
{
    RunTrapped(Context + QStringLiteral("mnuGroupIdentifiers_Click"), [this] {
        TreeNode* node = g_oComponents ? g_oComponents->Find(m_oClickedNode) : nullptr;
        if (node && node->isGroup() &&
            EditGroupIdentifiers(static_cast<clsComponents&>(*node), *g_oComponents))
            Save();
    });
}

void AddInControl::mnuTreeDisable_Click()
{
    RunTrapped(Context + QStringLiteral("mnuTree_Disable_Click"), [this] {
        if (currentComponent())
            EnablePrinter(1, false, true);
    });
}

void AddInControl::mnuTreePrinterProperties_Click()
{
    RunTrapped(Context + QStringLiteral("mnuTree_PrinterProperties_Click"), [this] {
        if (const auto current = currentComponent())
            ShowProperties(current->m_sID);
    });
}

void AddInControl::UserControl_KeyDown(int nKeyCode, int)
{
    if (nKeyCode != KeyF5 || !g_oComponents)
        return;
    // Colours again from what the nodes know; no printer is asked anything.
    for (const QString& key : m_treePrinters.keys()) {
        if (key.startsWith(GroupPrefix, Qt::CaseInsensitive))
            continue;
        if (TreeNode* node = SearchTreeForNodesObject(key))
            m_treePrinters.setItemColours(key, node->GetErrorColour(TreePalette, false),
                                          node->GetErrorColour(TreePalette, true));
    }
    m_treePrinters.refresh();
}
