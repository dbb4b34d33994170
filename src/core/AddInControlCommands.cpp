// The commands the host calls by name, and the OnUpdate operations that tell it whether each
// is visible and enabled. The OnUpdate operations and the plain commands never let a failure
// out: a host drawing its toolbar must never meet an error.

#include "core/AddInControl.h"
#include "core/CommandTables.h"
#include "core/Globals.h"
#include "core/IForms.h"
#include "core/IPagePane.h"
#include "core/IProgressLog.h"
#include "core/clsComponent.h"
#include "core/clsComponents.h"
#include "drivers/Application.h"
#include "drivers/Queues.h"
#include "printing/SendEngine.h"
#include "printing/clsLBXHandler.h"
#include "services/ApplicationOptions.h"
#include "services/ErrorBox.h"
#include "services/IDialogs.h"
#include "services/MessageCatalogue.h"

namespace {
const QString Context = QStringLiteral("AddInControl - ");
const QString FileViewClass = QStringLiteral("KorvexVigil.FileViewControl");

// Most commands are shown exactly when they can be used.
void showWhen(bool& bVisible, bool& bEnabled, bool value)
{
    bEnabled = value;
    bVisible = value;
}

// The actions of EnablePrinter.
constexpr qint32 DisableAction = -1;
constexpr qint32 EnableAction = 0;
constexpr qint32 FlipAction = 1;
constexpr qint32 ReadAction = 2;
} // namespace

QStringList AddInControl::GetToolbarConfiguration()
{
    QStringList rows;
    RunTrapped(Context + QStringLiteral("GetToolbarConfiguration"),
               [&] { rows = ::GetToolbarConfiguration(); });
    return rows;
}

QStringList AddInControl::GetMenuConfiguration()
{
    QStringList rows;
    RunTrapped(Context + QStringLiteral("GetMenuConfiguration"),
               [&] { rows = ::GetMenuConfiguration(); });
    return rows;
}

void AddInControl::DoEnablePolling()
{
    m_scheduler.DoEnablePolling();
}

void AddInControl::OnUpdateDoEnablePolling(bool& bVisible, bool& bEnabled, qint16&)
{
    showWhen(bVisible, bEnabled, m_scheduler.pollingDisabled());
}

void AddInControl::DoDisablePolling()
{
    m_scheduler.DoDisablePolling();
}

void AddInControl::OnUpdateDoDisablePolling(bool& bVisible, bool& bEnabled, qint16&)
{
    showWhen(bVisible, bEnabled, !m_scheduler.pollingDisabled());
}

void AddInControl::DoAddGroup()
{
    IgnoringFailure([this] { AddGroup(false); });
}

void AddInControl::OnUpdateDoAddGroup(bool& bVisible, bool& bEnabled, qint16&)
{
    showWhen(bVisible, bEnabled, true);
}

void AddInControl::DoAddPrinter()
{
    IgnoringFailure([this] { AddPrinter(); });
}

void AddInControl::OnUpdateDoAddPrinter(bool& bVisible, bool& bEnabled, qint16&)
{
    showWhen(bVisible, bEnabled, true);
}

void AddInControl::DoDelete()
{
    IgnoringFailure([this] { DeleteItem(m_treePrinters.selectedKey(), true, false, true); });
}

void AddInControl::OnUpdateDoDelete(bool& bVisible, bool& bEnabled, qint16&)
{
    bool deletable = false;
    IgnoringFailure([&] {
        if (!IsAdministrator())
            return;
        const TreeNode* node = GetSelectedComponent();
        deletable = node && node->m_sID.compare(RootId, Qt::CaseInsensitive) != 0;
    });
    showWhen(bVisible, bEnabled, deletable);
}

void AddInControl::DoProperties()
{
    IgnoringFailure([this] { ShowProperties(m_treePrinters.selectedKey()); });
}

void AddInControl::OnUpdateDoProperties(bool& bVisible, bool& bEnabled, qint16&)
{
    showWhen(bVisible, bEnabled, SelectedPrinterDisabled().has_value());
}

void AddInControl::DoDisablePrinter()
{
    IgnoringFailure([this] { EnablePrinter(DisableAction, false, true); });
}

void AddInControl::OnUpdateDoDisablePrinter(bool& bVisible, bool& bEnabled, qint16&)
{
    showWhen(bVisible, bEnabled, SelectedPrinterDisabled() == false);
}

void AddInControl::DoEnablePrinter()
{
    IgnoringFailure([this] { EnablePrinter(EnableAction, false, true); });
}

void AddInControl::OnUpdateDoEnablePrinter(bool& bVisible, bool& bEnabled, qint16&)
{
    showWhen(bVisible, bEnabled, SelectedPrinterDisabled() == true);
}

