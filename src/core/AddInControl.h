#pragma once

#include "core/DragData.h"
#include "core/ITreeView.h"
#include "core/ImageList.h"
#include "core/PollScheduler.h"

#include <QObject>
#include <QPointer>
#include <QStringList>
#include <memory>
#include <optional>

class IContextMenus;
class SendEngine;
class IPage;
class IPagePane;
class Queues;
class TreeNode;
class clsComponent;
class clsComponents;

// A queue that needs a node: its name and printer number.
struct tPrinterInfo
{
    QString strPrinterName;
    qint32 lPrinterNumber = 0;
};

// What the control draws on and ticks with. All of it must outlive the control.
struct ControlPorts
{
    ITreeView& treePrinters;
    IPagePane& pages;
    IContextMenus& menus;
    ITimer& timer1;
    ITimer& tmrTimeout;
};

// The control that the host shell creates: the tree of groups and printers, its view, the
// timers, and the commands the host calls by name. The window forwards its events to the
// event sinks below.
class AddInControl : public QObject
{
    Q_OBJECT

public:
    static constexpr int RightButton = 2;
    static constexpr int KeyF5 = 116;
    inline static const QString RootId = QStringLiteral("GPRoot");
    inline static const QString FileViewName = QStringLiteral("FileView");

    explicit AddInControl(const ControlPorts& ports);
    ~AddInControl() override;

    // Start-up: attach to the print application, load and reconcile the tree, build the view,
    // poll for the first time and show the root's page. A failure leaves the control on
    // screen, unpolled.
    void UserControl_Initialize();
    // Going down: stop polling, save the tree and the options, let every handler go. Runs
    // once; each step runs whatever failed before it.
    void Dispose();
    void UserControl_Hide();
    void UserControl_Terminate();
    bool CheckExit();

    QStringList GetToolbarConfiguration();
    QStringList GetMenuConfiguration();

    // The commands. Each OnUpdate tells the host whether its command is visible and enabled;
    // only OnUpdateDoDisplayFileView writes nState.
    void DoEnablePolling();
    void OnUpdateDoEnablePolling(bool& bVisible, bool& bEnabled, qint16& nState);
    void DoDisablePolling();
    void OnUpdateDoDisablePolling(bool& bVisible, bool& bEnabled, qint16& nState);
    void DoAddGroup();
    void OnUpdateDoAddGroup(bool& bVisible, bool& bEnabled, qint16& nState);
    void DoAddPrinter();
    void OnUpdateDoAddPrinter(bool& bVisible, bool& bEnabled, qint16& nState);
    void DoDelete();
    void OnUpdateDoDelete(bool& bVisible, bool& bEnabled, qint16& nState);
    void DoProperties();
    void OnUpdateDoProperties(bool& bVisible, bool& bEnabled, qint16& nState);
    void DoDisablePrinter();
    void OnUpdateDoDisablePrinter(bool& bVisible, bool& bEnabled, qint16& nState);
    void DoEnablePrinter();
    void OnUpdateDoEnablePrinter(bool& bVisible, bool& bEnabled, qint16& nState);
    void DoSyncroniseTime();
    void OnUpdateDoSyncroniseTime(bool& bVisible, bool& bEnabled, qint16& nState);
    void DoHelp();
    void DoDisplayOptions();
    void OnUpdateDoDisplayOptions(bool& bVisible, bool& bEnabled, qint16& nState);
    // Puts the file view in the page pane, or the selected node's page back in its place.
    void DoDisplayFileView();
    void OnUpdateDoDisplayFileView(bool& bVisible, bool& bEnabled, qint16& nState);
    // Sends the label files assigned at or below the selected node, asking once for the
    // values they prompt for.
    void DoSendFilesToPrinters();
    // Takes back the assignments at or below the selected node.
    void DoClearFileAssignments();
    void OnUpdateDoClearFileAssignments(bool& bVisible, bool& bEnabled, qint16& nState);
    void DoDisplayPrintProgress();

    // The tree item whose key is the id, if the view has one.
    std::optional<TreeItem> GetTreeNode(const QString& sID);
    // Selects the item of that id, if there is one, and shows its page.
    void SelectTreeItem(const QString& sID);
    // The image list of icon size 0 or 3; any other size is refused with a warning.
    ImageList* imlList(qint32 lvbLPSize);
    const ImageList::Picture* GetFromImageList(qint32 lvbLPSize, qint32 nIndex);
    // Lets the page shown stretch to the pane; false when there is none or it doesn't.
    bool ResizeComponent(qint16 nWidth, qint16 nHeight);
    // A new id for a group or a printer, unique over the tree.
    QString CreateUniqueID(bool bGroup);
    // The whole tree into the store, as one transaction: a save that fails leaves the
    // previous tree whole. Saves asked for while changes are being gathered come as one.
    void Save();
    void UpdatePollInterval() { m_scheduler.UpdatePollInterval(); }

    // Whether the file view holds the page pane.
    bool IsFileViewShowing() const;
    PollScheduler& scheduler() { return m_scheduler; }
    SendEngine& sendEngine() { return *m_send; }
    // The node whose page is shown, and that page.
    std::shared_ptr<TreeNode> currentComponent() const { return m_oCurrentComponent.lock(); }
    IPage* currentControl() const { return m_oCurrentControl; }

