#pragma once

#include "sim/SimPrinter.h"

#include <QList>
#include <QObject>
#include <memory>

class QTcpServer;
class QTcpSocket;

// One simulated printer on a TCP port. The printer outlives its clients, so one that
// reconnects finds it as it left it; what it says goes to every client connected.
class SimServer : public QObject
{
    Q_OBJECT

public:
    SimServer(QString name, std::unique_ptr<SimPrinter> printer, QObject* parent = nullptr);

    // "HOST:PORT" with an IP address for host ("[::1]:9100" for IPv6); port 0 takes any free
    // one. False with `error` set when the address is malformed or can't be listened on.
    bool listen(const QString& address, QString& error);
    // Where it listens, as "HOST:PORT".
    QString address() const;
    const QString& name() const { return m_name; }
    const QString& kind() const { return m_printer->kind(); }

signals:
    // Clients can't connect for now; it tries again by itself.
    void acceptFailed(const QString& reason);

private:
    void acceptClients();
    void dropClient(QTcpSocket* client);
    void sendToClients(const QByteArray& bytes);
    void retryAccepting();

    QString m_name;
    std::unique_ptr<SimPrinter> m_printer;
    // A child, as are the clients: Qt cuts this object's connections before deleting its
    // children, so a client closing at shutdown never calls back into a half-destroyed server.
    QTcpServer* m_server;
    QList<QTcpSocket*> m_clients;
};
