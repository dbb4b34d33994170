#include "platform/wire/TcpListener.h"

#include "platform/wire/TcpServerWires.h"
#include "platform/wire/WireLoop.h"
#include "platform/wire/WireTransport.h"

namespace {
bool ParseEndpoint(const QString& text, asio::ip::tcp::endpoint& endpoint)
{
    const qsizetype colon = text.lastIndexOf(QLatin1Char(':'));
    if (colon < 0)
        return false;
    QString host = text.left(colon);
    if (host.startsWith(QLatin1Char('[')) && host.endsWith(QLatin1Char(']')))
        host = host.mid(1, host.size() - 2);
    bool ok = false;
    const quint16 port = text.mid(colon + 1).toUShort(&ok);
    std::error_code notAnAddress;
    const asio::ip::address address = asio::ip::make_address(host.toStdString(), notAnAddress);
    if (!ok || notAnAddress)
        return false;
    endpoint = asio::ip::tcp::endpoint(address, port);
    return true;
}

QString EndpointText(const asio::ip::tcp::endpoint& endpoint)
{
    const QString host = QString::fromStdString(endpoint.address().to_string());
    const QString shown = endpoint.address().is_v6() ? QStringLiteral("[%1]").arg(host) : host;
    return QStringLiteral("%1:%2").arg(shown).arg(endpoint.port());
}
} // namespace

TcpListener::TcpListener(QObject* parent)
    : QObject(parent)
{}

TcpListener::~TcpListener()
{
    if (m_id != 0)
        WireLoop::process().remove(m_id);
}

bool TcpListener::listen(const QString& address, QString& error)
{
    asio::ip::tcp::endpoint where;
    if (!ParseEndpoint(address, where)) {
        error = QStringLiteral("\"%1\" is not an address to listen on, like 127.0.0.2:9100")
                    .arg(address);
        return false;
    }
    WireLoop& loop = WireLoop::process();
    auto wire = std::make_shared<TcpListenerWire>(loop.context());
    if (!wire->listen(where, error)) {
        error = QStringLiteral("cannot listen: %1").arg(error);
        return false;
    }
    m_address = EndpointText(wire->localEndpoint());
    m_id = loop.add(std::move(wire), this);
    loop.start(m_id);
    return true;
}

void TcpListener::onWireEvent(const WireEvent& event)
{
    if (event.kind == WireEvent::Kind::Accepted)
        emit accepted(new WireTransport(event, this));
    else if (event.kind == WireEvent::Kind::Lost)
        emit acceptFailed(event.text);
}
