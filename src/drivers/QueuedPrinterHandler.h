#pragma once

#include "core/ComponentHandler.h"
#include "drivers/Queue.h"
#include "drivers/ReplyClock.h"

class clsComponent;

#include <QPointer>

// What every handler of a printer behind a print queue shares: the queue found by the
// node's name, its friendly name, type and port, its properties, its removal, its Error,
// Message and print progress events mirrored into the progress log, and the clock of the
// reply the printer owes, which the queue's data stops.
class QueuedPrinterHandler : public ComponentHandler
{
    Q_OBJECT

public:
    QString HandlerFreindlyName() override;
    qint32 LBXPrinterType() override;
    QString Port() override;
    void ShowProperties() override;
    // Lets go of the queue.
    void CloseDown() override;
    // Lets go of the queue and removes it from the application: the printer goes for good.
    void Delete() override;
    // Gives up on the reply awaited since the last send once it is this late.
    void ProcessTimeout(qint16 nTimeout_seconds) override;
    // What was lost, and when it was asked for; empty while the printer answers.
    QString TimeoutMessage() const { return m_replyClock.timeoutMessage(); }

protected:
    ReplyClock& replyClock() { return m_replyClock; }
    // The stage whose command is waiting for its reply; ReplyClock::NoStage without stages.
    virtual qint32 stageInHand() const { return ReplyClock::NoStage; }
    // A reply was given up: the engine comes to rest.
    virtual void replyLost() {}
    // The coders keep their busy flag in their node, so that it outlives the handler.
    bool busyOfNode(const clsComponent* node) const;
    // Raises StatusChanged when the flag changes.
    void setBusyOfNode(clsComponent* node, bool busy);
    // Takes the queue of that name; false when the application can't be reached.
    bool attachQueue(const QString& sName);
    Queue* queue() const { return m_oQueue; }
    // A print progress report, after it went to the log.
    virtual void printStatusArrived(qint32 status);

private:
    void m_oQueue_DataReceived(const QByteArray& data);

    QPointer<Queue> m_oQueue;
    ReplyClock m_replyClock;
};
