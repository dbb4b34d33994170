#include "drivers/clsLBXPrinterHandler.h"

#include "core/IProgressLog.h"
#include "core/IconFiles.h"
#include "drivers/Application.h"
#include "drivers/Queue.h"
#include "drivers/Queues.h"
#include "printing/clsLBXHandler.h"
#include "services/TextUtilities.h"
#include "services/VigilError.h"

void clsLBXPrinterHandler::setDisabled(bool disabled)
{
    m_bDisabled = disabled;
    emit StatusChanged();
}

bool clsLBXPrinterHandler::Initialise(clsComponent*, const QString& sKey, const QString& sName)
{
    m_sID = sKey;
    m_sName = sName;
    try {
        m_oQueue = GetGlobalLBX().LBX_App().Queues().Item(sName);
    } catch (const VigilError&) {
        // The user cancelled: without the application there is no queue.
        return false;
    }
    if (m_oQueue) {
        connect(m_oQueue, &Queue::PrintItemStatusChanged, this,
                &clsLBXPrinterHandler::m_oQueue_PrintItemStatusChanged);
        connect(m_oQueue, &Queue::Error, this, &clsLBXPrinterHandler::m_oQueue_Error);
        connect(m_oQueue, &Queue::Message, this, &clsLBXPrinterHandler::m_oQueue_Message);
    }
    return true;
}

void clsLBXPrinterHandler::Process()
{
    if (m_oQueue)
        emit StatusChanged();
}

QString clsLBXPrinterHandler::HandlerFreindlyName()
{
    return m_oQueue ? m_oQueue->FriendlyName() : QString();
}

QString clsLBXPrinterHandler::PrinterIcon(qint32)
{
    return IconFile(QStringLiteral("LocalLabelPrinter.ico"));
}

qint32 clsLBXPrinterHandler::GetErrorState()
{
    if (m_bDisabled)
        return 5;
    return m_bPortBusy ? 4 : 1;
}

qint32 clsLBXPrinterHandler::LBXPrinterType()
{
    return m_oQueue ? m_oQueue->PrinterNumber() : -1;
}

void clsLBXPrinterHandler::ShowProperties()
{
    if (m_oQueue)
        m_oQueue->ShowPrinterProperties();
}

void clsLBXPrinterHandler::CloseDown()
{
    if (m_oQueue)
        m_oQueue->disconnect(this);
    m_oQueue.clear();
}

void clsLBXPrinterHandler::Delete()
{
    CloseDown();
    GetGlobalLBX().LBX_App().Queues().RemoveQueue(m_sName);
}

void clsLBXPrinterHandler::setPortBusy(bool busy)
{
    if (busy == m_bPortBusy)
        return;
    m_bPortBusy = busy;
    emit StatusChanged();
}

QString clsLBXPrinterHandler::Port()
{
    return m_oQueue ? m_oQueue->PortName() : QString();
}

void clsLBXPrinterHandler::m_oQueue_PrintItemStatusChanged(const QString&, qint32 status,
                                                           const QString& details)
{
    ProgressLog().AddStatusItem(m_sName, FindFormatName(details), status);
    m_lLastPrintStatus = status;
    emit StatusChanged();
}

void clsLBXPrinterHandler::m_oQueue_Error(qint32 number, const QString& text)
{
    ProgressLog().AddErrorItem(m_sName, text, number);
}

void clsLBXPrinterHandler::m_oQueue_Message(const QString& text)
{
    ProgressLog().AddMessageItem(m_sName, text);
}
