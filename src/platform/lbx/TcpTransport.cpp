#include "platform/lbx/TcpTransport.h"

TcpTransport::TcpTransport(QString host, quint16 port, QObject* parent)
    : Transport(parent)
    , m_host(std::move(host))
    , m_port(port)
{
    m_socket.setReadBufferSize(ReadBufferBytes);
    m_retry.setSingleShot(true);
    connect(&m_retry, &QTimer::timeout, this, &TcpTransport::connectNow);
    connect(&m_socket, &QTcpSocket::connected, this, [this] {
        m_socket.setSocketOption(QAbstractSocket::LowDelayOption, 1);
        m_delay.reset();
        setState(State::Connected);
    });
    connect(&m_socket, &QTcpSocket::readyRead, this, [this] { emit received(m_socket.readAll()); });
    connect(&m_socket, &QTcpSocket::disconnected, this,
            [this] { lost(QStringLiteral("the connection was closed")); });
    connect(&m_socket, &QTcpSocket::errorOccurred, this,
            [this](QAbstractSocket::SocketError) { lost(m_socket.errorString()); });
}

TcpTransport::~TcpTransport()
{
    // A device going down tells of it; nobody here may hear that any more.
    m_socket.disconnect(this);
}

void TcpTransport::open()
{
    m_delay.reset();
    connectNow();
}

void TcpTransport::connectNow()
{
    m_retry.stop();
    setState(State::Connecting);
    m_socket.abort();
    m_socket.connectToHost(m_host, m_port);
}

void TcpTransport::lost(const QString& problem)
{
    // An error and the disconnection that follows it are one loss, retried once.
    if (m_retry.isActive())
        return;
    setState(State::Closed, QStringLiteral("%1:%2: %3").arg(m_host).arg(m_port).arg(problem));
    m_retry.start(m_delay.next());
}

void TcpTransport::send(const QByteArray& bytes)
{
    if (state() == State::Connected)
        m_socket.write(bytes);
}
