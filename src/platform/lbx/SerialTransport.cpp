#include "platform/lbx/SerialTransport.h"

#include "platform/lbx/PortAddress.h"
#include "platform/wire/SerialWire.h"
#include "platform/wire/WireLoop.h"

namespace {
SerialLine LineOf(const PortAddress& address)
{
    SerialLine line;
    line.device = address.device;
    line.baud = address.baud;
    line.dataBits = address.dataBits;
    line.parity = address.parity == PortAddress::Parity::Even  ? SerialLine::Parity::Even
                  : address.parity == PortAddress::Parity::Odd ? SerialLine::Parity::Odd
                                                               : SerialLine::Parity::None;
    line.stopBits = address.stopBits;
    return line;
}
} // namespace

SerialTransport::SerialTransport(const PortAddress& address, QObject* parent)
    : WireTransport(std::make_shared<SerialWire>(WireLoop::process().context(), LineOf(address)),
                    parent)
{}
