#include "platform/lbx/TransportFactory.h"

#include "platform/lbx/PortAddress.h"
#include "platform/lbx/SerialTransport.h"
#include "platform/lbx/SimTransport.h"
#include "platform/lbx/TcpTransport.h"
#include "platform/lbx/UnusableTransport.h"

std::unique_ptr<Transport> CreateTransport(const PortAddress& address)
{
    switch (address.kind) {
    case PortAddress::Kind::Tcp:
        return std::make_unique<TcpTransport>(address.host, address.port);
    case PortAddress::Kind::Serial:
        return std::make_unique<SerialTransport>(address);
    case PortAddress::Kind::Simulated:
        return std::make_unique<SimTransport>(address.simAddress);
    case PortAddress::Kind::Unusable:
        break;
    }
    return std::make_unique<UnusableTransport>(address.problem);
}