void AddInControl::DoSyncroniseTime()
{
    RunTrapped(Context + QStringLiteral("DoSyncroniseTime"), [this] {
        // A group hands the time to every printer below it.
        if (TreeNode* node = GetSelectedComponent())
            node->SyncTime();
    });
}

void AddInControl::OnUpdateDoSyncroniseTime(bool& bVisible, bool& bEnabled, qint16&)
{
    showWhen(bVisible, bEnabled, true);
}

void AddInControl::DoHelp()
{
    RunTrapped(Context + QStringLiteral("DoHelp"),
               [] { IForms::process().ShowHelp(GetMessageFolder() + GetHelpFileName()); });
}

void AddInControl::DoDisplayOptions()
{
    RunTrapped(Context + QStringLiteral("mnuTools_Options_Click"),
               [] { IForms::process().ShowOptions(); });
}

void AddInControl::OnUpdateDoDisplayOptions(bool& bVisible, bool& bEnabled, qint16&)
{
    showWhen(bVisible, bEnabled, true);
}

void AddInControl::DoDisplayFileView()
{
    RunTrapped(Context + QStringLiteral("DoDisplayFileView"), [this] {
        if (IsFileViewShowing()) {
            // With nothing selected the file view stays.
            const QString selected = m_treePrinters.selectedKey();
            TreeNode* node = selected.isEmpty() ? nullptr : SearchTreeForNodesObject(selected);
            if (node) {
                ClearCurrentControl();
                if (node->isGroup())
                    DisplayComponents(static_cast<clsComponents&>(*node));
                else
                    DisplayComponent(static_cast<clsComponent&>(*node));
                m_oCurrentComponent = node->weak_from_this();
                m_pages.setScrollBarsVisible(true);
            }
        } else {
            ClearCurrentControl();
            m_oCurrentControl = m_pages.createPage(FileViewClass, FileViewName);
            if (m_oCurrentControl)
                m_sCurrentControlName = FileViewName;
            m_pages.setScrollBarsVisible(false);
        }
        m_pages.layout();
    });
}

void AddInControl::OnUpdateDoDisplayFileView(bool& bVisible, bool& bEnabled, qint16& nState)
{
    showWhen(bVisible, bEnabled, true);
    nState = IsFileViewShowing() ? 1 : 0;
}

void AddInControl::DoSendFilesToPrinters()
{
    m_send->DoSendFilesToPrinters(m_treePrinters.selectedKey());
}

void AddInControl::DoClearFileAssignments()
{
    RunTrapped(Context + QStringLiteral("DoClearFileAssignments"),
               [this] { m_send->ClearAllDownloads(m_treePrinters.selectedKey()); });
}

void AddInControl::OnUpdateDoClearFileAssignments(bool&, bool& bEnabled, qint16&)
{
    bEnabled = true;
}

void AddInControl::DoDisplayPrintProgress()
{
    RunTrapped(Context + QStringLiteral("DoDisplayPrintProgress"), [] { ProgressLog().ShowMe(); });
}

bool AddInControl::EnablePrinter(qint32 action, bool bUseMouse, bool bSave)
{
    bool disabled = false;
    RunTrapped(Context + QStringLiteral("EnablePrinter"), [&] {
        if (action != ReadAction && !IsAdministrator()) {
            ShowAccessDenied();
            return;
        }
        TreeNode* node = g_oComponents ? g_oComponents->Find(GetSelectedID(bUseMouse)) : nullptr;
        if (!node)
            return;
        if (!node->isGroup()) {
            switch (action) {
            case DisableAction:
                node->setDisabled(true);
                break;
            case EnableAction:
                node->setDisabled(false);
                break;
            case FlipAction:
                node->setDisabled(!node->Disabled());
                break;
            default:
                break;
            }
        }
        disabled = node->Disabled();
        if (bSave)
            Save();
    });
    return disabled;
}

void AddInControl::AddPrinter()
{
    if (!IsAdministrator()) {
        ShowAccessDenied();
        return;
    }
    // The application runs its own dialog; a printer it adds arrives as PrinterAdded.
    if (m_oQueues)
        m_oQueues->AddQueue();
}

void AddInControl::ShowAccessDenied()
{
    QString user = GetGlobalLBX().LBX_App().UserName();
    if (user.isEmpty())
        user = GetMessage(12);
    IDialogs::Box box;
    box.text = FormatMessage(392, {user});
    box.title = GetErrorTitle(QString());
    box.icon = IDialogs::Icon::Warning;
    IDialogs::process().show(box);
}

std::optional<bool> AddInControl::SelectedPrinterDisabled()
{
    std::optional<bool> disabled;
    IgnoringFailure([&] {
        TreeNode* node = GetSelectedComponent();
        if (node && !node->isGroup())
            disabled = node->Disabled();
    });
    return disabled;
}
