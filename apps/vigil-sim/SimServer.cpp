#include "SimServer.h"

#include "platform/wire/TcpListener.h"
#include "platform/wire/Transport.h"

SimServer::SimServer(QString name, std::unique_ptr<SimPrinter> printer, SimKnobs knobs,
                     QObject* parent)
    : QObject(parent)
    , m_name(std::move(name))
    , m_kind(printer->kind())
    , m_knobs(std::move(knobs))
    , m_listener(new TcpListener(this))
{
    m_idle.push_back(std::move(printer));
    connect(m_listener, &TcpListener::accepted, this, &SimServer::acceptClient);
    connect(m_listener, &TcpListener::acceptFailed, this, &SimServer::acceptFailed);
}

bool SimServer::listen(const QString& address, QString& error)
{
    return m_listener->listen(address, error);
}

QString SimServer::address() const
{
    return m_listener->address();
}

void SimServer::acceptClient(Transport* client)
{
    QString error;
    std::unique_ptr<SimPrinter> printer = takePrinter(error);
    if (!printer) {
        emit acceptFailed(error);
        client->deleteLater();
        return;
    }
    serveClient(client, std::move(printer));
}

void SimServer::serveClient(Transport* client, std::unique_ptr<SimPrinter> printer)
{
    SimPrinter* answering = printer.get();
    connect(client, &Transport::received, answering, &SimPrinter::input);
    connect(answering, &SimPrinter::output, client, &Transport::send);
    // Held by the client, so that dropping the client cuts it as it cuts the output.
    connect(answering, &SimPrinter::notice, client,
            [this](const QString& line) { emit notice(line); });
    connect(client, &Transport::stateChanged, this, [this, client](Transport::State state) {
        if (state != Transport::State::Connected)
            dropClient(client);
    });
    m_clients.emplace(client, std::move(printer));
}

void SimServer::dropClient(Transport* client)
{
    const auto served = m_clients.find(client);
    if (served == m_clients.end())
        return;
    std::unique_ptr<SimPrinter> printer = std::move(served->second);
    m_clients.erase(served);
    client->disconnect(this);
    printer->disconnect(client);
    client->disconnect(printer.get());
    // What it still had to say was for the client that has gone.
    printer->dropPendingOutput();
    m_idle.push_back(std::move(printer));
    client->deleteLater();
}

std::unique_ptr<SimPrinter> SimServer::takePrinter(QString& error)
{
    if (m_idle.empty())
        return SimPrinter::create(m_kind, m_knobs, error);
    std::unique_ptr<SimPrinter> printer = std::move(m_idle.back());
    m_idle.pop_back();
    return printer;
}
