#pragma once

#include <QString>
#include <system_error>

// Why a wire went down, or what went wrong on it, in the terms an engineer at the line uses.
enum class WireError {
    None,
    HostNotFound,       // the name doesn't resolve
    ConnectionRefused,  // nothing listens on the port
    TimedOut,           // no answer to the connection attempt
    NetworkUnreachable, // no route to the printer
    ClosedByPeer,       // the printer closed the connection
    ConnectionReset,    // the connection broke
    DeviceNotFound,     // no such serial device (an adapter unplugged)
    PermissionDenied,   // the device or port may not be opened by this user
    DeviceBusy,         // another program holds the device
    DeviceRemoved,      // the device went away while open
    BadSettings,        // the line settings were refused
    Flooded,            // the printer sends more than the cap; the rest is dropped
    Other,
};

// "connection refused", "the printer closed the connection", ...
QString WireErrorText(WireError error);

// The kind of a failure that the operating system or the I/O library reported.
WireError ClassifyWireError(const std::error_code& code);

// Its text, with the system's own words where no kind fits.
QString DescribeWireError(const std::error_code& code);
