#pragma once

#include "platform/lbx/ReconnectDelay.h"
#include "platform/lbx/Transport.h"

#include <QTcpSocket>
#include <QTimer>

// A printer on the network. A connection that fails or drops is tried again by itself,
// after a delay that grows while the printer stays away.
class TcpTransport : public Transport
{
    Q_OBJECT

public:
    // What the socket may hold unread before it stops taking more from the network.
    static constexpr qint64 ReadBufferBytes = 1 << 20;

    TcpTransport(QString host, quint16 port, QObject* parent = nullptr);

    ~TcpTransport() override;

    void open() override;
    void send(const QByteArray& bytes) override;

private:
    void connectNow();
    void lost(const QString& problem);

    QString m_host;
    quint16 m_port;
    QTcpSocket m_socket;
    QTimer m_retry;
    ReconnectDelay m_delay;
};
