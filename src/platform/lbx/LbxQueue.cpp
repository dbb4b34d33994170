#include "platform/lbx/LbxQueue.h"

#include "drivers/PrintJob.h"
#include "platform/lbx/IQueueDialogs.h"
#include "platform/lbx/PortAddress.h"
#include "platform/lbx/TransportFactory.h"
#include "services/VigilError.h"

namespace {
// The run-time's "path/file access error", for a file this application can't open.
constexpr qint32 FileAccessError = 75;
} // namespace

LbxQueue::LbxQueue(const QueueRecord& record, QObject* parent)
    : Queue(parent)
    , m_record(record)
{
    m_clock.start();
    attachTransport();
}

LbxQueue::~LbxQueue() = default;

void LbxQueue::attachTransport()
{
    m_transport = CreateTransport(PortAddress::parse(m_record.portName));
    connect(m_transport.get(), &Transport::received, this, &LbxQueue::deliver);
    m_transport->open();
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
    m_transport->send(data);
}

void LbxQueue::deliver(const QByteArray& bytes)
{
    bool floodBegan = false;
    const QByteArray admitted = m_floodGuard.admit(bytes, m_clock.elapsed(), floodBegan);
    if (floodBegan)
        emit Error(VigilError::Overflow,
                   QStringLiteral("%1 sends more than %2 bytes a second; the rest is dropped")
                       .arg(m_record.name)
                       .arg(FloodGuard::BytesPerSecond));
    if (!admitted.isEmpty())
        emit DataReceived(admitted);
}

void LbxQueue::ShowPrinterProperties()
{
    IQueueDialogs::process().showProperties(m_record, reachability());
}

std::shared_ptr<PrintJob> LbxQueue::CreateJob(const QString& path, qint32, bool)
{
    throw VigilError(FileAccessError, QStringLiteral("LbxQueue"),
                     QStringLiteral("%1 can't be printed: this print application sends no "
                                    "label files yet")
                         .arg(path));
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
