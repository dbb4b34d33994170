#include "platform/lbx/PortAddress.h"

#include <QRegularExpression>

namespace {
const QString SimScheme = QStringLiteral("sim:");

PortAddress unusable(PortAddress address, const QString& problem)
{
    address.kind = PortAddress::Kind::Unusable;
    address.problem = problem;
    return address;
}

// "8N1": data bits 5 to 8, parity N, E or O, stop bits 1 or 2.
bool parseFraming(const QString& text, PortAddress& address)
{
    static const QRegularExpression framing(QStringLiteral("^([5-8])([NEO])([12])$"),
                                            QRegularExpression::CaseInsensitiveOption);
    const QRegularExpressionMatch match = framing.match(text);
    if (!match.hasMatch())
        return false;
    address.dataBits = match.captured(1).toInt();
    const QChar parity = match.captured(2).at(0).toUpper();
    address.parity = parity == QLatin1Char('E')   ? PortAddress::Parity::Even
                     : parity == QLatin1Char('O') ? PortAddress::Parity::Odd
                                                  : PortAddress::Parity::None;
    address.stopBits = match.captured(3).toInt();
    return true;
}

PortAddress parseSerial(PortAddress address)
{
    const QStringList parts = address.portName.split(QLatin1Char(':'));
    address.kind = PortAddress::Kind::Serial;
    address.device = parts.first();
    if (parts.size() > 3)
        return unusable(address, QStringLiteral("a serial port is /dev/NAME[:BAUD[:8N1]]"));
    if (parts.size() > 1) {
        bool ok = false;
        address.baud = parts.at(1).toInt(&ok);
        if (!ok || address.baud < 50 || address.baud > 4000000)
            return unusable(address, QStringLiteral("\"%1\" is no baud rate").arg(parts.at(1)));
    }
    if (parts.size() > 2 && !parseFraming(parts.at(2), address))
        return unusable(address,
                        QStringLiteral("\"%1\" is no framing such as 8N1").arg(parts.at(2)));
    return address;
}

PortAddress parseTcp(PortAddress address)
{
    const qsizetype colon = address.portName.lastIndexOf(QLatin1Char(':'));
    if (colon <= 0)
        return unusable(address, QStringLiteral("\"%1\" is neither host:port, a /dev/ device "
                                                "nor sim:KIND")
                                     .arg(address.portName));
    QString host = address.portName.left(colon);
    if (host.startsWith(QLatin1Char('[')) && host.endsWith(QLatin1Char(']')))
        host = host.mid(1, host.size() - 2);
    bool ok = false;
    const uint port = address.portName.mid(colon + 1).toUInt(&ok);
    if (!ok || port == 0 || port > 65535)
        return unusable(
            address, QStringLiteral("\"%1\" is no TCP port").arg(address.portName.mid(colon + 1)));
    if (host.isEmpty() || host.contains(QRegularExpression(QStringLiteral("\\s"))))
        return unusable(address, QStringLiteral("\"%1\" is no host name").arg(host));
    address.kind = PortAddress::Kind::Tcp;
    address.host = host;
    address.port = quint16(port);
    return address;
}
} // namespace

PortAddress PortAddress::parse(const QString& portName)
{
    PortAddress address;
    address.portName = portName.trimmed();
    if (address.portName.isEmpty())
        return unusable(address, QStringLiteral("the queue has no port"));
    if (address.portName.startsWith(SimScheme, Qt::CaseInsensitive)) {
        address.kind = Kind::Simulated;
        address.simAddress = address.portName.mid(SimScheme.size());
        if (address.simAddress.isEmpty())
            return unusable(address, QStringLiteral("sim: needs a kind, as in sim:echo"));
        return address;
    }
    if (address.portName.startsWith(QLatin1Char('/')))
        return parseSerial(address);
    return parseTcp(address);
}
