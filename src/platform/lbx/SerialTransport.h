#pragma once

#include "platform/wire/WireTransport.h"

struct PortAddress;

// A printer on a serial line; an adapter that is unplugged is found again when it comes back.
class SerialTransport : public WireTransport
{
    Q_OBJECT

public:
    explicit SerialTransport(const PortAddress& address, QObject* parent = nullptr);
};
