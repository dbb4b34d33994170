#pragma once

#include "platform/wire/WireEvent.h"

#include <QObject>
#include <QString>
#include <memory>

class TcpListenerWire;
class Transport;

// A listening TCP port served by the I/O thread, as the logic thread sees it: each connection
// it takes comes as a transport that is up already.
class TcpListener : public QObject, private WireEndpoint
{
    Q_OBJECT

public:
    explicit TcpListener(QObject* parent = nullptr);
    ~TcpListener() override;

    // "HOST:PORT" with an IP address for host ("[::1]:9100" for IPv6); port 0 takes any free
    // one. False with `error` set when the address is malformed or can't be listened on.
    bool listen(const QString& address, QString& error);
    // Where it listens, as "HOST:PORT".
    QString address() const { return m_address; }

signals:
    // A new connection, a child of this listener until someone takes it.
    void accepted(Transport* connection);
    // Connections can't be taken for now; it tries again by itself.
    void acceptFailed(const QString& reason);

private:
    void onWireEvent(const WireEvent& event) override;

    WireId m_id = 0;
    QString m_address;
};
