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

SimServer::SimServer(QString name, std::unique_ptr<SimPrinter> printer, QObject* parent)
    : QObject(parent)
    , m_name(std::move(name))
    , m_printer(std::move(printer))
    , m_server(new QTcpServer(this))
{
    connect(m_server, &QTcpServer::newConnection, this, &SimServer::acceptClients);
    connect(m_server, &QTcpServer::acceptError, this, &SimServer::retryAccepting);
    connect(m_printer.get(), &SimPrinter::output, this, &SimServer::sendToClients);
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
        // Each piece of a reply is its own segment, as a real printer's would be: Nagle's
        // algorithm would otherwise glue the fragments the knobs asked for back together.
        client->setSocketOption(QAbstractSocket::LowDelayOption, 1);
        connect(client, &QTcpSocket::readyRead, this,
                [this, client] { m_printer->input(client->readAll()); });
        connect(client, &QTcpSocket::disconnected, this, [this, client] { dropClient(client); });
        m_clients.append(client);
    }
}

void SimServer::dropClient(QTcpSocket* client)
{
    m_clients.removeOne(client);
    client->deleteLater();
}

void SimServer::sendToClients(const QByteArray& bytes)
{
    for (QTcpSocket* client : std::as_const(m_clients))
        client->write(bytes);
}

void SimServer::retryAccepting()
{
    // QTcpServer stops accepting after such an error (most often: out of file descriptors);
    // without a retry the printer would stay deaf for the rest of the run.
    emit acceptFailed(m_server->errorString());
    QTimer::singleShot(AcceptRetryMs, m_server, &QTcpServer::resumeAccepting);
}
