#pragma once

#include "drivers/Queue.h"
#include "platform/lbx/PrintFeed.h"
#include "platform/lbx/QueueRecord.h"
#include "platform/wire/Transport.h"

#include <memory>

// One printer of the print application: the queue's settings and the wire its port name
// asks for, opened at once and kept up by itself. Its print jobs wait in the spool and go
// between exchanges.
class LbxQueue : public Queue
{
    Q_OBJECT

public:
    // Jobs go through the process's spool unless another is given.
    explicit LbxQueue(const QueueRecord& record, QObject* parent = nullptr);
    LbxQueue(const QueueRecord& record, std::shared_ptr<PrintSpool> spool,
             QObject* parent = nullptr);
    ~LbxQueue() override;

    QString Name() const override { return m_record.name; }
    QString FriendlyName() const override { return m_record.friendlyName; }
    QString PortName() const override { return m_record.portName; }
    qint16 PrinterNumber() const override { return m_record.printerNumber; }
    // Jobs of this queue that this program holds and hasn't finished sending.
    qint32 PendingItems() const override { return m_feed.pending(); }
    bool ReplyWanted() const override { return m_bReplyWanted; }
    void setReplyWanted(bool wanted) override;
    void SendData(const QByteArray& data) override;
    void ShowPrinterProperties() override;
    // A job for a .FMT or .LBS file, released to the spool of this queue's printers when
    // dropped. bPause isn't used: a job goes as soon as its printer is free.
    std::shared_ptr<PrintJob> CreateJob(const QString& path, qint32 quantity, bool bPause) override;
    // A fault of this queue's print work, for the progress log.
    void reportError(qint32 number, const QString& text) { emit Error(number, text); }

    const QueueRecord& record() const { return m_record; }
    // New settings; a new port name brings a new wire.
    void reconfigure(const QueueRecord& record);
    const Transport& transport() const { return *m_transport; }
    // "connected", or why the wire is down.
    QString reachability() const;
    // Whether everything sent has left for the printer, so that the program may end.
    bool wireDrained() const;

private:
    void attachTransport();
    void deliver(const QByteArray& bytes);
    void reportWireError(WireError error);

    QueueRecord m_record;
    std::unique_ptr<Transport> m_transport;
    bool m_bReplyWanted = false;
    std::shared_ptr<PrintSpool> m_spool;
    PrintFeed m_feed;
};
