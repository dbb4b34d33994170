#pragma once

#include "platform/wire/WireEvent.h"

#include <QByteArray>
#include <QObject>
#include <asio/executor_work_guard.hpp>
#include <asio/io_context.hpp>
#include <atomic>
#include <deque>
#include <memory>
#include <mutex>
#include <thread>
#include <unordered_map>
#include <vector>

class IoWire;

// The one I/O thread of the process, on epoll: it serves every TCP and serial wire and only
// moves bytes. What it hears reaches the logic thread in batches: one wake-up of the logic
// thread carries whatever arrived meanwhile, for any number of wires, in order per wire.
// Sends go the other way the same way: one wake-up of the I/O thread for all that the logic
// thread sent meanwhile.
class WireLoop : public QObject
{
    Q_OBJECT

public:
    // The process's loop, made on first use on the logic thread; its thread stops when the
    // application object goes, or at exit.
    static WireLoop& process();

    // From the logic thread.
    // Hands `wire` to the I/O thread and sends its events to `endpoint`.
    WireId add(std::shared_ptr<IoWire> wire, WireEndpoint* endpoint);
    // Sends the events of a wire that a listening wire accepted to `endpoint`.
    void attach(WireId wire, WireEndpoint* endpoint);
    // Closes the wire; no event of it comes any more.
    void remove(WireId wire);
    void start(WireId wire);
    void send(WireId wire, const QByteArray& bytes);

    // From the I/O thread (nextId() from either).
    void publish(WireEvent event);
    // Serves a wire that another one made (a listening wire's connection), bound already.
    void adopt(std::shared_ptr<IoWire> wire);
    asio::io_context& context() { return m_context; }
    WireId nextId();

private:
    WireLoop();
    // On the I/O thread: the wire it serves under that name, if any.
    IoWire* served(WireId wire) const;
    // Runs `work` with the wire, on the I/O thread.
    template <class Work> void onWire(WireId wire, Work work);
    void deliver();
    // On the I/O thread: hands every waiting send to its wire.
    void sendWaiting();
    void stop();

    struct Outgoing
    {
        WireId wire;
        QByteArray bytes;
    };

    asio::io_context m_context;
    asio::executor_work_guard<asio::io_context::executor_type> m_keepRunning;
    std::thread m_thread;
    std::atomic<WireId> m_nextId{1};
    // I/O thread only.
    std::unordered_map<WireId, std::shared_ptr<IoWire>> m_wires;
    // Shared by both threads, under their locks.
    std::mutex m_inboxLock;
    std::vector<WireEvent> m_inbox;
    std::mutex m_outboxLock;
    std::vector<Outgoing> m_outbox;
    // Logic thread only.
    std::unordered_map<WireId, WireEndpoint*> m_endpoints;
    std::deque<WireEvent> m_delivering;
};
