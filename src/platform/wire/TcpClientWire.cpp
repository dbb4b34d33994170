#include "platform/wire/TcpClientWire.h"

#include <asio/connect.hpp>

TcpClientWire::TcpClientWire(asio::io_context& context, QString host, quint16 port)
    : StreamWire(context)
    , m_host(std::move(host))
    , m_port(port)
    , m_resolver(context)
    , m_connectTimer(context)
    , m_retry(context)
{}

std::shared_ptr<TcpClientWire> TcpClientWire::self()
{
    return std::static_pointer_cast<TcpClientWire>(shared_from_this());
}

void TcpClientWire::start()
{
    m_retry.succeeded();
    tryToConnect();
}

void TcpClientWire::close()
{
    m_retry.cancel();
    m_resolver.cancel();
    m_connectTimer.cancel();
    StreamWire::close();
}

void TcpClientWire::tryToConnect()
{
    publish(WireEvent::Kind::Connecting);
    std::error_code notAnAddress;
    const asio::ip::address address = asio::ip::make_address(m_host.toStdString(), notAnAddress);
    if (!notAnAddress) {
        connectTo(asio::ip::tcp::resolver::results_type::create(
            asio::ip::tcp::endpoint(address, m_port), m_host.toStdString(),
            std::to_string(m_port)));
        return;
    }
    m_resolver.async_resolve(
        m_host.toStdString(), std::to_string(m_port),
        [self = self()](const std::error_code& code,
                        const asio::ip::tcp::resolver::results_type& endpoints) {
            if (self->closed())
                return;
            if (code)
                self->attemptFailed(code);
            else
                self->connectTo(endpoints);
        });
}

void TcpClientWire::connectTo(const asio::ip::tcp::resolver::results_type& endpoints)
{
    m_bTimedOut = false;
    m_bConnecting = true;
    m_connectTimer.expires_after(std::chrono::milliseconds(ConnectTimeoutMs));
    m_connectTimer.async_wait([self = self()](const std::error_code& code) {
        // A time-out that was due as the connection came is too late.
        if (code || self->closed() || !self->m_bConnecting)
            return;
        self->m_bTimedOut = true;
        std::error_code ignored;
        self->stream().close(ignored);
    });
    asio::async_connect(
        stream(), endpoints,
        [self = self()](const std::error_code& code, const asio::ip::tcp::endpoint&) {
            if (self->closed())
                return;
            self->m_bConnecting = false;
            self->m_connectTimer.cancel();
            if (code) {
                self->attemptFailed(self->m_bTimedOut ? std::make_error_code(std::errc::timed_out)
                                                      : code);
                return;
            }
            std::error_code ignored;
            self->stream().set_option(asio::ip::tcp::no_delay(true), ignored);
            self->m_retry.succeeded();
            self->begin();
            self->publish(WireEvent::Kind::Connected);
        });
}

void TcpClientWire::attemptFailed(const std::error_code& code)
{
    std::error_code ignored;
    stream().close(ignored);
    lost(code);
}

void TcpClientWire::lost(const std::error_code& code)
{
    const WireError error = ClassifyWireError(code);
    publish(WireEvent::Kind::Lost, error,
            QStringLiteral("%1:%2: %3").arg(m_host).arg(m_port).arg(DescribeWireError(code)));
    m_retry.schedule([self = self()] {
        if (!self->closed())
            self->tryToConnect();
    });
}
