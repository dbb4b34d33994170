#pragma once

#include "core/ComponentHandler.h"
#include "drivers/Queue.h"

class clsComponent;

#include <QDateTime>
#include <QPointer>

// What every handler of a printer behind a print queue shares: the queue found by the
// node's name, its friendly name, type and port, its properties, its removal, and its
// Error, Message and print progress events mirrored into the progress log.
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

protected:
    // The text of a reply lost at that stage (empty for a printer without stages), sent at
    // that time.
    static QString timeoutText(const QString& stage, const QDateTime& sent);
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
    QPointer<Queue> m_oQueue;
};
