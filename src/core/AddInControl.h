#pragma once

#include "core/ITreeView.h"
#include "core/ImageList.h"
#include "core/PollScheduler.h"

#include <QObject>
#include <QPointer>
#include <QStringList>
#include <optional>

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

// The control that the host shell creates: the tree of groups and printers, its view, the
// timers, and the commands the host calls by name.
class AddInControl : public QObject
{
    Q_OBJECT

public:
    AddInControl(ITreeView& treePrinters, ITimer& timer1, ITimer& tmrTimeout);
    ~AddInControl() override;

    // Start-up: attach to the print application, load and reconcile the tree, build the view
    // and poll for the first time. A failure leaves the control on screen, unpolled.
    void UserControl_Initialize();
    // Going down: stop polling, save the tree and the options, let every handler go. Runs
    // once; each step runs whatever failed before it.
    void Dispose();
    void UserControl_Hide();
    void UserControl_Terminate();
    bool CheckExit();

    // The tree item whose key is the id, if the view has one.
    std::optional<TreeItem> GetTreeNode(const QString& sID);
    void SelectTreeItem(const QString& sID);
    // The image list of icon size 0 or 3; any other size is refused with a warning.
    ImageList* imlList(qint32 lvbLPSize);
    const ImageList::Picture* GetFromImageList(qint32 lvbLPSize, qint32 nIndex);
    // A new id for a group or a printer, unique over the tree.
    QString CreateUniqueID(bool bGroup);
    // The whole tree into the store, as one transaction: a save that fails leaves the
    // previous tree whole. Saves asked for while changes are being gathered come as one.
    void Save();
    void UpdatePollInterval() { m_scheduler.UpdatePollInterval(); }

    PollScheduler& scheduler() { return m_scheduler; }

    // The print application's queue events.
    void m_oQueues_PrinterAdded(const QString& sName);
    void m_oQueues_PrinterDeleted(const QString& sName);

    void DeleteItem(const QString& sID, bool bAllowAny, bool bQuiet, bool bRemoveItem);
    clsComponents* GetSelctedParent(bool bUseMouse);

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

    void LoadTree();
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
    bool IsAdministrator();

    ITreeView& m_treePrinters;
    ITimer& m_timer1;
    PollScheduler m_scheduler;
    ImageList m_imlSmallList{0};
    ImageList m_imlLargeList{3};
    QPointer<Queues> m_oQueues;
    int m_nSaveBatches = 0;
    bool m_bSavePending = false;
};
