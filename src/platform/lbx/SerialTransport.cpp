#include "platform/lbx/SerialTransport.h"

namespace {
QSerialPort::Parity parityOf(PortAddress::Parity parity)
{
    switch (parity) {
    case PortAddress::Parity::Even:
        return QSerialPort::EvenParity;
    case PortAddress::Parity::Odd:
        return QSerialPort::OddParity;
    case PortAddress::Parity::None:
        break;
    }
    return QSerialPort::NoParity;
}
} // namespace

SerialTransport::SerialTransport(const PortAddress& address, QObject* parent)
    : ReconnectingTransport(parent)
    , m_device(address.device)
{
    m_port.setPortName(address.device);
    m_port.setBaudRate(address.baud);
    m_port.setDataBits(QSerialPort::DataBits(address.dataBits));
    m_port.setParity(parityOf(address.parity));
    m_port.setStopBits(address.stopBits == 2 ? QSerialPort::TwoStop : QSerialPort::OneStop);
    m_port.setFlowControl(QSerialPort::NoFlowControl);
    connect(&m_port, &QSerialPort::readyRead, this, [this] { emit received(m_port.readAll()); });
    connect(&m_port, &QSerialPort::errorOccurred, this, [this](QSerialPort::SerialPortError error) {
        // An unplugged adapter is a resource error; the port must be closed and found again.
        if (error == QSerialPort::ResourceError)
            lostBecause(m_port.errorString());
    });
}

SerialTransport::~SerialTransport()
{
    // A port going down tells of it; nobody here may hear that any more.
    m_port.disconnect(this);
}

void SerialTransport::tryToConnect()
{
    release();
    if (m_port.open(QIODevice::ReadWrite))
        up();
    else
        lostBecause(m_port.errorString());
}

void SerialTransport::release()
{
    if (m_port.isOpen())
        m_port.close();
}

void SerialTransport::lostBecause(const QString& reason)
{
    lost(QStringLiteral("%1: %2").arg(m_device, reason));
}

void SerialTransport::send(const QByteArray& bytes)
{
    if (state() == State::Connected)
        m_port.write(bytes);
}
