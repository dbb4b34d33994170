#pragma once

#include "platform/lbx/PortAddress.h"
#include "platform/lbx/ReconnectingTransport.h"

#include <QSerialPort>

// A printer on a serial line; an adapter that is unplugged is found again when it comes back.
class SerialTransport : public ReconnectingTransport
{
    Q_OBJECT

public:
    explicit SerialTransport(const PortAddress& address, QObject* parent = nullptr);
    ~SerialTransport() override;

    void send(const QByteArray& bytes) override;
    qint64 bytesToWrite() const override { return m_port.bytesToWrite(); }

private:
    void tryToConnect() override;
    void release() override;
    void lostBecause(const QString& reason);

    QString m_device;
    QSerialPort m_port;
};
