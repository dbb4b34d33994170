#include "platform/wire/WireLoop.h"

#include "platform/wire/IoWire.h"

#include <QCoreApplication>
#include <asio/post.hpp>
#include <cstdlib>

WireLoop& WireLoop::process()
{
    // Never destroyed: a wire may be let go by an object that outlives every other static.
    // Its thread stops with the application object, or at exit when there was none.
    static WireLoop* const loop = [] {
        auto* made = new WireLoop;
        qAddPostRoutine([] { process().stop(); });
        std::atexit([] { process().stop(); });
        return made;
    }();
    return *loop;
}

WireLoop::WireLoop()
    : m_keepRunning(asio::make_work_guard(m_context))
    , m_thread([this] { m_context.run(); })
{}

void WireLoop::stop()
{
    if (!m_thread.joinable())
        return;
    asio::post(m_context, [this] {
        for (auto& [id, wire] : m_wires)
            wire->close();
        m_wires.clear();
    });
    // The thread ends once the closed wires' last handlers have run.
    m_keepRunning.reset();
    m_thread.join();
}

WireId WireLoop::nextId()
{
    return m_nextId++;
}

IoWire* WireLoop::served(WireId wire) const
{
    const auto found = m_wires.find(wire);
    return found == m_wires.end() ? nullptr : found->second.get();
}

template <class Work> void WireLoop::onWire(WireId wire, Work work)
{
    asio::post(m_context, [this, wire, work = std::move(work)]() mutable {
        if (IoWire* io = served(wire))
            work(*io);
    });
}

WireId WireLoop::add(std::shared_ptr<IoWire> wire, WireEndpoint* endpoint)
{
    const WireId id = nextId();
    wire->bind(*this, id);
    m_endpoints[id] = endpoint;
    asio::post(m_context, [this, id, wire = std::move(wire)]() mutable {
        m_wires.emplace(id, std::move(wire));
    });
    return id;
}

void WireLoop::adopt(std::shared_ptr<IoWire> wire)
{
    m_wires.emplace(wire->id(), std::move(wire));
}

void WireLoop::attach(WireId wire, WireEndpoint* endpoint)
{
    m_endpoints[wire] = endpoint;
}

void WireLoop::remove(WireId wire)
{
    m_endpoints.erase(wire);
    onWire(wire, [this, wire](IoWire& io) {
        io.close();
        m_wires.erase(wire);
    });
}

void WireLoop::start(WireId wire)
{
    onWire(wire, [](IoWire& io) { io.start(); });
}

void WireLoop::send(WireId wire, const QByteArray& bytes)
{
    bool wake = false;
    {
        const std::lock_guard<std::mutex> lock(m_outboxLock);
        wake = m_outbox.empty();
        m_outbox.push_back({wire, bytes});
    }
    if (wake)
        asio::post(m_context, [this] { sendWaiting(); });
}

void WireLoop::sendWaiting()
{
    std::vector<Outgoing> waiting;
    {
        const std::lock_guard<std::mutex> lock(m_outboxLock);
        waiting.swap(m_outbox);
    }
    for (const Outgoing& send : waiting)
        if (IoWire* io = served(send.wire))
            io->send(send.bytes);
}

void WireLoop::publish(WireEvent event)
{
    bool wake = false;
    {
        const std::lock_guard<std::mutex> lock(m_inboxLock);
        wake = m_inbox.empty();
        // What one wire sends in several reads before the logic thread wakes is one fragment.
        if (event.kind == WireEvent::Kind::Received && !m_inbox.empty() &&
            m_inbox.back().wire == event.wire && m_inbox.back().kind == WireEvent::Kind::Received)
            m_inbox.back().bytes += event.bytes;
        else
            m_inbox.push_back(std::move(event));
    }
    if (wake)
        QMetaObject::invokeMethod(this, &WireLoop::deliver, Qt::QueuedConnection);
}

void WireLoop::deliver()
{
    {
        const std::lock_guard<std::mutex> lock(m_inboxLock);
        for (WireEvent& event : m_inbox)
            m_delivering.push_back(std::move(event));
        m_inbox.clear();
    }
    // An endpoint may open a dialog whose nested loop delivers the next batch from here:
    // the events wait in one queue, so that they still come in order.
    while (!m_delivering.empty()) {
        const WireEvent event = std::move(m_delivering.front());
        m_delivering.pop_front();
        const auto endpoint = m_endpoints.find(event.wire);
        if (endpoint != m_endpoints.end())
            endpoint->second->onWireEvent(event);
        else if (event.kind == WireEvent::Kind::Accepted)
            remove(event.accepted); // its listener has gone
    }
}
