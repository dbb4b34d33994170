#pragma once

#include "platform/lbx/ReconnectDelay.h"
#include "platform/lbx/Transport.h"

#include <QTimer>

// A wire to a device that may go away and come back: a try that fails, or a wire that
// drops, is tried again by itself after a delay that grows while the device stays away.
class ReconnectingTransport : public Transport
{
    Q_OBJECT

public:
    void open() final;

protected:
    explicit ReconnectingTransport(QObject* parent = nullptr);

    // Starts one try; it ends in up() or lost().
    virtual void tryToConnect() = 0;
    // Lets go of the device after a loss.
    virtual void release() {}

    void up();
    void lost(const QString& problem);

private:
    void retry();

    QTimer m_retry;
    ReconnectDelay m_delay;
};
