#pragma once

#include "platform/wire/WireError.h"

#include <QByteArray>
#include <QString>
#include <atomic>
#include <cstdint>
#include <memory>

// Names one wire between the logic thread and the I/O thread; never used twice in a process.
using WireId = std::uint64_t;

// What the I/O thread tells the logic thread about one wire.
struct WireEvent
{
    enum class Kind {
        Connecting, // a try to reach the device begins
        Connected,  // the wire is up
        Lost,       // the wire went down (`error`, `text`); a wire that reconnects tries again
        Received,   // `bytes` arrived
        Flooded,    // the device sends beyond the cap: the rest of this second is dropped
        Accepted,   // a listening wire took a connection: the new wire is `accepted`
    };

    WireId wire = 0;
    Kind kind = Kind::Received;
    QByteArray bytes;
    WireError error = WireError::None;
    QString text;
    // Accepted: the new wire, and its count of bytes not yet written.
    WireId accepted = 0;
    std::shared_ptr<std::atomic<qint64>> acceptedUnsent;
};

// The logic thread's side of a wire: it hears the wire's events, in order.
class WireEndpoint
{
public:
    virtual void onWireEvent(const WireEvent& event) = 0;

protected:
    ~WireEndpoint() = default;
};
