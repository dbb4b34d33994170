#include "platform/wire/WireTransport.h"

#include "platform/wire/IoWire.h"
#include "platform/wire/WireLoop.h"

WireTransport::WireTransport(std::shared_ptr<IoWire> wire, QObject* parent)
    : Transport(parent)
    , m_unsent(wire->unsent())
{
    m_id = WireLoop::process().add(std::move(wire), this);
}

WireTransport::WireTransport(const WireEvent& accepted, QObject* parent)
    : Transport(parent)
    , m_id(accepted.accepted)
    , m_unsent(accepted.acceptedUnsent)
{
    WireLoop::process().attach(m_id, this);
    setState(State::Connected);
}

WireTransport::~WireTransport()
{
    WireLoop::process().remove(m_id);
}

void WireTransport::open()
{
    setState(State::Connecting);
    WireLoop::process().start(m_id);
}

void WireTransport::send(const QByteArray& bytes)
{
    if (state() != State::Connected)
        return;
    *m_unsent += bytes.size();
    WireLoop::process().send(m_id, bytes);
}

void WireTransport::onWireEvent(const WireEvent& event)
{
    switch (event.kind) {
    case WireEvent::Kind::Connecting:
        setState(State::Connecting);
        break;
    case WireEvent::Kind::Connected:
        setState(State::Connected);
        break;
    case WireEvent::Kind::Lost:
        setState(State::Closed, event.text);
        reportError(event.error, event.text);
        break;
    case WireEvent::Kind::Received:
        emit received(event.bytes);
        break;
    case WireEvent::Kind::Flooded:
        reportError(event.error, event.text);
        break;
    case WireEvent::Kind::Accepted:
        break;
    }
}
