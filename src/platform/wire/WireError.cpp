#include "platform/wire/WireError.h"

#include <asio/error.hpp>
#include <cerrno>

QString WireErrorText(WireError error)
{
    switch (error) {
    case WireError::None:
        return {};
    case WireError::HostNotFound:
        return QStringLiteral("host not found");
    case WireError::ConnectionRefused:
        return QStringLiteral("connection refused");
    case WireError::TimedOut:
        return QStringLiteral("no answer to the connection attempt");
    case WireError::NetworkUnreachable:
        return QStringLiteral("network unreachable");
    case WireError::ClosedByPeer:
        return QStringLiteral("the printer closed the connection");
    case WireError::ConnectionReset:
        return QStringLiteral("the connection was reset");
    case WireError::DeviceNotFound:
        return QStringLiteral("no such device");
    case WireError::PermissionDenied:
        return QStringLiteral("permission denied");
    case WireError::DeviceBusy:
        return QStringLiteral("the device is in use by another program");
    case WireError::DeviceRemoved:
        return QStringLiteral("the device was removed");
    case WireError::BadSettings:
        return QStringLiteral("the line settings were refused");
    case WireError::Flooded:
        return QStringLiteral("more bytes a second than allowed; the rest is dropped");
    case WireError::Other:
        break;
    }
    return QStringLiteral("input/output error");
}

WireError ClassifyWireError(const std::error_code& code)
{
    if (!code)
        return WireError::None;
    if (code == asio::error::eof)
        return WireError::ClosedByPeer;
    if (code.category() == asio::error::get_netdb_category() ||
        code.category() == asio::error::get_addrinfo_category())
        return WireError::HostNotFound;
    if (code.category() != asio::error::get_system_category() &&
        code.category() != std::system_category() && code.category() != std::generic_category())
        return WireError::Other;
    switch (code.value()) {
    case ECONNREFUSED:
        return WireError::ConnectionRefused;
    case ETIMEDOUT:
        return WireError::TimedOut;
    case ENETUNREACH:
    case EHOSTUNREACH:
    case ENETDOWN:
    case EHOSTDOWN:
        return WireError::NetworkUnreachable;
    case ECONNRESET:
    case ECONNABORTED:
    case EPIPE:
        return WireError::ConnectionReset;
    case ENOENT:
    case ENXIO:
        return WireError::DeviceNotFound;
    case EACCES:
    case EPERM:
        return WireError::PermissionDenied;
    case EBUSY:
        return WireError::DeviceBusy;
    case EIO:
    case ENODEV:
        return WireError::DeviceRemoved;
    case EINVAL:
    case ENOTTY:
        return WireError::BadSettings;
    default:
        break;
    }
    return WireError::Other;
}

QString DescribeWireError(const std::error_code& code)
{
    const WireError error = ClassifyWireError(code);
    return error == WireError::Other ? QString::fromStdString(code.message())
                                     : WireErrorText(error);
}
