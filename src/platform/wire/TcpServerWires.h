#pragma once

#include "platform/wire/StreamWire.h"

#include <QString>
#include <asio/ip/tcp.hpp>
#include <asio/steady_timer.hpp>

// One connection that a listening wire took: up from the start, gone for good when it drops.
class AcceptedTcpWire : public StreamWire<asio::ip::tcp::socket>
{
public:
    explicit AcceptedTcpWire(asio::io_context& context);

    asio::ip::tcp::socket& socket() { return stream(); }
    void start() override;

private:
    void lost(const std::error_code& code) override;
};

// A listening TCP port: each connection it takes becomes a wire of its own, announced by an
// Accepted event. When it can't accept (out of file descriptors, most often) it says so with
// a Lost event and tries again a second later.
class TcpListenerWire : public IoWire
{
public:
    static constexpr int AcceptRetryMs = 1000;

    explicit TcpListenerWire(asio::io_context& context);

    // Binds and listens at once, on the calling thread, so that the caller knows where (port 0
    // takes a free one) or why not.
    bool listen(const asio::ip::tcp::endpoint& where, QString& error);
    asio::ip::tcp::endpoint localEndpoint() const;

    void start() override { acceptNext(); }
    void send(const QByteArray&) override {}
    void close() override;

private:
    void acceptNext();
    std::shared_ptr<TcpListenerWire> self();

    asio::io_context& m_context;
    asio::ip::tcp::acceptor m_acceptor;
    asio::steady_timer m_retry;
    bool m_bClosed = false;
};
