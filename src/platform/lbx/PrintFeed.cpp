#include "platform/lbx/PrintFeed.h"

#include "platform/lbx/WireTrace.h"

#include <QTimer>

PrintFeed::PrintFeed(QString queue, std::shared_ptr<PrintSpool> spool, QObject* parent)
    : QObject(parent)
    , m_queue(std::move(queue))
    , m_spool(std::move(spool))
{
    connect(m_spool.get(), &PrintSpool::added, this, [this](const PrintSpool::Job& job) {
        if (job.queue != m_queue)
            return;
        emit progress(QString::number(job.id), Waiting, details(job));
        wake();
    });
    connect(m_spool.get(), &PrintSpool::trouble, this,
            [this](const QString& queue, const QString& text) {
                if (queue == m_queue)
                    emit failed(PrintSpool::SpoolFileError, text);
            });
    // Jobs an earlier program left for this queue.
    wake();
}

void PrintFeed::setTransport(Transport* transport)
{
    m_transport = transport;
    m_bToldUnreachable = false;
    connect(transport, &Transport::stateChanged, this, [this](Transport::State state) {
        if (state == Transport::State::Connected)
            m_bToldUnreachable = false;
        wake();
    });
    wake();
}

void PrintFeed::setExchangeRunning(bool running)
{
    m_bExchange = running;
    if (!running)
        wake();
}

QString PrintFeed::details(const PrintSpool::Job& job)
{
    return QStringLiteral("JOB=%1\nFMT=%2\nQUANTITY=%3\nSENT=%4\n")
        .arg(job.id)
        .arg(job.format)
        .arg(job.quantity)
        .arg(job.sent);
}

// Later, from the event loop: whoever woke the feed may be in the middle of an exchange.
void PrintFeed::wake()
{
    if (std::exchange(m_bWoken, true))
        return;
    QTimer::singleShot(0, this, [this] {
        m_bWoken = false;
        sendNextCopy();
    });
}

void PrintFeed::sendNextCopy()
{
    if (m_bExchange)
        return;
    std::optional<PrintSpool::Job> job = m_spool->next(m_queue);
    if (!job || !wireUp())
        return;
    const QString item = QString::number(job->id);
    if (job->sent < job->quantity) {
        if (std::exchange(m_started, job->id) != job->id)
            emit progress(item, Sending, details(*job));
        TraceWire(m_queue, WireDirection::Sent, job->data);
        m_transport->send(job->data);
        if (!m_spool->copySent(job->id)) {
            emit note(
                QStringLiteral("%1: job %2 was cancelled; what had been sent of it stays sent")
                    .arg(m_queue, item));
            wake();
            return;
        }
        ++job->sent;
        emit progress(item, Sent, details(*job));
    }
    if (job->sent >= job->quantity) {
        m_spool->finish(job->id);
        emit progress(item, Done, details(*job));
    }
    wake();
}

bool PrintFeed::wireUp()
{
    if (!m_transport)
        return false;
    switch (m_transport->state()) {
    case Transport::State::Connected:
        return true;
    case Transport::State::Connecting:
        return false;
    case Transport::State::Closed:
    case Transport::State::Unusable:
        break;
    }
    if (!std::exchange(m_bToldUnreachable, true))
        emit note(QStringLiteral("%1: the printer can't be reached (%2); %3 job(s) wait and are "
                                 "sent when it is back")
                      .arg(m_queue, m_transport->problem())
                      .arg(pending()));
    return false;
}
