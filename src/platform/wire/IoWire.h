#pragma once

#include "platform/wire/WireEvent.h"

#include <QByteArray>
#include <atomic>
#include <memory>

class WireLoop;

// The I/O thread's side of one wire. Made on the logic thread, then touched only on the I/O
// thread: start, send and close come there as posted work, and what happens goes back as
// events through the loop.
class IoWire : public std::enable_shared_from_this<IoWire>
{
public:
    virtual ~IoWire() = default;

    virtual void start() = 0;
    // Bytes are written in order; while the wire is down they are dropped.
    virtual void send(const QByteArray& bytes) = 0;
    // Lets go of the device for good; pending work ends without events.
    virtual void close() = 0;

    void bind(WireLoop& loop, WireId id)
    {
        m_loop = &loop;
        m_id = id;
    }
    WireId id() const { return m_id; }
    // Bytes handed over and not yet written to the system, readable from any thread.
    const std::shared_ptr<std::atomic<qint64>>& unsent() const { return m_unsent; }

protected:
    void publish(WireEvent::Kind kind, WireError error = WireError::None, QString text = {});
    void publishReceived(QByteArray bytes);
    void publishAccepted(const IoWire& connection);
    WireLoop& loop() const { return *m_loop; }

private:
    WireLoop* m_loop = nullptr;
    WireId m_id = 0;
    std::shared_ptr<std::atomic<qint64>> m_unsent = std::make_shared<std::atomic<qint64>>(0);
};
