#include "platform/lbx/LbxQueue.h"

#include "drivers/PrintJob.h"
#include "platform/lbx/IQueueDialogs.h"
#include "platform/lbx/LbxPrintJob.h"
#include "platform/lbx/PortAddress.h"
#include "platform/lbx/TransportFactory.h"
#include "platform/lbx/WireTrace.h"
#include "platform/wire/FloodGuard.h"
#include "services/VigilError.h"

LbxQueue::LbxQueue(const QueueRecord& record, QObject* parent)
    : LbxQueue(record, PrintSpool::process(), parent)
{}

LbxQueue::LbxQueue(const QueueRecord& record, std::shared_ptr<PrintSpool> spool, QObject* parent)
    : Queue(parent)
    , m_record(record)
    , m_spool(spool)
    , m_feed(record.name, std::move(spool))
{
    connect(&m_feed, &PrintFeed::progress, this, &Queue::PrintItemStatusChanged);
    connect(&m_feed, &PrintFeed::failed, this, &Queue::Error);
    connect(&m_feed, &PrintFeed::note, this, &Queue::Message);
    attachTransport();
}

LbxQueue::~LbxQueue() = default;

void LbxQueue::attachTransport()
{
    m_transport = CreateTransport(PortAddress::parse(m_record.portName));
    connect(m_transport.get(), &Transport::received, this, &LbxQueue::deliver);
    connect(m_transport.get(), &Transport::errorOccurred, this, &LbxQueue::reportWireError);
    m_feed.setTransport(m_transport.get());
    m_transport->open();
}

void LbxQueue::setReplyWanted(bool wanted)
{
    m_bReplyWanted = wanted;
    m_feed.setExchangeRunning(wanted);
}

void LbxQueue::reconfigure(const QueueRecord& record)
{
    const bool newPort = record.portName != m_record.portName;
    m_record = record;
    if (newPort)
        attachTransport();
}

void LbxQueue::SendData(const QByteArray& data)
{
    TraceWire(m_record.name, WireDirection::Sent, data);
    m_transport->send(data);
}

void LbxQueue::deliver(const QByteArray& bytes)
{
    TraceWire(m_record.name, WireDirection::Received, bytes);
    emit DataReceived(bytes);
}

void LbxQueue::reportWireError(WireError error)
{
    // A wire that goes down is the handler's business (its time-out); a flood is said here.
    if (error == WireError::Flooded)
        emit Error(VigilError::Overflow,
                   QStringLiteral("%1 sends more than %2 bytes a second; the rest is dropped")
                       .arg(m_record.name)
                       .arg(FloodGuard::BytesPerSecond));
}

bool LbxQueue::wireDrained() const
{
    return !m_transport || m_transport->bytesToWrite() == 0;
}

void LbxQueue::ShowPrinterProperties()
{
    IQueueDialogs::process().showProperties(m_record, reachability());
}

std::shared_ptr<PrintJob> LbxQueue::CreateJob(const QString& path, qint32 quantity, bool)
{
    return LbxPrintJob::create(path, quantity, *this, m_spool);
}

QString LbxQueue::reachability() const
{
    switch (m_transport->state()) {
    case Transport::State::Connected:
        return QStringLiteral("connected");
    case Transport::State::Connecting:
        return QStringLiteral("connecting");
    case Transport::State::Closed:
    case Transport::State::Unusable:
        break;
    }
    return QStringLiteral("unreachable: ") + m_transport->problem();
}
