#pragma once

#include "platform/wire/FloodGuard.h"
#include "platform/wire/IoWire.h"

#include <asio/ip/tcp.hpp>
#include <asio/posix/stream_descriptor.hpp>
#include <deque>
#include <system_error>

// A wire over one byte stream (a TCP socket, a serial device): at each wake-up it reads all
// that is there, caps a flood, and hands the bytes on; writes go out in order, one at a time.
// A failure ends the stream and drops what waited to be written; what follows is the
// subclass's business (lost()).
template <class Stream> class StreamWire : public IoWire
{
public:
    void send(const QByteArray& bytes) override;
    void close() override;

protected:
    explicit StreamWire(asio::io_context& context);

    Stream& stream() { return m_stream; }
    bool closed() const { return m_bClosed; }
    // The stream is open: reading begins.
    void begin();
    // Ends the stream after `code`, then tells lost().
    void fail(const std::error_code& code);
    virtual void lost(const std::error_code& code) = 0;

private:
    void awaitBytes();
    void readAvailable(unsigned generation);
    void writeNext();
    void end();

    Stream m_stream;
    bool m_bOpen = false;
    bool m_bClosed = false;
    // Counts the streams opened, so that the handlers of an ended one stay quiet.
    unsigned m_generation = 0;
    std::deque<QByteArray> m_writes;
    FloodGuard m_floodGuard;
};

extern template class StreamWire<asio::ip::tcp::socket>;
extern template class StreamWire<asio::posix::stream_descriptor>;
