#pragma once

#include <QByteArray>
#include <QLoggingCategory>
#include <QString>

// The bytes on every printer's wire, for engineers: each send and each received fragment as
// one line with the time, the queue, the direction, the bytes in hex and as text. Off unless
// the logging rules switch on "vigil.wire.debug" (QT_LOGGING_RULES, or vigilctl status
// --trace); off, it costs one test of a flag.
Q_DECLARE_LOGGING_CATEGORY(lcWire)

enum class WireDirection { Sent, Received };

// "14:03:07.512 Filler C1 > 0e  |.|": hex, then the bytes that print as themselves, any other
// as a dot.
QString WireTraceLine(const QString& queue, WireDirection direction, const QByteArray& bytes);

inline void TraceWire(const QString& queue, WireDirection direction, const QByteArray& bytes)
{
    if (lcWire().isDebugEnabled())
        qCDebug(lcWire).noquote() << WireTraceLine(queue, direction, bytes);
}
