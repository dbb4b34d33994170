#pragma once

#include "sim/SimKnobs.h"
#include "sim/SimPrinter.h"

#include <QObject>
#include <map>
#include <memory>
#include <vector>

class TcpListener;
class Transport;

// One simulated printer on a TCP port. Each client talks to a printer of its own, so that two
// workstations polling the same address never get each other's replies. A printer outlives its
// client: the next client to come takes it over as it was left, as one that reconnects expects.
class SimServer : public QObject
{
    Q_OBJECT

public:
    // `printer` is the first of its kind and knobs; more are made when more clients come at once.
    SimServer(QString name, std::unique_ptr<SimPrinter> printer, SimKnobs knobs,
              QObject* parent = nullptr);

    // "HOST:PORT" with an IP address for host ("[::1]:9100" for IPv6); port 0 takes any free
    // one. False with `error` set when the address is malformed or can't be listened on.
    bool listen(const QString& address, QString& error);
    // Where it listens, as "HOST:PORT".
    QString address() const;
    const QString& name() const { return m_name; }
    const QString& kind() const { return m_kind; }

signals:
    // Clients can't connect for now; it tries again by itself.
    void acceptFailed(const QString& reason);
    // One of its printers had something to tell ("label 3: ...").
    void notice(const QString& line);

private:
    void acceptClient(Transport* client);
    void serveClient(Transport* client, std::unique_ptr<SimPrinter> printer);
    void dropClient(Transport* client);
    // A printer no client holds, or a new one.
    std::unique_ptr<SimPrinter> takePrinter(QString& error);

    QString m_name;
    QString m_kind;
    SimKnobs m_knobs;
    // A child, as are the clients: Qt cuts this object's connections before deleting its
    // children, so a client closing at shutdown never calls back into a half-destroyed server.
    TcpListener* m_listener;
    std::map<Transport*, std::unique_ptr<SimPrinter>> m_clients;
    std::vector<std::unique_ptr<SimPrinter>> m_idle;
};
