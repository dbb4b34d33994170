#pragma once

#include "platform/wire/Transport.h"
#include "platform/wire/WireEvent.h"

#include <memory>

class IoWire;

// A wire served by the I/O thread, as the logic thread sees it: sends are handed over
// without waiting, and the wire's events come back as this transport's signals.
class WireTransport : public Transport, private WireEndpoint
{
    Q_OBJECT

public:
    // A wire of its own, opened by open().
    explicit WireTransport(std::shared_ptr<IoWire> wire, QObject* parent = nullptr);
    // A connection that a listening wire accepted: up already.
    WireTransport(const WireEvent& accepted, QObject* parent = nullptr);
    ~WireTransport() override;

    void open() override;
    void send(const QByteArray& bytes) override;
    qint64 bytesToWrite() const override { return *m_unsent; }

private:
    void onWireEvent(const WireEvent& event) override;

    WireId m_id;
    std::shared_ptr<std::atomic<qint64>> m_unsent;
};
