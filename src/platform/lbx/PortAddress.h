#pragma once

#include <QString>

// Where a queue's printer is reached, as its port name says:
//   host:port                      TCP ("10.1.2.3:9100", "coder-7.line:9100", "[::1]:9100")
//   /dev/ttyUSB0[:baud[:8N1]]      a serial line; 9600 baud, 8 data bits, no parity, 1 stop
//   sim:KIND[?name=value&...]      a simulated printer inside this program
// Anything else is unusable, with the reason.
struct PortAddress
{
    enum class Kind { Tcp, Serial, Simulated, Unusable };
    enum class Parity { None, Even, Odd };

    static PortAddress parse(const QString& portName);

    Kind kind = Kind::Unusable;
    QString portName;
    // Unusable: why.
    QString problem;
    // Tcp.
    QString host;
    quint16 port = 0;
    // Serial.
    QString device;
    qint32 baud = 9600;
    int dataBits = 8;
    Parity parity = Parity::None;
    int stopBits = 1;
    // Simulated: "KIND?name=value&...".
    QString simAddress;
};
