#pragma once

#include <QByteArray>
#include <QObject>
#include <QString>
#include <memory>

class PrintJob;

// One printer of the print application: a byte queue to its port, with the printer's type
// number, which alone chooses the handler that speaks to it.
// Owned by the application's Queues; holders keep it by QPointer, since it may be removed.
class Queue : public QObject
{
    Q_OBJECT

public:
    explicit Queue(QObject* parent = nullptr);
    ~Queue() override;

    // Unique among queues; compared exactly.
    virtual QString Name() const = 0;
    virtual QString FriendlyName() const = 0;
    virtual QString PortName() const = 0;
    virtual qint16 PrinterNumber() const = 0;
    // 1 or more: print work is waiting, and polls hold off.
    virtual qint32 PendingItems() const = 0;
    // True while an exchange with the printer is going on.
    virtual bool ReplyWanted() const = 0;
    virtual void setReplyWanted(bool wanted) = 0;
    // Hands the bytes to the port without waiting; one element per byte.
    virtual void SendData(const QByteArray& data) = 0;
    virtual void ShowPrinterProperties() = 0;
    // A job for the format or label set at that path. Raises VigilError when the file can't
    // be opened, with number 5 when it doesn't suit this queue (a label set for another
    // group).
    virtual std::shared_ptr<PrintJob> CreateJob(const QString& path, qint32 quantity,
                                                bool bPause) = 0;

signals:
    // Received bytes, in fragments of any size, with no framing.
    void DataReceived(const QByteArray& data);
    void Error(qint32 number, const QString& text);
    void Message(const QString& text);
    // Print progress; the details have lines ending in LF, one of them "FMT=" and a format.
    void PrintItemStatusChanged(const QString& item, qint32 status, const QString& details);
};
