#pragma once

#include "platform/wire/WireTransport.h"

// A printer on the network.
class TcpTransport : public WireTransport
{
    Q_OBJECT

public:
    TcpTransport(const QString& host, quint16 port, QObject* parent = nullptr);
};
