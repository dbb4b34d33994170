#pragma once

#include "platform/wire/RetryTimer.h"
#include "platform/wire/StreamWire.h"

#include <QString>
#include <asio/ip/tcp.hpp>
#include <asio/steady_timer.hpp>

// A printer on the network: connected, and connected again by itself whenever the connection
// fails or drops.
class TcpClientWire : public StreamWire<asio::ip::tcp::socket>
{
public:
    // How long a connection attempt may go unanswered.
    static constexpr int ConnectTimeoutMs = 10000;

    TcpClientWire(asio::io_context& context, QString host, quint16 port);

    void start() override;
    void close() override;

private:
    void tryToConnect();
    void connectTo(const asio::ip::tcp::resolver::results_type& endpoints);
    void attemptFailed(const std::error_code& code);
    void lost(const std::error_code& code) override;
    std::shared_ptr<TcpClientWire> self();

    QString m_host;
    quint16 m_port;
    asio::ip::tcp::resolver m_resolver;
    asio::steady_timer m_connectTimer;
    bool m_bConnecting = false;
    bool m_bTimedOut = false;
    RetryTimer m_retry;
};
