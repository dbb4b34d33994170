#include "drivers/QueuedPrinterHandler.h"

#include "core/IProgressLog.h"
#include "core/clsComponent.h"
#include "drivers/Application.h"
#include "drivers/Queue.h"
#include "drivers/Queues.h"
#include "printing/clsLBXHandler.h"
#include "services/TextUtilities.h"
#include "services/VigilError.h"

bool QueuedPrinterHandler::attachQueue(const QString& sName)
{
    try {
        m_oQueue = GetGlobalLBX().LBX_App().Queues().Item(sName);
    } catch (const VigilError&) {
        // The user cancelled: without the application there is no queue.
        return false;
    }
    if (!m_oQueue)
        return true;
    connect(m_oQueue, &Queue::DataReceived, this, &QueuedPrinterHandler::m_oQueue_DataReceived);
    connect(m_oQueue, &Queue::PrintItemStatusChanged, this,
            [this](const QString&, qint32 status, const QString& details) {
                ProgressLog().AddStatusItem(m_sName, FindFormatName(details), status);
                printStatusArrived(status);
            });
    connect(m_oQueue, &Queue::Error, this, [this](qint32 number, const QString& text) {
        ProgressLog().AddErrorItem(m_sName, text, number);
    });
    connect(m_oQueue, &Queue::Message, this,
            [this](const QString& text) { ProgressLog().AddMessageItem(m_sName, text); });
    return true;
}

void QueuedPrinterHandler::printStatusArrived(qint32)
{}

QString QueuedPrinterHandler::HandlerFreindlyName()
{
    return m_oQueue ? m_oQueue->FriendlyName() : QString();
}

qint32 QueuedPrinterHandler::LBXPrinterType()
{
    return m_oQueue ? m_oQueue->PrinterNumber() : -1;
}

QString QueuedPrinterHandler::Port()
{
    return m_oQueue ? m_oQueue->PortName() : QString();
}

void QueuedPrinterHandler::ShowProperties()
{
    if (m_oQueue)
        m_oQueue->ShowPrinterProperties();
}

void QueuedPrinterHandler::CloseDown()
{
    if (m_oQueue)
        m_oQueue->disconnect(this);
    m_oQueue.clear();
}

void QueuedPrinterHandler::Delete()
{
    CloseDown();
    GetGlobalLBX().LBX_App().Queues().RemoveQueue(m_sName);
}

bool QueuedPrinterHandler::busyOfNode(const clsComponent* node) const
{
    return node && node->m_bBusy;
}

void QueuedPrinterHandler::setBusyOfNode(clsComponent* node, bool busy)
{
    if (!node || node->m_bBusy == busy)
        return;
    node->m_bBusy = busy;
    emit StatusChanged();
}

void QueuedPrinterHandler::m_oQueue_DataReceived(const QByteArray& data)
{
    m_replyClock.dataArrived();
    ProcessResponse(data);
}

void QueuedPrinterHandler::ProcessTimeout(qint16 nTimeout_seconds)
{
    if (!m_replyClock.expire(nTimeout_seconds, stageInHand()))
        return;
    replyLost();
    emit StatusChanged();
}
