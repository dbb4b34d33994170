#include "platform/lbx/TcpTransport.h"

#include "platform/wire/TcpClientWire.h"
#include "platform/wire/WireLoop.h"

TcpTransport::TcpTransport(const QString& host, quint16 port, QObject* parent)
    : WireTransport(std::make_shared<TcpClientWire>(WireLoop::process().context(), host, port),
                    parent)
{}
