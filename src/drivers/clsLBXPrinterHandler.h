#pragma once

#include "core/ComponentHandler.h"

#include <QPointer>

class Queue;

// The handler of a printer the program can't talk to on its own: any queue whose number no
// other handler claims. It sends nothing; it mirrors the queue's events into the progress
// log and keeps the node's status up to date.
class clsLBXPrinterHandler : public ComponentHandler
{
    Q_OBJECT

public:
    bool Disabled() const override { return m_bDisabled; }
    void setDisabled(bool disabled) override;
    bool Initialise(clsComponent* oComponent, const QString& sKey, const QString& sName) override;
    void Process() override;
    void ProcessTimeout(qint16) override {}
    QString HandlerFreindlyName() override;
    QString PrinterIcon(qint32 lvbLPSize) override;
    qint32 GetErrorState() override;
    QString HighestAlert() override { return {}; }
    qint32 LBXPrinterType() override;
    bool IsPrinterTypeSupported(qint32) const override { return true; }
    QString GetControlName() const override { return QStringLiteral("ctlLBXPrinterUI"); }
    QString GetObjectName() const override { return QStringLiteral("clsLBXPrinterHandler"); }
    void ShowProperties() override;
    void SyncTime(const QDateTime&) override {}
    void CloseDown() override;

    void Delete() override;
    QString CurrentFile() override { return {}; }
    // No count to show.
    qint32 PrintCount() override { return -1; }
    void ProcessResponse(const QByteArray&) override {}
    bool PortBusy() override { return m_bPortBusy; }
    void setPortBusy(bool busy) override;
    QString Port() override;

    qint32 lastPrintStatus() const { return m_lLastPrintStatus; }

private:
    void m_oQueue_PrintItemStatusChanged(const QString& item, qint32 status,
                                         const QString& details);
    void m_oQueue_Error(qint32 number, const QString& text);
    void m_oQueue_Message(const QString& text);

    QPointer<Queue> m_oQueue;
    QString m_sID;
    qint32 m_lLastPrintStatus = 0;
    bool m_bPortBusy = false;
    bool m_bDisabled = false;
};
