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
    : Transport(parent)
{
    m_port.setPortName(address.device);
    m_port.setBaudRate(address.baud);
    m_port.setDataBits(QSerialPort::DataBits(address.dataBits));
    m_port.setParity(parityOf(address.parity));
    m_port.setStopBits(address.stopBits == 2 ? QSerialPort::TwoStop : QSerialPort::OneStop);
    m_port.setFlowControl(QSerialPort::NoFlowControl);
    m_retry.setSingleShot(true);
    connect(&m_retry, &QTimer::timeout, this, &SerialTransport::openNow);
    connect(&m_port, &QSerialPort::readyRead, this, [this] { emit received(m_port.readAll()); });
    connect(&m_port, &QSerialPort::errorOccurred, this, [this](QSerialPort::SerialPortError error) {
        // An unplugged adapter is a resource error; the port must be closed and found again.
        if (error == QSerialPort::ResourceError || error == QSerialPort::PermissionError ||
            error == QSerialPort::DeviceNotFoundError)
            lost(m_port.errorString());
    });
}

SerialTransport::~SerialTransport()
{
    // A device going down tells of it; nobody here may hear that any more.
    m_port.disconnect(this);
}

void SerialTransport::open()
{
    m_delay.reset();
    openNow();
}

void SerialTransport::openNow()
{
    m_retry.stop();
    setState(State::Connecting);
    if (m_port.isOpen())
        m_port.close();
    if (m_port.open(QIODevice::ReadWrite)) {
        m_delay.reset();
        setState(State::Connected);
    } else {
        lost(m_port.errorString());
    }
}

void SerialTransport::lost(const QString& problem)
{
    if (m_retry.isActive())
        return;
    if (m_port.isOpen())
        m_port.close();
    setState(State::Closed, QStringLiteral("%1: %2").arg(m_port.portName(), problem));
    m_retry.start(m_delay.next());
}

void SerialTransport::send(const QByteArray& bytes)
{
    if (state() == State::Connected)
        m_port.write(bytes);
}
