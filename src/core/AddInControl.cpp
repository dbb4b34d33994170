#include "core/AddInControl.h"

#include "core/Globals.h"
#include "core/HandlerTable.h"
#include "core/PresentTime.h"
#include "core/clsComponent.h"
#include "core/clsComponents.h"
#include "drivers/Application.h"
#include "drivers/Queue.h"
#include "drivers/Queues.h"
#include "printing/clsLBXHandler.h"
#include "services/ApplicationOptions.h"
#include "services/ErrorBox.h"
#include "services/IDialogs.h"
#include "services/MessageCatalogue.h"
#include "services/SettingsStore.h"
#include "services/VigilError.h"

#include <QSet>

namespace {
const QString Context = QStringLiteral("AddInControl - ");
const QString RootId = QStringLiteral("GPRoot");

template <typename Step> void ignoringFailure(Step&& step)
{
    try {
        step();
    } catch (const std::exception&) {
    }
}

void informationBox(const QString& text, const QString& title)
{
    IDialogs::Box box;
    box.text = text;
    box.title = title;
    box.icon = IDialogs::Icon::Information;
    IDialogs::process().show(box);
}
} // namespace

AddInControl::AddInControl(ITreeView& treePrinters, ITimer& timer1, ITimer& tmrTimeout)
    : m_treePrinters(treePrinters)
    , m_timer1(timer1)
    , m_scheduler(timer1, tmrTimeout,
                  {[this] { return CheckExit(); },
                   [] {
                       if (g_oComponents)
                           g_oComponents->Process();
                   },
                   [](qint16 seconds) {
                       if (g_oComponents)
                           g_oComponents->ProcessTimeout(seconds);
                   }})
{}

AddInControl::~AddInControl()
{
    if (g_oAddIn == this)
        g_oAddIn = nullptr;
}

void AddInControl::UserControl_Initialize()
{
    const bool started = RunTrapped(Context + QStringLiteral("UserControl_Initialize"), [this] {
        m_oQueues = &GetGlobalLBX().LBX_App().Queues();
        connect(m_oQueues, &Queues::PrinterAdded, this, &AddInControl::m_oQueues_PrinterAdded);
        connect(m_oQueues, &Queues::PrinterDeleted, this, &AddInControl::m_oQueues_PrinterDeleted);
        g_oAddIn = this;
        LoadTree();
        m_scheduler.UpdatePollInterval();
        if (m_treePrinters.hasItem(RootId))
            m_treePrinters.selectItem(RootId);
    });
    if (!started)
        m_timer1.setEnabled(false);
}

void AddInControl::LoadTree()
{
    m_treePrinters.clear();
    g_oComponents = std::make_shared<clsComponents>();
    g_oComponents->m_sID = RootId;
    g_oComponents->m_sName = GetMessage(23);
    g_oComponents->CreateUI();
    {
        // One consistent tree, even if another workstation saves while this one reads.
        SettingsStore::Transaction snapshot(SettingsStore::process());
        g_oComponents->LoadState(QStringLiteral("Printers"));
        snapshot.commit();
    }
    {
        // Every printer added here asks for a save: one is enough.
        SaveBatch batch(*this);
        QStringList deleted;
        MarkDeletedPrinters(*g_oComponents, deleted);
        DeletePrinters(deleted);
        QList<tPrinterInfo> added;
        MarkAddedPrinters(*g_oComponents, added);
        AddPrinters(*g_oComponents, added);
    }
    BuildTreeNodes(*g_oComponents, QString());
    m_treePrinters.expandItem(RootId);
    m_scheduler.Timer1_Timer();
}

void AddInControl::Dispose()
{
    // The host is going away: a failed step is skipped and the next one runs.
    if (g_bExiting)
        return;
    g_bExiting = true;
    ignoringFailure([this] { m_timer1.setEnabled(false); });
    ignoringFailure([this] { saveNow(); });
    ignoringFailure([] { SaveOptions(); });
    ignoringFailure([] {
        if (g_oComponents)
            g_oComponents->ReleaseComponent();
    });
    g_oComponents.reset();
    ReleaseGlobalLBX();
}

void AddInControl::UserControl_Hide()
{
    Dispose();
    g_oAddIn = nullptr;
}

void AddInControl::UserControl_Terminate()
{
    g_bExiting = true;
}

