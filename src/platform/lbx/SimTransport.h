#pragma once

#include "platform/wire/Transport.h"

#include <memory>

class SimPrinter;

// A simulated printer inside this program: its replies come as later events, as from a
// wire.
class SimTransport : public Transport
{
    Q_OBJECT

public:
    explicit SimTransport(const QString& address, QObject* parent = nullptr);
    ~SimTransport() override;

    void open() override;
    void send(const QByteArray& bytes) override;

private:
    // Why there is no printer, when its address was refused.
    QString m_refusal;
    std::unique_ptr<SimPrinter> m_printer;
};
