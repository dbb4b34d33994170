#include "drivers/clsLBXPrinterHandler.h"

#include "core/IconFiles.h"

void clsLBXPrinterHandler::setDisabled(bool disabled)
{
    m_bDisabled = disabled;
    emit StatusChanged();
}

bool clsLBXPrinterHandler::Initialise(clsComponent*, const QString& sKey, const QString& sName)
{
    m_sID = sKey;
    m_sName = sName;
    return attachQueue(sName);
}

void clsLBXPrinterHandler::Process()
{
    if (queue())
        emit StatusChanged();
}

QString clsLBXPrinterHandler::PrinterIcon(qint32)
{
    return IconFile(QStringLiteral("LocalLabelPrinter.ico"));
}

ErrorState clsLBXPrinterHandler::GetErrorState()
{
    if (m_bDisabled)
        return StateDisabled;
    return m_bPortBusy ? StatePortBusy : StateGood;
}

void clsLBXPrinterHandler::setPortBusy(bool busy)
{
    if (busy == m_bPortBusy)
        return;
    m_bPortBusy = busy;
    emit StatusChanged();
}

void clsLBXPrinterHandler::printStatusArrived(qint32 status)
{
    m_lLastPrintStatus = status;
    emit StatusChanged();
}