bool AddInControl::CheckExit()
{
    bool exiting = false;
    RunTrapped(Context + QStringLiteral("CheckExit"), [this, &exiting] {
        if (!g_bExiting)
            return;
        m_timer1.setEnabled(false);
        exiting = true;
    });
    return exiting;
}

std::optional<TreeItem> AddInControl::GetTreeNode(const QString& sID)
{
    if (!m_treePrinters.hasItem(sID))
        return std::nullopt;
    return TreeItem(m_treePrinters, sID);
}

void AddInControl::SelectTreeItem(const QString& sID)
{
    if (m_treePrinters.hasItem(sID))
        m_treePrinters.selectItem(sID);
}

ImageList* AddInControl::imlList(qint32 lvbLPSize)
{
    switch (lvbLPSize) {
    case 0:
        return &m_imlSmallList;
    case 3:
        return &m_imlLargeList;
    default:
        ShowError(QStringLiteral("Image Size not supported"), QString());
        return nullptr;
    }
}

const ImageList::Picture* AddInControl::GetFromImageList(qint32 lvbLPSize, qint32 nIndex)
{
    const ImageList* list = imlList(lvbLPSize);
    return list ? list->picture(nIndex) : nullptr;
}

QString AddInControl::CreateUniqueID(bool bGroup)
{
    QString id;
    RunTrapped(Context + QStringLiteral("CreateUniqueID"), [&] {
        const QString base = (bGroup ? QStringLiteral("GP") : QStringLiteral("ID")) +
                             PresentTime().toString(QStringLiteral("ddMMyyHHmmss"));
        id = base;
        for (qint32 count = 1; g_oComponents && g_oComponents->Find(id); ++count)
            id = base + QString::number(count);
    });
    return id;
}

AddInControl::SaveBatch::SaveBatch(AddInControl& control)
    : m_control(control)
{
    ++m_control.m_nSaveBatches;
}

AddInControl::SaveBatch::~SaveBatch()
{
    if (--m_control.m_nSaveBatches == 0 && m_control.m_bSavePending)
        m_control.saveNow();
}

void AddInControl::Save()
{
    if (m_nSaveBatches > 0)
        m_bSavePending = true;
    else
        saveNow();
}

void AddInControl::saveNow()
{
    m_bSavePending = false;
    RunTrapped(Context + QStringLiteral("Save"), [this] {
        // A store that can't be used was reported when it was opened.
        if (!g_oComponents || !SettingsStore::process().isAvailable())
            return;
        SettingsStore::Transaction transaction(SettingsStore::process());
        g_oComponents->Save(QStringLiteral("Printers"));
        if (!transaction.commit())
            throw VigilError(SettingsStore::BadDatabase, QStringLiteral("AddInControl"),
                             QStringLiteral("The tree could not be saved to %1")
                                 .arg(SettingsStore::process().filePath()));
    });
}

bool AddInControl::IsAdministrator()
{
    return GetGlobalLBX().IsAdministrator();
}

bool AddInControl::QueueExists(const QString& sName)
{
    return m_oQueues && m_oQueues->Item(sName) != nullptr;
}

bool AddInControl::IsInPrinterMap(clsComponents& oGroup, const QString& sName)
{
    for (const auto& child : oGroup.Col().snapshot()) {
        if (child->isGroup() ? IsInPrinterMap(static_cast<clsComponents&>(*child), sName)
                             : child->m_sName == sName)
            return true;
    }
    return false;
}

void AddInControl::MarkDeletedPrinters(clsComponents& oGroup, QStringList& colIDs)
{
    for (const auto& child : oGroup.Col().snapshot()) {
        if (child->isGroup())
            MarkDeletedPrinters(static_cast<clsComponents&>(*child), colIDs);
        else if (!QueueExists(child->m_sName))
            colIDs.append(child->m_sID);
    }
}

void AddInControl::DeletePrinters(const QStringList& colIDs)
{
    RunTrapped(Context + QStringLiteral("DeletePrinters"), [this, &colIDs] {
        for (const QString& id : colIDs)
            DeleteItem(id, true, true, false);
    });
}