    // Event sinks of the tree view, its menus and the keyboard. Points are in twips.
    void treePrinters_NodeClick(const QString& sKey);
    void treePrinters_BeforeLabelEdit(bool& bCancel);
    void treePrinters_AfterLabelEdit(bool& bCancel, const QString& sNewName);
    void treePrinters_MouseDown(int nButton, int nShift, float fX, float fY);
    void treePrinters_MouseUp(int nButton, int nShift, float fX, float fY);
    void treePrinters_MouseMove(int nButton, int nShift, float fX, float fY);
    void UserControl_KeyDown(int nKeyCode, int nShift);
    void mnuGroupItem_Click(int nIndex);
    // The identifiers dialog of the group under the last right click.
    void mnuGroupIdentifiers_Click();
    void mnuTreeDisable_Click();
    void mnuTreePrinterProperties_Click();
    // Drag and drop on the tree: a node's drag starts from where the button went down, and
    // a printer dropped on a group moves there. Points are in twips.
    void treePrinters_OLEStartDrag(DragData& oData);
    void treePrinters_OLEDragOver(const DragData& oData, int& nEffect, float fX, float fY,
                                  int nState);
    void treePrinters_OLEDragDrop(const DragData& oData, float fX, float fY);
    void treePrinters_OLECompleteDrag();
    // The key of the item under the last right click.
    const QString& clickedNode() const { return m_oClickedNode; }

    // The print application's queue events.
    void m_oQueues_PrinterAdded(const QString& sName);
    void m_oQueues_PrinterDeleted(const QString& sName);

private:
    // Many changes, one save: while one lives, saves are gathered and done once at its end,
    // before control goes back to the event loop.
    class SaveBatch
    {
    public:
        explicit SaveBatch(AddInControl& control);
        ~SaveBatch();

    private:
        AddInControl& m_control;
    };

    void CaptionMenus();
    void LoadTree();
    void RestoreSplit();
    void saveNow();
    void MarkDeletedPrinters(clsComponents& oGroup, QStringList& colIDs);
    void DeletePrinters(const QStringList& colIDs);
    void MarkAddedPrinters(clsComponents& oGroup, QList<tPrinterInfo>& colInfos);
    void AddPrinters(clsComponents& oGroup, const QList<tPrinterInfo>& colInfos);
    void AddPrinterNode(clsComponents& oGroup, const QString& sName, qint32 nNumber, bool bAddItem);
    bool IsInPrinterMap(clsComponents& oGroup, const QString& sName);
    bool QueueExists(const QString& sName);

    void BuildTreeNodes(clsComponents& oGroup, const QString& sParentKey);
    void bAddNode(const std::shared_ptr<TreeNode>& oItem, clsComponents& oParent, bool bSelect,
                  bool bAddItem);
    void AddGroup(bool bUseMouse);
    void DeleteItem(const QString& sID, bool bAllowAny, bool bQuiet, bool bRemoveItem);
    void ShowProperties(const QString& sID);
    TreeNode* GetSelectedComponent();
    QString GetSelectedID(bool bUseMouse);
    clsComponents* GetSelctedParent(bool bUseMouse);
    TreeNode* GetHitTestComponent(float fX, float fY);
    TreeNode* SearchTreeForNodesObject(const QString& sKey);
    void DisplayComponent(clsComponent& oNode);
    void DisplayComponents(clsComponents& oGroup);
    void ClearCurrentControl();
    void ReParentItem(const QString& sID, const QString& sNewParentID);
    // Whether the item takes a label file: a group a label set, a printer a format, neither
    // when it holds one already. The item's text is what tells.
    bool CanDropFile(const QString& sItemKey, const QString& sFile) const;
    void dropOn(TreeNode& target, const DragData& oData);
    void assignFile(TreeNode& target, const QString& sFilename);

    bool EnablePrinter(qint32 action, bool bUseMouse, bool bSave);
    void AddPrinter();
    void ShowAccessDenied();
    bool IsAdministrator();
    // Whether the selected printer is disabled; nothing for a group or no selection.
    std::optional<bool> SelectedPrinterDisabled();

    ITreeView& m_treePrinters;
    IPagePane& m_pages;
    IContextMenus& m_menus;
    ITimer& m_timer1;
    PollScheduler m_scheduler;
    std::unique_ptr<SendEngine> m_send;
    ImageList m_imlSmallList{0};
    ImageList m_imlLargeList{3};
    QPointer<Queues> m_oQueues;

    IPage* m_oCurrentControl = nullptr;
    QString m_sCurrentControlName;
    std::weak_ptr<TreeNode> m_oCurrentComponent;
    float m_fMouseX = 0;
    float m_fMouseY = 0;
    QString m_oClickedNode;
    std::weak_ptr<TreeNode> m_oDragComponent;

    // The last id's date-time part and the number behind it (0 for none), for the next id.
    QString m_sLastIdBase;
    qint32 m_lLastIdNumber = 0;

    int m_nSaveBatches = 0;
    bool m_bSavePending = false;
};
