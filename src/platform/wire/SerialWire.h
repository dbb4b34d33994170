#pragma once

#include "platform/wire/RetryTimer.h"
#include "platform/wire/StreamWire.h"

#include <QString>

// How a serial line is set.
struct SerialLine
{
    enum class Parity { None, Even, Odd };

    QString device;
    qint32 baud = 9600;
    int dataBits = 8;
    Parity parity = Parity::None;
    int stopBits = 1;
};

// A printer on a serial line: an adapter that is unplugged, or not there yet, is looked for
// again by itself until it is back.
class SerialWire : public StreamWire<asio::posix::stream_descriptor>
{
public:
    SerialWire(asio::io_context& context, SerialLine line);

    void start() override;
    void close() override;

private:
    void tryToOpen();
    // The device open and set to the line's settings, or the failure.
    std::error_code openDevice();
    void lost(const std::error_code& code) override;

    SerialLine m_line;
    RetryTimer m_retry;
};
