#include "SimServer.h"

#include <QHostAddress>
#include <QTcpServer>
#include <QTcpSocket>
#include <QTimer>

namespace {
// After running out of file descriptors, when to try accepting again.
constexpr int AcceptRetryMs = 1000;

bool parseAddress(const QString& text, QHostAddress& host, quint16& port)
{
    const qsizetype colon = text.lastIndexOf(QLatin1Char(':'));
    if (colon < 0)
        return false;
    QString hostText = text.left(colon);
    if (hostText.startsWith(QLatin1Char('[')) && hostText.endsWith(QLatin1Char(']')))
        hostText = hostText.mid(1, hostText.size() - 2);
    bool ok = false;
    port = text.mid(colon + 1).toUShort(&ok);
    return ok && host.setAddress(hostText);
}
} // namespace

SimServer::SimServer(QString name, std::unique_ptr<SimPrinter> printer, SimKnobs knobs,
                     QObject* parent)
    : QObject(parent)
    , m_name(std::move(name))
    , m_kind(printer->kind())
    , m_knobs(std::move(knobs))
    , m_server(new QTcpServer(this))
{
    m_idle.push_back(std::move(printer));
    connect(m_server, &QTcpServer::newConnection, this, &SimServer::acceptClients);
    connect(m_server, &QTcpServer::acceptError, this, &SimServer::retryAccepting);
}

bool SimServer::listen(const QString& address, QString& error)
{
    QHostAddress host;
    quint16 port = 0;
    if (!parseAddress(address, host, port)) {
        error = QStringLiteral("\"%1\" is not an address to listen on, like 127.0.0.2:9100")
                    .arg(address);
        return false;
    }
    if (!m_server->listen(host, port)) {
        error = QStringLiteral("cannot listen: %1").arg(m_server->errorString());
        return false;
    }
    return true;
}

QString SimServer::address() const
{
    const QHostAddress host = m_server->serverAddress();
    const QString hostText = host.protocol() == QAbstractSocket::IPv6Protocol
                                 ? QStringLiteral("[%1]").arg(host.toString())
                                 : host.toString();
    return QStringLiteral("%1:%2").arg(hostText).arg(m_server->serverPort());
}

void SimServer::acceptClients()
{
    while (QTcpSocket* client = m_server->nextPendingConnection()) {
        QString error;
        std::unique_ptr<SimPrinter> printer = takePrinter(error);
        if (!printer) {
            emit acceptFailed(error);
            client->abort();
            client->deleteLater();
            continue;
        }
        serveClient(client, std::move(printer));
    }
}

void SimServer::serveClient(QTcpSocket* client, std::unique_ptr<SimPrinter> printer)
{
    // Each piece of a reply is its own segment, as a real printer's would be: Nagle's
    // algorithm would otherwise glue the fragments the knobs asked for back together.
    client->setSocketOption(QAbstractSocket::LowDelayOption, 1);
    SimPrinter* answering = printer.get();
    connect(client, &QTcpSocket::readyRead, this,
            [answering, client] { answering->input(client->readAll()); });
    connect(answering, &SimPrinter::output, client,
            [client](const QByteArray& bytes) { client->write(bytes); });
    // Held by the client, so that dropping the client cuts it as it cuts the output.
    connect(answering, &SimPrinter::notice, client,
            [this](const QString& line) { emit notice(line); });
    connect(client, &QTcpSocket::disconnected, this, [this, client] { dropClient(client); });
    m_clients.emplace(client, std::move(printer));
}

void SimServer::dropClient(QTcpSocket* client)
{
    const auto served = m_clients.find(client);
    if (served == m_clients.end())
        return;
    std::unique_ptr<SimPrinter> printer = std::move(served->second);
    m_clients.erase(served);
    client->disconnect(this);
    printer->disconnect(client);
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

void SimServer::retryAccepting()
{
    // QTcpServer stops accepting after such an error (most often: out of file descriptors);
    // without a retry the printer would stay deaf for the rest of the run.
    emit acceptFailed(m_server->errorString());
    QTimer::singleShot(AcceptRetryMs, m_server, &QTcpServer::resumeAccepting);
}
