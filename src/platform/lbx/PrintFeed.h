#pragma once

#include "platform/lbx/PrintSpool.h"
#include "platform/wire/Transport.h"

#include <QObject>
#include <QPointer>
#include <memory>

// Sends the kept jobs of one queue to its printer, in order and one copy at a time, whenever
// the queue is free: no exchange with the printer going on and the wire up. A printer that
// can't be reached keeps its jobs; they go when the wire is back.
class PrintFeed : public QObject
{
    Q_OBJECT

public:
    enum Status { Waiting = 1, Sending = 2, Sent = 3, Done = 4 };

    PrintFeed(QString queue, std::shared_ptr<PrintSpool> spool, QObject* parent = nullptr);

    // The wire now in use; its coming up lets waiting jobs go.
    void setTransport(Transport* transport);
    // True from before a request to the printer until its reply is in.
    void setExchangeRunning(bool running);
    qint32 pending() const { return m_spool->pendingFor(m_queue); }

    // "JOB=", "FMT=", "QUANTITY=" and "SENT=" lines, each ending in LF.
    static QString details(const PrintSpool::Job& job);

signals:
    void progress(const QString& item, qint32 status, const QString& details);
    void failed(qint32 number, const QString& text);
    void note(const QString& text);

private:
    void wake();
    void sendNextCopy();
    // Whether the wire can take bytes; says once why it can't.
    bool wireUp();

    QString m_queue;
    std::shared_ptr<PrintSpool> m_spool;
    QPointer<Transport> m_transport;
    bool m_bExchange = false;
    bool m_bWoken = false;
    bool m_bToldUnreachable = false;
    // The job whose sending has been told.
    qint64 m_started = 0;
};
