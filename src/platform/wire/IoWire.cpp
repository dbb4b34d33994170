#include "platform/wire/IoWire.h"

#include "platform/wire/WireLoop.h"

void IoWire::publish(WireEvent::Kind kind, WireError error, QString text)
{
    WireEvent event;
    event.wire = m_id;
    event.kind = kind;
    event.error = error;
    event.text = std::move(text);
    m_loop->publish(std::move(event));
}

void IoWire::publishReceived(QByteArray bytes)
{
    WireEvent event;
    event.wire = m_id;
    event.bytes = std::move(bytes);
    m_loop->publish(std::move(event));
}

void IoWire::publishAccepted(const IoWire& connection)
{
    WireEvent event;
    event.wire = m_id;
    event.kind = WireEvent::Kind::Accepted;
    event.accepted = connection.id();
    event.acceptedUnsent = connection.unsent();
    m_loop->publish(std::move(event));
}
