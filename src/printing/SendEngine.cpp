#include "printing/SendEngine.h"

#include "core/Globals.h"
#include "core/ITreeView.h"
#include "core/clsComponent.h"
#include "core/clsComponents.h"
#include "drivers/PrintJob.h"
#include "printing/IPromptForm.h"
#include "printing/clsLBXHandler.h"
#include "services/ErrorBox.h"
#include "services/EventLoopWait.h"
#include "services/MessageCatalogue.h"

#include <QPointer>

namespace {
const QString Context = QStringLiteral("AddInControl - ");
const QString RootKey = QStringLiteral("GPRoot");
constexpr qint32 MsgNotAllAssigned = 4;
// How often the send looks whether the operator has closed the prompt form.
constexpr int FormWatchMs = 100;

TreeNode* findNode(const QString& sKey)
{
    return g_oComponents ? g_oComponents->Find(sKey) : nullptr;
}

void cancelEach(const QList<std::shared_ptr<PrintJob>>& jobs)
{
    for (const auto& job : jobs)
        job->Cancel();
}

template <typename Entries> void collectEach(Entries& entries, PromptList& prompts)
{
    for (const auto& entry : entries) {
        auto prompt = std::make_shared<clsPrompt>();
        if constexpr (std::is_same_v<typename Entries::value_type, PromptedValue>)
            prompt->InitialiseFromPromptedValue(entry);
        else
            prompt->InitialiseFromDatabaseKey(entry);
        // A name already asked for keeps the first job's settings.
        prompts.add(entry.VarName.trimmed(), prompt);
    }
}

template <typename Entries> void applyEach(Entries& entries, const PromptList& prompts)
{
    for (auto& entry : entries)
        if (const auto prompt = prompts.item(entry.VarName.trimmed()))
            entry.Value = prompt->m_sData;
}
} // namespace

SendEngine::SendEngine(ITreeView& treePrinters)
    : m_treePrinters(treePrinters)
{}

SendEngine::~SendEngine() = default;

SendEngine::Outcome SendEngine::DoSendFilesToPrinters(const QString& sSelectedKey)
{
    if (m_bSendInProgress) {
        if (m_frmPromptVars && m_frmPromptVars->IsVisible())
            m_frmPromptVars->ShowOverOwner();
        return Outcome::Busy;
    }
    m_bSendInProgress = true;
    const QPointer<SendEngine> alive(this);
    Outcome outcome = Outcome::Failed;
    RunTrapped(Context + QStringLiteral("DoSendFilesToPrinters"),
               [&] { outcome = send(sSelectedKey.isEmpty() ? RootKey : sSelectedKey); });
    if (alive)
        m_bSendInProgress = false;
    return outcome;
}

SendEngine::Outcome SendEngine::send(const QString& sSelectedKey)
{
    TreeNode* selected = findNode(sSelectedKey);
    if (!selected || !AllPrintersAssigned(sSelectedKey)) {
        ShowError(GetMessage(MsgNotAllAssigned), QStringLiteral("DoSendFilesToPrinters"));
        return Outcome::NotAllAssigned;
    }
    // The assignments go as the jobs are made, before any value is asked for.
    JobList jobs;
    SendNode(*selected, jobs);

    m_frmPromptVars = IPromptForm::create();
    PromptList prompts;
    for (const auto& job : std::as_const(jobs))
        CollectPrompts(*job, prompts);
    if (!prompts.isEmpty()) {
        if (!askForValues(prompts)) {
            cancelEach(jobs);
            return Outcome::Cancelled;
        }
        const bool cancelled = m_frmPromptVars->Cancelled();
        const bool saved = cancelled || m_frmPromptVars->SaveValues(prompts);
        m_frmPromptVars.reset();
        if (cancelled) {
            cancelEach(jobs);
            return Outcome::Cancelled;
        }
        // Values that couldn't be read back: the jobs go with those of their files.
        if (!saved)
            return Outcome::Failed;
    }
    for (const auto& job : std::as_const(jobs))
        ApplyPrompts(*job, prompts);
    // Released without a cancel, each job prints; its progress comes back by the queues.
    jobs.clear();
    return Outcome::Sent;
}

