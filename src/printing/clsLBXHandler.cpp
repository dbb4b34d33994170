#include "printing/clsLBXHandler.h"

#include "core/Globals.h"
#include "drivers/Application.h"
#include "drivers/LabelSet.h"
#include "drivers/LabelSets.h"
#include "drivers/PrintJob.h"
#include "drivers/Queue.h"
#include "drivers/Queues.h"
#include "services/ErrorBox.h"
#include "services/IDialogs.h"
#include "services/MessageCatalogue.h"
#include "services/TextUtilities.h"
#include "services/VigilError.h"

std::shared_ptr<clsLBXHandler> g_oLBX;

namespace {
constexpr qint32 MsgNotRunning = 407;
constexpr qint32 MsgFormatUnreadable = 33;
constexpr qint32 MsgWrongPrinterType = 34;

ApplicationFactory& installedFactory()
{
    static ApplicationFactory factory;
    return factory;
}

QString descriptionOf(const std::exception& error)
{
    if (const auto* ours = dynamic_cast<const VigilError*>(&error))
        return ours->description();
    return QString::fromLocal8Bit(error.what());
}

// A job made only to look into a file must not print, whatever else goes wrong.
void cancelQuietly(PrintJob& job)
{
    try {
        job.Cancel();
    } catch (const std::exception&) {
    }
}
} // namespace

void InstallApplicationFactory(ApplicationFactory factory)
{
    installedFactory() = std::move(factory);
}

clsLBXHandler::clsLBXHandler()
{
    GetLbx();
}

bool clsLBXHandler::IsAdministrator()
{
    Check();
    return m_oApplication->IsAdministrator();
}

void clsLBXHandler::Check()
{
    try {
        m_oApplication->Probe();
        return;
    } catch (const std::exception&) {
        // The connection died: attach anew below.
    }
    const std::shared_ptr<Application> attached = GetLbx();
    try {
        attached->Probe();
    } catch (const std::exception& error) {
        throw VigilError(NotRunning, QStringLiteral("clsLbxHandler.Check"),
                         GetMessage(MsgNotRunning) + QStringLiteral("\r\n") + descriptionOf(error));
    }
}

Application& clsLBXHandler::LBX_App()
{
    Check();
    return *m_oApplication;
}

QString clsLBXHandler::LabelPath(const QString& sRelativePath)
{
    Check();
    return m_oApplication->LabelRootFolder() + QLatin1Char('/') + sRelativePath;
}

std::shared_ptr<PrintJob> clsLBXHandler::PrintFormat(QString sFmtName, const QString&,
                                                     qint32 nQuantity, QString& sPrinter,
                                                     bool bPause)
{
    const QString context = QStringLiteral("PrintFormat");
    try {
        Check();
        // Kept for the whole call, in case a reattach replaces the held one meanwhile.
        const std::shared_ptr<Application> app = m_oApplication;
        if (!ValidFormat(sFmtName, true)) {
            showError(QStringLiteral("Invalid Format: ") + sFmtName, context);
            return nullptr;
        }
        if (sPrinter.isEmpty())
            sPrinter = app->DefaultQueueName();
        // The whole walk, so that of two queues with one name the last wins.
        Queue* queue = nullptr;
        for (Queue* candidate : app->Queues().List()) {
            if (candidate && candidate->Name() == sPrinter)
                queue = candidate;
        }
        if (!queue) {
            showError(QStringLiteral("Invalid Printer Queue"), context);
            return nullptr;
        }
        return queue->CreateJob(sFmtName, nQuantity, bPause);
    } catch (const std::exception& error) {
        showError(descriptionOf(error), context);
        return nullptr;
    }
}

std::shared_ptr<PrintJob> clsLBXHandler::PrintDAGLabelSet(const QString& sLabelSetName,
                                                          bool bDisplayMessage)
{
    const QString context = QStringLiteral("PrintDAGLabelSet");
    bool creating = false;
    try {
        Check();
        const std::shared_ptr<Application> app = m_oApplication;
        // A label set always goes through the default queue: the file itself says where
        // each label goes.
        Queue* queue = app->Queues().Item(app->DefaultQueueName());
        if (!queue) {
            if (!bDisplayMessage)
                showError(QStringLiteral("Invalid Printer Queue"), context);
            return nullptr;
        }
        creating = true;
        return queue->CreateJob(sLabelSetName, 1, false);
    } catch (const std::exception& error) {
        const auto* ours = dynamic_cast<const VigilError*>(&error);
        if (creating && ours && ours->number() == InvalidArgument)
            showError(QStringLiteral("Label Set is not valid for this group"), context);
        else
            showError(descriptionOf(error), context);
        return nullptr;
    }
}

std::shared_ptr<PrintJob> clsLBXHandler::checkedFormatJob(const QString& sFormatPath,
                                                          qint32 lQuantity, const QString& sPrinter,
                                                          qint32 lLBXPrinterType, bool& sameType)
{
    m_bSilentErrors = false;
    QString queueName = sPrinter;
    const std::shared_ptr<PrintJob> job =
        PrintFormat(sFormatPath, QString(), lQuantity, queueName, false);
    if (!job) {
        showStop(FormatMessage(MsgFormatUnreadable, {sFormatPath}));
        return nullptr;
    }
    try {
        sameType = job->PrinterType() == lLBXPrinterType;
    } catch (const std::exception&) {
        cancelQuietly(*job);
        throw;
    }
    return job;
}

