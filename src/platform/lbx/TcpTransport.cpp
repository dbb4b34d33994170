#include "platform/lbx/TcpTransport.h"

TcpTransport::TcpTransport(QString host, quint16 port, QObject* parent)
    : ReconnectingTransport(parent)
    , m_host(std::move(host))
    , m_port(port)
{
    m_socket.setReadBufferSize(ReadBufferBytes);
    connect(&m_socket, &QTcpSocket::connected, this, [this] {
        m_socket.setSocketOption(QAbstractSocket::LowDelayOption, 1);
        up();
    });
    connect(&m_socket, &QTcpSocket::readyRead, this, [this] { emit received(m_socket.readAll()); });
    connect(&m_socket, &QTcpSocket::disconnected, this,
            [this] { lostBecause(QStringLiteral("the connection was closed")); });
    connect(&m_socket, &QTcpSocket::errorOccurred, this,
            [this](QAbstractSocket::SocketError) { lostBecause(m_socket.errorString()); });
}

TcpTransport::~TcpTransport()
{
    // A socket going down tells of it; nobody here may hear that any more.
    m_socket.disconnect(this);
}

void TcpTransport::tryToConnect()
{
    m_socket.abort();
    m_socket.connectToHost(m_host, m_port);
}

void TcpTransport::lostBecause(const QString& reason)
{
    lost(QStringLiteral("%1:%2: %3").arg(m_host).arg(m_port).arg(reason));
}

void TcpTransport::send(const QByteArray& bytes)
{
    if (state() == State::Connected)
        m_socket.write(bytes);
}