bool SendEngine::askForValues(PromptList& prompts)
{
    m_frmPromptVars->DisplayPromptedVars(prompts);
    m_frmPromptVars->setSmoothScroll(true);
    m_frmPromptVars->ShowOverOwner();
    // Polling and the queues go on meanwhile; the control may even go down.
    const QPointer<SendEngine> alive(this);
    TurnEventLoopUntil([&] { return !alive || g_bExiting || !m_frmPromptVars->IsVisible(); }, -1,
                       FormWatchMs);
    if (!alive)
        return false;
    // Going down, the form goes with the send.
    if (g_bExiting) {
        m_frmPromptVars.reset();
        return false;
    }
    return true;
}

bool SendEngine::AllPrintersAssigned(const QString& sKey)
{
    TreeNode* node = findNode(sKey);
    if (!node)
        return false;
    if (!node->isGroup())
        return node->Disabled() || node->FileAssigned();
    for (const auto& child : static_cast<clsComponents*>(node)->Col().snapshot())
        if (!AllPrintersAssigned(child->m_sID))
            return false;
    return true;
}

void SendEngine::SendNode(TreeNode& node, JobList& jobs)
{
    if (HasDownload(node.m_sID)) {
        if (node.isGroup())
            PrintLabelSet(static_cast<clsComponents&>(node), jobs);
        else
            DownloadAndGo(static_cast<clsComponent&>(node), jobs);
        RemoveDownload(node);
    }
    if (node.isGroup())
        for (const auto& child : static_cast<clsComponents&>(node).Col().snapshot())
            SendNode(*child, jobs);
}

void SendEngine::DownloadAndGo(clsComponent& printer, JobList& jobs)
{
    RunTrapped(Context + QStringLiteral("DownloadAndGo"), [&] {
        // Its group's label set job prints it.
        if (printer.IsAssignedFileInLabelSet())
            return;
        clsLBXHandler& lbx = GetGlobalLBX();
        const QString path = lbx.LabelPath(printer.AssignedFilename());
        printer.setCurrentMessage(path);
        // A job the application couldn't make has been reported; the others still go.
        if (auto job =
                lbx.PrintMSFormat(path, 1, printer.m_sName, printer.m_lRemoteObjectPrinterNumber))
            jobs.append(std::move(job));
    });
}

void SendEngine::PrintLabelSet(clsComponents& group, JobList& jobs)
{
    RunTrapped(Context + QStringLiteral("PrintLabelSet"), [&] {
        clsLBXHandler& lbx = GetGlobalLBX();
        if (auto job = lbx.PrintMSDAGLabelSet(lbx.LabelPath(group.AssignedFilename()),
                                              group.m_colGroupIdentifiers))
            jobs.append(std::move(job));
    });
}

bool SendEngine::HasDownload(const QString& sKey)
{
    bool result = false;
    RunTrapped(Context + QStringLiteral("HasDownload"), [&] {
        const TreeNode* node = findNode(sKey);
        result = node && node->FileAssigned();
    });
    return result;
}

void SendEngine::RemoveDownload(TreeNode& node)
{
    RunTrapped(Context + QStringLiteral("RemoveDownload"), [&] {
        node.ClearAssignedFile();
        RefreshNodeText(node);
    });
}

void SendEngine::RefreshNodeText(TreeNode& node)
{
    if (m_treePrinters.hasItem(node.m_sID))
        m_treePrinters.setItemText(node.m_sID, node.TreeText());
}

void SendEngine::ClearAllDownloads(const QString& sKey)
{
    RunTrapped(Context + QStringLiteral("ClearAllDownloads"), [&] {
        if (TreeNode* node = findNode(sKey))
            ClearDownloads(*node);
    });
}

void SendEngine::ClearDownloads(TreeNode& node)
{
    if (HasDownload(node.m_sID))
        RemoveDownload(node);
    if (node.isGroup())
        for (const auto& child : static_cast<clsComponents&>(node).Col().snapshot())
            ClearDownloads(*child);
}

void SendEngine::CollectPrompts(PrintJob& job, PromptList& prompts)
{
    collectEach(job.PromptedValues(), prompts);
    collectEach(job.DatabaseKeys(), prompts);
}

void SendEngine::ApplyPrompts(PrintJob& job, PromptList& prompts)
{
    applyEach(job.PromptedValues(), prompts);
    applyEach(job.DatabaseKeys(), prompts);
}