void AddInControl::MarkAddedPrinters(clsComponents& oGroup, QList<tPrinterInfo>& colInfos)
{
    RunTrapped(Context + QStringLiteral("MarkAddedPrinters"), [&] {
        if (!m_oQueues)
            return;
        // A second queue of a name already met gets no node, as it wouldn't were the first
        // already in the tree.
        QSet<QString> met;
        for (Queue* queue : m_oQueues->List()) {
            if (!IsInPrinterMap(oGroup, queue->Name()) && !met.contains(queue->Name()))
                colInfos.append({queue->Name(), queue->PrinterNumber()});
            met.insert(queue->Name());
        }
    });
}

void AddInControl::AddPrinters(clsComponents& oGroup, const QList<tPrinterInfo>& colInfos)
{
    RunTrapped(Context + QStringLiteral("AddPrinters"), [&] {
        for (const tPrinterInfo& info : colInfos)
            AddPrinterNode(oGroup, info.strPrinterName, info.lPrinterNumber, false);
    });
}

void AddInControl::AddPrinterNode(clsComponents& oGroup, const QString& sName, qint32 nNumber,
                                  bool bAddItem)
{
    auto node = std::make_shared<clsComponent>();
    node->m_sID = CreateUniqueID(false);
    node->m_sName = sName;
    node->m_lRemoteObjectPrinterNumber = nNumber;
    if (!HandlerTable::IsPrinterSupported(nNumber))
        return;
    bAddNode(node, oGroup, false, bAddItem);
    Save();
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
        if (bSelect)
            m_treePrinters.selectItem(oItem->m_sID);
    });
}

void AddInControl::BuildTreeNodes(clsComponents& oGroup, const QString& sParentKey)
{
    m_treePrinters.setVisible(false);
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
    m_treePrinters.setVisible(true);
}

clsComponents* AddInControl::GetSelctedParent(bool)
{
    clsComponents* parent = nullptr;
    RunTrapped(Context + QStringLiteral("GetSelctedParent"), [this, &parent] {
        if (!g_oComponents)
            return;
        const QString selected = m_treePrinters.selectedKey();
        TreeNode* node = selected.isEmpty() ? nullptr : g_oComponents->Find(selected);
        if (!node)
            node = g_oComponents.get();
        parent = node->isGroup() ? static_cast<clsComponents*>(node)
                                 : g_oComponents->FindParent(node->m_sID);
    });
    return parent;
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
            if (node->Contains(QStringLiteral("ID"))) {
                informationBox(GetMessage(3), QStringLiteral("DeleteItem"));
                return;
            }
        }
        if (!bQuiet) {
            IDialogs::Box question;
            question.text = FormatMessage(22, {node->m_sName});
            question.title = GetErrorTitle(QString());
            question.icon = IDialogs::Icon::Question;
            question.buttons = IDialogs::Buttons::YesNo;
            if (IDialogs::process().show(question) != IDialogs::Answer::Yes)
                return;
        }
        if (bQuiet)
            parent->Remove(sID);
        else
            parent->Delete(sID);
        if (isGroup) {
            if (bRemoveItem)
                m_treePrinters.removeItem(sID);
            Save();
        }
    });
}

void AddInControl::m_oQueues_PrinterAdded(const QString& sName)
{
    RunTrapped(Context + QStringLiteral("m_oQueues_PrinterAdded"), [&] {
        clsComponents* target = GetSelctedParent(false);
        if (!target)
            target = g_oComponents.get();
        if (!target || !m_oQueues)
            return;
        const QString targetId = target->m_sID;
        for (Queue* queue : m_oQueues->List()) {
            if (queue->Name() != sName)
                continue;
            AddPrinterNode(*target, queue->Name(), queue->PrinterNumber(), true);
            m_treePrinters.expandItem(targetId);
        }
    });
}

void AddInControl::m_oQueues_PrinterDeleted(const QString& sName)
{
    RunTrapped(Context + QStringLiteral("m_oQueues_PrinterDeleted"), [&] {
        if (!g_oComponents)
            return;
        const clsComponent* printer = g_oComponents->FindPrinter(sName);
        const QString id = printer ? printer->m_sID : QString();
        const bool found = !id.isEmpty() && g_oComponents->Find(id);
        DeleteItem(id, true, true, true);
        // A user who may not delete keeps the printer and its item; the next start-up by an
        // administrator reconciles the tree.
        if (!found || g_oComponents->Find(id))
            return;
        m_treePrinters.removeItem(id);
        Save();
    });
}
