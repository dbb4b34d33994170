#include "core/AddInControl.h"

#include "core/Globals.h"
#include "core/HandlerTable.h"
#include "core/IContextMenus.h"
#include "core/IPagePane.h"
#include "core/IProgressLog.h"
#include "core/PresentTime.h"
#include "core/clsComponent.h"
#include "core/clsComponents.h"
#include "drivers/Application.h"
#include "drivers/Queue.h"
#include "drivers/Queues.h"
#include "printing/GroupIdentifierSettings.h"
#include "printing/SendEngine.h"
#include "printing/clsLBXHandler.h"
#include "services/ApplicationOptions.h"
#include "services/ErrorBox.h"
#include "services/MessageCatalogue.h"
#include "services/SettingsAccess.h"
#include "services/SettingsStore.h"
#include "services/VigilError.h"

#include <QSet>

namespace {
const QString Context = QStringLiteral("AddInControl - ");
const QString SplitValue = QStringLiteral("Split");

} // namespace

AddInControl::AddInControl(const ControlPorts& ports)
    : m_treePrinters(ports.treePrinters)
    , m_pages(ports.pages)
    , m_menus(ports.menus)
    , m_timer1(ports.timer1)
    , m_scheduler(ports.timer1, ports.tmrTimeout,
                  {[this] { return CheckExit(); },
                   [] {
                       if (g_oComponents)
                           g_oComponents->Process();
                   },
                   [](qint16 seconds) {
                       if (g_oComponents)
                           g_oComponents->ProcessTimeout(seconds);
                   }})
    , m_send(std::make_unique<SendEngine>(ports.treePrinters))
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
        CaptionMenus();
        g_oAddIn = this;
        LoadTree();
        m_scheduler.UpdatePollInterval();
        const QStringList items = m_treePrinters.keys();
        if (!items.isEmpty()) {
            m_treePrinters.selectItem(items.first());
            treePrinters_NodeClick(items.first());
        }
    });
    if (!started)
        IgnoringFailure([this] { m_timer1.setEnabled(false); });
}

void AddInControl::CaptionMenus()
{
    using Entry = IContextMenus::Entry;
    const std::pair<Entry, qint32> captions[] = {
        {Entry::GroupMenu, 422},   {Entry::GroupIdentifiers, 423},      {Entry::GroupNew, 424},
        {Entry::GroupDelete, 425}, {Entry::GroupRename, 426},           {Entry::TreeMenu, 427},
        {Entry::TreeDisable, 428}, {Entry::TreePrinterProperties, 430},
    };
    for (const auto& [entry, message] : captions)
        m_menus.setCaption(entry, GetMessage(message));
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
    IgnoringFailure([this] { m_treePrinters.expandItem(RootId); });
    RestoreSplit();
    m_scheduler.Timer1_Timer();
}

void AddInControl::RestoreSplit()
{
    // A split never saved keeps the pane as designed, and nothing is written back.
    QVariant split;
    qint32 width = -1;
    if (ReadValue(HKEY_LOCAL_MACHINE, DefaultRootKey, SplitValue, split) == 0 &&
        split.typeId() == QMetaType::Int)
        width = split.toInt();
    if (width == -1)
        width = m_pages.splitterLeft();
    m_pages.moveSplitter(width);
}

void AddInControl::Dispose()
{
    // The host is going away: a failed step is skipped and the next one runs.
    if (g_bExiting)
        return;
    g_bExiting = true;
    IgnoringFailure([this] { m_timer1.setEnabled(false); });
    IgnoringFailure([this] { saveNow(); });
    IgnoringFailure([] { SaveOptions(); });
    IgnoringFailure([] {
        if (g_oComponents)
            g_oComponents->ReleaseComponent();
    });
    g_oComponents.reset();
    ReleaseGlobalLBX();
}

void AddInControl::UserControl_Hide()
{
    Dispose();
    IgnoringFailure([] { InstallProgressLog(nullptr); });
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
        // Many ids made within one second, as at a start with many new queues, go on from
        // the last number given instead of trying every number from the bare base again.
        qint32 number = base == m_sLastIdBase ? m_lLastIdNumber : 0;
        const auto idOf = [&base](qint32 n) {
            return n == 0 ? base : base + QString::number(n);
        };
        for (id = idOf(number); g_oComponents && g_oComponents->Find(id);)
            id = idOf(++number);
        m_sLastIdBase = base;
        m_lLastIdNumber = number;
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
        WriteValue(HKEY_LOCAL_MACHINE, DefaultRootKey, SplitValue, REG_DWORD, m_pages.treeWidth());
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
        DeletePrinterGroupIdentifiers(*g_oComponents, sName);
        m_treePrinters.removeItem(id);
        Save();
    });
}
