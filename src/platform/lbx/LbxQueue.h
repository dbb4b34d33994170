#pragma once

#include "drivers/Queue.h"
#include "platform/lbx/FloodGuard.h"
#include "platform/lbx/QueueRecord.h"
#include "platform/lbx/Transport.h"

#include <QElapsedTimer>
#include <memory>

// One printer of the print application: the queue's settings and the wire its port name
// asks for, opened at once and kept up by itself.
class LbxQueue : public Queue
{
    Q_OBJECT

public:
    explicit LbxQueue(const QueueRecord& record, QObject* parent = nullptr);
    ~LbxQueue() override;

    QString Name() const override { return m_record.name; }
    QString FriendlyName() const override { return m_record.friendlyName; }
    QString PortName() const override { return m_record.portName; }
    qint16 PrinterNumber() const override { return m_record.printerNumber; }
    // No print work is queued here yet.
    qint32 PendingItems() const override { return 0; }
    bool ReplyWanted() const override { return m_bReplyWanted; }
    void setReplyWanted(bool wanted) override { m_bReplyWanted = wanted; }
    void SendData(const QByteArray& data) override;
    void ShowPrinterProperties() override;
    // This print application doesn't print files yet: raises VigilError.
    std::shared_ptr<PrintJob> CreateJob(const QString& path, qint32 quantity, bool bPause) override;

    const QueueRecord& record() const { return m_record; }
    // New settings; a new port name brings a new wire.
    void reconfigure(const QueueRecord& record);
    const Transport& transport() const { return *m_transport; }
    // "connected", or why the wire is down.
    QString reachability() const;

private:
    void attachTransport();
    void deliver(const QByteArray& bytes);

    QueueRecord m_record;
    std::unique_ptr<Transport> m_transport;
    FloodGuard m_floodGuard;
    QElapsedTimer m_clock;
    bool m_bReplyWanted = false;
};
