#pragma once

#include "platform/lbx/ReconnectingTransport.h"

#include <QTcpSocket>

// A printer on the network.
class TcpTransport : public ReconnectingTransport
{
    Q_OBJECT

public:
    // What the socket may hold unread before it stops taking more from the network.
    static constexpr qint64 ReadBufferBytes = 1 << 20;

    TcpTransport(QString host, quint16 port, QObject* parent = nullptr);
    ~TcpTransport() override;

    void send(const QByteArray& bytes) override;
    qint64 bytesToWrite() const override { return m_socket.bytesToWrite(); }

private:
    void tryToConnect() override;
    void lostBecause(const QString& reason);

    QString m_host;
    quint16 m_port;
    QTcpSocket m_socket;
};
