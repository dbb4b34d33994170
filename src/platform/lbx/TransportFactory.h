#pragma once

#include "platform/wire/Transport.h"

#include <memory>

struct PortAddress;

// The wire a port name asks for, not yet opened.
std::unique_ptr<Transport> CreateTransport(const PortAddress& address);
