#include "platform/wire/TcpServerWires.h"

#include "platform/wire/WireLoop.h"

AcceptedTcpWire::AcceptedTcpWire(asio::io_context& context)
    : StreamWire(context)
{}

void AcceptedTcpWire::start()
{
    // Each piece of a reply is its own segment, as from a real printer.
    std::error_code ignored;
    stream().set_option(asio::ip::tcp::no_delay(true), ignored);
    begin();
}

void AcceptedTcpWire::lost(const std::error_code& code)
{
    publish(WireEvent::Kind::Lost, ClassifyWireError(code), DescribeWireError(code));
}

TcpListenerWire::TcpListenerWire(asio::io_context& context)
    : m_context(context)
    , m_acceptor(context)
    , m_retry(context)
{}

std::shared_ptr<TcpListenerWire> TcpListenerWire::self()
{
    return std::static_pointer_cast<TcpListenerWire>(shared_from_this());
}

bool TcpListenerWire::listen(const asio::ip::tcp::endpoint& where, QString& error)
{
    std::error_code failure;
    m_acceptor.open(where.protocol(), failure);
    if (!failure)
        m_acceptor.set_option(asio::socket_base::reuse_address(true), failure);
    if (!failure)
        m_acceptor.bind(where, failure);
    if (!failure)
        m_acceptor.listen(asio::socket_base::max_listen_connections, failure);
    if (failure)
        error = QString::fromStdString(failure.message());
    return !failure;
}

asio::ip::tcp::endpoint TcpListenerWire::localEndpoint() const
{
    std::error_code ignored;
    return m_acceptor.local_endpoint(ignored);
}

void TcpListenerWire::acceptNext()
{
    auto connection = std::make_shared<AcceptedTcpWire>(m_context);
    m_acceptor.async_accept(connection->socket(), [self = self(),
                                                   connection](const std::error_code& code) {
        if (self->m_bClosed)
            return;
        if (code) {
            self->publish(WireEvent::Kind::Lost, ClassifyWireError(code), DescribeWireError(code));
            self->m_retry.expires_after(std::chrono::milliseconds(AcceptRetryMs));
            self->m_retry.async_wait([self](const std::error_code& cancelled) {
                if (!cancelled && !self->m_bClosed)
                    self->acceptNext();
            });
            return;
        }
        connection->bind(self->loop(), self->loop().nextId());
        self->publishAccepted(*connection);
        self->loop().adopt(connection);
        connection->start();
        self->acceptNext();
    });
}

void TcpListenerWire::close()
{
    m_bClosed = true;
    m_retry.cancel();
    std::error_code ignored;
    m_acceptor.close(ignored);
}
