#pragma once

#include "core/ErrorState.h"

#include <QDateTime>
#include <QObject>
#include <QString>

class clsComponent;

// What every handler of a tree node offers: the group's dashboard handler and one handler
// per printer kind. A node holds one, made on demand and chosen by the printer number, and
// listens to its StatusChanged.
class ComponentHandler : public QObject
{
    Q_OBJECT

public:
    static constexpr qint32 NotSupported = 438;

    // The node writes its own name here just before each Process.
    QString m_sName;

    virtual bool Disabled() const = 0;
    // Raises StatusChanged.
    virtual void setDisabled(bool disabled) = 0;
    // Called once, right after creation; true if the handler could attach.
    virtual bool Initialise(clsComponent* oComponent, const QString& sKey,
                            const QString& sName) = 0;
    // One poll tick; returns without waiting for the printer.
    virtual void Process() = 0;
    // A reply not seen for this long is lost.
    virtual void ProcessTimeout(qint16 nTimeout_seconds) = 0;
    virtual QString HandlerFreindlyName() = 0;
    // The picture file of this printer's icon at size 0 or 3; empty when there is none.
    virtual QString PrinterIcon(qint32 lvbLPSize) = 0;
    // Worked out afresh at each call; also sets HighestAlert.
    virtual ErrorState GetErrorState() = 0;
    virtual QString HighestAlert() = 0;
    virtual qint32 LBXPrinterType() = 0;
    // Works on a handler that hasn't been initialised.
    virtual bool IsPrinterTypeSupported(qint32 lPrinterNumber) const = 0;
    virtual QString GetControlName() const = 0;
    virtual QString GetObjectName() const = 0;
    virtual void ShowProperties() = 0;
    virtual void SyncTime(const QDateTime& dtTime) = 0;
    // Lets go of the queue and everything live.
    virtual void CloseDown() = 0;

    // Raises StatusChanged unless suppressed; answers false.
    bool RaiseStatusChanged(bool bSuppressRaiseEvent);

    // The printer handlers offer these too; on a handler without them they raise
    // NotSupported, which the node's callers ignore.
    virtual void Delete();
    virtual QString CurrentFile();
    virtual qint32 PrintCount();
    virtual void ProcessResponse(const QByteArray& sReply);
    virtual bool PortBusy();
    virtual void setPortBusy(bool busy);
    virtual QString Port();

signals:
    void StatusChanged();

private:
    [[noreturn]] void raiseNotSupported(const char* operation) const;
};