bool clsLBXHandler::IsValidMSFormat(const QString& sFormatPath, const QString& sPrinter,
                                    qint32 lLBXPrinterType, QString& sErrorMessage)
{
    // A box lets events through, and the adapter may be released meanwhile.
    const auto keepAlive = weak_from_this().lock();
    sErrorMessage.clear();
    bool sameType = false;
    // The job exists only to look into the file; it never prints.
    const auto job = checkedFormatJob(sFormatPath, 1, sPrinter, lLBXPrinterType, sameType);
    if (!job)
        return false;
    job->Cancel();
    if (!sameType) {
        // The caller shows the text.
        sErrorMessage = FormatMessage(MsgWrongPrinterType, {sFormatPath});
        return false;
    }
    return true;
}

std::shared_ptr<PrintJob> clsLBXHandler::PrintMSFormat(const QString& sFormatPath, qint32 lQuantity,
                                                       const QString& sPrinter,
                                                       qint32 lLBXPrinterType)
{
    const auto keepAlive = weak_from_this().lock();
    bool sameType = false;
    const auto job = checkedFormatJob(sFormatPath, lQuantity, sPrinter, lLBXPrinterType, sameType);
    if (!job)
        return nullptr;
    if (!sameType) {
        job->Cancel();
        showStop(FormatMessage(MsgWrongPrinterType, {sFormatPath}));
        return nullptr;
    }
    return job;
}

std::shared_ptr<PrintJob>
clsLBXHandler::PrintMSDAGLabelSet(const QString& sPath,
                                  const std::optional<GroupIdentifiers>& colPrinterIdentifiers)
{
    const std::shared_ptr<PrintJob> job = PrintDAGLabelSet(sPath, false);
    if (!colPrinterIdentifiers || colPrinterIdentifiers->isEmpty())
        return job;
    if (!job)
        throw VigilError(NoObject, QStringLiteral("clsLbxHandler.PrintMSDAGLabelSet"),
                         QStringLiteral("There is no print job to set the identifiers on"));
    TellGroupIdentifiers(*job, *colPrinterIdentifiers);
    return job;
}

void TellGroupIdentifiers(PrintJob& job, const GroupIdentifiers& identifiers)
{
    for (const clsGroupIdentifier& entry : identifiers) {
        const bool noPrinter = entry.m_strPrinterIdentifier == g_sNoPrinter;
        job.SetGroupIdentifier(entry.m_strPrinterIdentifier,
                               noPrinter ? QString() : entry.m_strPrinter);
    }
}

std::shared_ptr<Application> clsLBXHandler::GetLbx()
{
    // A copy: the factory may be replaced while it runs.
    const ApplicationFactory attach = installedFactory();
    std::shared_ptr<Application> attached;
    try {
        if (attach)
            attached = attach();
    } catch (const std::exception&) {
        // Whatever went wrong, the application can't be reached.
    }
    if (!attached)
        throw VigilError(NotRunning, QStringLiteral("clsLbxHandler.GetLbx"),
                         GetMessage(MsgNotRunning));
    m_oApplication = attached;
    return attached;
}

bool clsLBXHandler::ValidFormat(QString& name, bool isFormat)
{
    if (name.isEmpty())
        return false;
    if (name.contains(QLatin1Char('/')) || name.contains(QLatin1Char('\\')))
        return true;
    const QString extension = isFormat ? QStringLiteral(".FMT") : QStringLiteral(".LBS");
    name = GetSafePath(m_oApplication->LabelRootFolder()) + name;
    if (name.right(4).toUpper() != extension)
        name += extension;
    return true;
}

std::shared_ptr<PrintJob> clsLBXHandler::PrintLabelSet(const QString& sLabelSetName,
                                                       const QString& sComment, qint32 nQuantity,
                                                       bool bPause, bool bDisplayMessage)
{
    const QString context = QStringLiteral("PrintLabelSet");
    try {
        Check();
        const std::shared_ptr<Application> app = m_oApplication;
        QString name = sLabelSetName;
        if (!ValidFormat(name, false)) {
            if (!bDisplayMessage)
                showError(QStringLiteral("Invalid label set: ") + name, context);
            return nullptr;
        }
        const std::shared_ptr<LabelSet> labelSet = app->LabelSets().Item(name);
        if (!labelSet) {
            if (!bDisplayMessage)
                showError(QStringLiteral("Invalid Label Set: ") + name, context);
            return nullptr;
        }
        labelSet->PrepareLabelSet();
        return labelSet->CreateLabelSetJob(nQuantity, sComment, bPause);
    } catch (const std::exception& error) {
        showError(descriptionOf(error), context);
        return nullptr;
    }
}

void clsLBXHandler::showError(const QString& text, const QString& context) const
{
    if (!m_bSilentErrors)
        ShowError(text, context);
}

void clsLBXHandler::showStop(const QString& text) const
{
    if (m_bSilentErrors)
        return;
    IDialogs::Box box;
    box.text = text;
    box.title = GetErrorTitle(QString());
    box.icon = IDialogs::Icon::Stop;
    IDialogs::process().show(box);
}

clsLBXHandler& GetGlobalLBX()
{
    for (;;) {
        try {
            if (g_oLBX) {
                g_oLBX->Check();
            } else {
                const auto adapter = std::make_shared<clsLBXHandler>();
                adapter->Check();
                g_oLBX = adapter;
            }
            return *g_oLBX;
        } catch (const VigilError& error) {
            IDialogs::Box box;
            box.text = error.description() + QStringLiteral(" (") +
                       QString::number(error.number()) + QLatin1Char(')');
            box.title = QStringLiteral("GetGlobalLbx - ") + error.source();
            box.icon = IDialogs::Icon::Stop;
            box.buttons = IDialogs::Buttons::RetryCancel;
            // The box lets events through; a tick may have made the adapter meanwhile.
            if (IDialogs::process().show(box) != IDialogs::Answer::Retry)
                throw;
        }
    }
}

void ReleaseGlobalLBX()
{
    g_oLBX.reset();
}
