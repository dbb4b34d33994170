#pragma once

#include "platform/lbx/PortAddress.h"
#include "platform/lbx/ReconnectDelay.h"
#include "platform/lbx/Transport.h"

#include <QSerialPort>
#include <QTimer>

// A printer on a serial line. A port that can't be opened, or is unplugged, is tried again
// by itself, after a delay that grows while it stays away.
class SerialTransport : public Transport
{
    Q_OBJECT

public:
    explicit SerialTransport(const PortAddress& address, QObject* parent = nullptr);

    ~SerialTransport() override;

    void open() override;
    void send(const QByteArray& bytes) override;

private:
    void openNow();
    void lost(const QString& problem);

    QSerialPort m_port;
    QTimer m_retry;
    ReconnectDelay m_delay;
};
