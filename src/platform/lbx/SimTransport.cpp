#include "platform/lbx/SimTransport.h"

#include "sim/SimPrinter.h"

SimTransport::SimTransport(const QString& address, QObject* parent)
    : Transport(parent)
    , m_printer(SimPrinter::fromAddress(address, m_refusal))
{
    if (m_printer)
        connect(m_printer.get(), &SimPrinter::output, this, &Transport::received);
}

SimTransport::~SimTransport() = default;

void SimTransport::open()
{
    if (m_printer)
        setState(State::Connected);
    else
        setState(State::Unusable, QStringLiteral("sim:%1").arg(m_refusal));
}

void SimTransport::send(const QByteArray& bytes)
{
    if (m_printer)
        m_printer->input(bytes);
}
