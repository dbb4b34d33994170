// The label files that nodes of the tree hold between a drop and the next send: a format on
// a printer, a label set on a group spreading its formats to the printers it names.

#include "core/Globals.h"
#include "core/clsComponent.h"
#include "core/clsComponents.h"
#include "drivers/PrintJob.h"
#include "printing/clsLBXHandler.h"
#include "services/ErrorBox.h"
#include "services/IDialogs.h"
#include "services/MessageCatalogue.h"

namespace {
const QString Context = QStringLiteral("SetAssignedFile");
constexpr qint32 MsgWrongFileType = 5;
constexpr qint32 MsgPrintersBusy = 6;
constexpr qint32 MsgForeignPrinters = 7;

// Whether the name ends in that extension, as the label application writes them.
bool hasExtension(const QString& sFilename, const QString& extension)
{
    return sFilename.right(4).toUpper() == extension;
}

void refuseFileType(const QString& sFilename)
{
    ShowError(GetMessage(MsgWrongFileType) + QStringLiteral(":\r\n") + sFilename, Context);
}

// The set's elements as the group's identifiers settle them. The job only looks: it never
// prints.
QList<LabelSetElement> labelSetElements(const QString& fullPath,
                                        const std::optional<GroupIdentifiers>& identifiers)
{
    const std::shared_ptr<PrintJob> job = GetGlobalLBX().PrintDAGLabelSet(fullPath, false);
    if (!job)
        return {};
    QList<LabelSetElement> elements = job->LabelSetElements();
    if (identifiers) {
        TellGroupIdentifiers(*job, *identifiers);
        elements = job->LabelSetElements();
    }
    job->Cancel();
    return elements;
}
} // namespace

void clsComponent::SetAssignedFile(const QString& sFilename, bool bFromLabelSet)
{
    if (!hasExtension(sFilename, QStringLiteral(".FMT"))) {
        refuseFileType(sFilename);
        return;
    }
    if (m_bAssignedFromLabelSet && FileAssigned())
        return;
    m_bAssignedFromLabelSet = bFromLabelSet;
    clsLBXHandler& lbx = GetGlobalLBX();
    const QString fullPath = lbx.LabelPath(sFilename);
    if (bFromLabelSet) {
        m_sAssignedFile = fullPath;
    } else {
        QString error;
        if (!lbx.IsValidMSFormat(fullPath, m_sName, LBXPrinterType(), error)) {
            ShowError(error, Context);
            return;
        }
        m_sAssignedFile = sFilename;
    }
    UpdateStatus();
}

void clsComponent::ClearAssignedFile()
{
    if (m_bAssignedFromLabelSet)
        return;
    m_sAssignedFile.clear();
    UpdateStatus();
}

void clsComponent::ClearLabelSetAssignedFile()
{
    if (!m_bAssignedFromLabelSet)
        return;
    m_sAssignedFile.clear();
    m_bAssignedFromLabelSet = false;
    UpdateStatus();
}

void clsComponents::SetAssignedFile(const QString& sFilename)
{
    if (!hasExtension(sFilename, QStringLiteral(".LBS"))) {
        refuseFileType(sFilename);
        return;
    }
    const QList<LabelSetElement> elements =
        labelSetElements(GetGlobalLBX().LabelPath(sFilename), m_colGroupIdentifiers);
    if (elements.isEmpty())
        return;

    m_asAssignedIDs = QStringList(elements.size(), QString());
    QString foreign;
    QString busy;
    for (qsizetype i = 0; i < elements.size(); ++i) {
        const QString& identifier = elements.at(i).identifier;
        m_asAssignedIDs[i] = identifier;
        clsComponent* printer = FindForAssign(identifier, false);
        if (!printer) {
            foreign += QStringLiteral("\r\n") + identifier;
            printer = FindForAssign(identifier, true);
        }
        if (printer && printer->FileAssigned())
            busy += QStringLiteral("\r\n") + printer->m_sName;
    }
    if (!busy.isEmpty()) {
        ShowError(FormatMessage(MsgPrintersBusy, {busy}), Context);
        return;
    }
    if (!foreign.isEmpty()) {
        IDialogs::Box question{FormatMessage(MsgForeignPrinters, {foreign}), Context,
                               IDialogs::Icon::Question, IDialogs::Buttons::YesNo, true};
        if (IDialogs::process().show(question) != IDialogs::Answer::Yes)
            return;
    }

    m_sAssignedFile = sFilename;
    for (qsizetype i = 0; i < elements.size(); ++i) {
        m_asAssignedIDs[i] = elements.at(i).identifier;
        if (clsComponent* printer = FindForAssign(elements.at(i).identifier, true))
            printer->SetAssignedFile(elements.at(i).format, true);
    }
}

void clsComponents::ClearAssignedFile()
{
    if (!FileAssigned())
        return;
    m_sAssignedFile.clear();
    for (QString& identifier : m_asAssignedIDs) {
        if (identifier.isEmpty())
            continue;
        if (g_oComponents)
            if (clsComponent* printer = g_oComponents->FindPrinter(identifier))
                printer->ClearLabelSetAssignedFile();
        identifier.clear();
    }
}

clsComponent* clsComponents::FindForAssign(const QString& id, bool wholeTree)
{
    clsComponent* printer = FindPrinter(id);
    if (!printer && wholeTree && g_oComponents)
        printer = g_oComponents->FindPrinter(id);
    return printer;
}
