#include "platform/wire/SerialWire.h"

#include <QFile>
#include <fcntl.h>
#include <termios.h>
#include <unistd.h>
#include <utility>

namespace {
// The rates a line can be set to.
constexpr std::pair<qint32, speed_t> Speeds[] = {
    {50, B50},           {75, B75},           {110, B110},         {134, B134},
    {150, B150},         {200, B200},         {300, B300},         {600, B600},
    {1200, B1200},       {1800, B1800},       {2400, B2400},       {4800, B4800},
    {9600, B9600},       {19200, B19200},     {38400, B38400},     {57600, B57600},
    {115200, B115200},   {230400, B230400},   {460800, B460800},   {500000, B500000},
    {576000, B576000},   {921600, B921600},   {1000000, B1000000}, {1152000, B1152000},
    {1500000, B1500000}, {2000000, B2000000}, {2500000, B2500000}, {3000000, B3000000},
    {3500000, B3500000}, {4000000, B4000000},
};

std::error_code LastSystemError()
{
    return {errno, std::system_category()};
}

// Raw bytes at the line's rate and framing, no flow control.
bool SetLine(int device, const SerialLine& line)
{
    termios settings{};
    if (tcgetattr(device, &settings) != 0)
        return false;
    cfmakeraw(&settings);
    speed_t speed = 0;
    for (const auto& [baud, constant] : Speeds)
        if (baud == line.baud)
            speed = constant;
    if (speed == 0 || cfsetspeed(&settings, speed) != 0) {
        errno = EINVAL;
        return false;
    }
    settings.c_cflag &= ~(CSIZE | PARENB | PARODD | CSTOPB | CRTSCTS);
    settings.c_cflag |= CLOCAL | CREAD;
    settings.c_cflag |= line.dataBits == 5   ? CS5
                        : line.dataBits == 6 ? CS6
                        : line.dataBits == 7 ? CS7
                                             : CS8;
    if (line.parity != SerialLine::Parity::None)
        settings.c_cflag |= PARENB | (line.parity == SerialLine::Parity::Odd ? PARODD : 0);
    if (line.stopBits == 2)
        settings.c_cflag |= CSTOPB;
    settings.c_iflag &= ~(IXON | IXOFF | IXANY);
    return tcsetattr(device, TCSANOW, &settings) == 0;
}
} // namespace

SerialWire::SerialWire(asio::io_context& context, SerialLine line)
    : StreamWire(context)
    , m_line(std::move(line))
    , m_retry(context)
{}

void SerialWire::start()
{
    m_retry.succeeded();
    tryToOpen();
}

void SerialWire::close()
{
    m_retry.cancel();
    StreamWire::close();
}

void SerialWire::tryToOpen()
{
    publish(WireEvent::Kind::Connecting);
    if (const std::error_code failure = openDevice()) {
        lost(failure);
        return;
    }
    m_retry.succeeded();
    begin();
    publish(WireEvent::Kind::Connected);
}

std::error_code SerialWire::openDevice()
{
    const int device = ::open(QFile::encodeName(m_line.device).constData(),
                              O_RDWR | O_NOCTTY | O_NONBLOCK | O_CLOEXEC);
    if (device < 0)
        return LastSystemError();
    if (!SetLine(device, m_line)) {
        const std::error_code failure = LastSystemError();
        ::close(device);
        return failure;
    }
    std::error_code failure;
    stream().assign(device, failure);
    if (failure)
        ::close(device);
    return failure;
}

void SerialWire::lost(const std::error_code& code)
{
    // A line that ends was most often pulled out.
    const std::error_code cause =
        code == asio::error::eof ? std::make_error_code(std::errc::no_such_device) : code;
    publish(WireEvent::Kind::Lost, ClassifyWireError(cause),
            QStringLiteral("%1: %2").arg(m_line.device, DescribeWireError(cause)));
    m_retry.schedule([self = std::static_pointer_cast<SerialWire>(shared_from_this())] {
        if (!self->closed())
            self->tryToOpen();
    });
}
