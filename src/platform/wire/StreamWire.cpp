#include "platform/wire/StreamWire.h"

#include <array>
#include <asio/write.hpp>
#include <chrono>

namespace {
// Read at most this much from one stream per wake-up, so that one busy printer can't hold up
// the others.
constexpr std::size_t ReadPerWakeUp = 256 * 1024;

qint64 SteadyMs()
{
    return std::chrono::duration_cast<std::chrono::milliseconds>(
               std::chrono::steady_clock::now().time_since_epoch())
        .count();
}
} // namespace

template <class Stream>
StreamWire<Stream>::StreamWire(asio::io_context& context)
    : m_stream(context)
{}

template <class Stream> void StreamWire<Stream>::begin()
{
    ++m_generation;
    m_bOpen = true;
    std::error_code ignored;
    m_stream.non_blocking(true, ignored);
    awaitBytes();
}

template <class Stream> void StreamWire<Stream>::awaitBytes()
{
    m_stream.async_wait(Stream::wait_read,
                        [self = shared_from_this(), generation = m_generation](std::error_code) {
                            // A failed wait shows again in the read.
                            static_cast<StreamWire&>(*self).readAvailable(generation);
                        });
}

template <class Stream> void StreamWire<Stream>::readAvailable(unsigned generation)
{
    if (m_bClosed || !m_bOpen || generation != m_generation)
        return;
    // Only the I/O thread reads, so one buffer serves every stream.
    static std::array<char, 64 * 1024> buffer;
    QByteArray bytes;
    std::error_code code;
    while (bytes.size() < qsizetype(ReadPerWakeUp)) {
        const std::size_t got = m_stream.read_some(asio::buffer(buffer), code);
        if (code)
            break;
        bytes.append(buffer.data(), qsizetype(got));
    }
    if (!bytes.isEmpty()) {
        bool floodBegan = false;
        QByteArray admitted = m_floodGuard.admit(bytes, SteadyMs(), floodBegan);
        if (!admitted.isEmpty())
            publishReceived(std::move(admitted));
        if (floodBegan)
            publish(WireEvent::Kind::Flooded, WireError::Flooded,
                    WireErrorText(WireError::Flooded));
    }
    if (code && code != asio::error::would_block)
        fail(code);
    else
        awaitBytes();
}

template <class Stream> void StreamWire<Stream>::send(const QByteArray& bytes)
{
    if (!m_bOpen || m_bClosed) {
        *unsent() -= bytes.size();
        return;
    }
    m_writes.push_back(bytes);
    if (m_writes.size() == 1)
        writeNext();
}

template <class Stream> void StreamWire<Stream>::writeNext()
{
    const QByteArray& next = m_writes.front();
    asio::async_write(m_stream, asio::buffer(next.constData(), std::size_t(next.size())),
                      [self = shared_from_this(),
                       generation = m_generation](const std::error_code& code, std::size_t) {
                          auto& wire = static_cast<StreamWire&>(*self);
                          if (wire.m_bClosed || generation != wire.m_generation)
                              return;
                          if (code) {
                              wire.fail(code);
                              return;
                          }
                          *wire.unsent() -= wire.m_writes.front().size();
                          wire.m_writes.pop_front();
                          if (!wire.m_writes.empty())
                              wire.writeNext();
                      });
}

template <class Stream> void StreamWire<Stream>::fail(const std::error_code& code)
{
    end();
    lost(code);
}

template <class Stream> void StreamWire<Stream>::end()
{
    ++m_generation;
    m_bOpen = false;
    std::error_code ignored;
    m_stream.close(ignored);
    for (const QByteArray& dropped : m_writes)
        *unsent() -= dropped.size();
    m_writes.clear();
}

template <class Stream> void StreamWire<Stream>::close()
{
    end();
    m_bClosed = true;
}

template class StreamWire<asio::ip::tcp::socket>;
template class StreamWire<asio::posix::stream_descriptor>;
