#pragma once

#include "drivers/QueuedPrinterHandler.h"

// The handler of a printer the program can't talk to on its own: any queue whose number no
// other handler claims. It sends nothing; it mirrors the queue's events into the progress
// log and keeps the node's status up to date.
class clsLBXPrinterHandler : public QueuedPrinterHandler
{
    Q_OBJECT

public:
    bool Disabled() const override { return m_bDisabled; }
    void setDisabled(bool disabled) override;
    bool Initialise(clsComponent* oComponent, const QString& sKey, const QString& sName) override;
    void Process() override;
    QString PrinterIcon(qint32 lvbLPSize) override;
    ErrorState GetErrorState() override;
    QString HighestAlert() override { return {}; }
    bool IsPrinterTypeSupported(qint32) const override { return true; }
    QString GetControlName() const override { return QStringLiteral("ctlLBXPrinterUI"); }
    QString GetObjectName() const override { return QStringLiteral("clsLBXPrinterHandler"); }
    void SyncTime(const QDateTime&) override {}

    QString CurrentFile() override { return {}; }
    // No count to show.
    qint32 PrintCount() override { return -1; }
    void ProcessResponse(const QByteArray&) override {}
    bool PortBusy() override { return m_bPortBusy; }
    void setPortBusy(bool busy) override;

    qint32 lastPrintStatus() const { return m_lLastPrintStatus; }

private:
    void printStatusArrived(qint32 status) override;

    QString m_sID;
    qint32 m_lLastPrintStatus = 0;
    bool m_bPortBusy = false;
    bool m_bDisabled = false;
};
