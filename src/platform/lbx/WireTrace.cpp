#include "platform/lbx/WireTrace.h"

#include <QTime>

// Debug off: a trace is asked for.
Q_LOGGING_CATEGORY(lcWire, "vigil.wire", QtInfoMsg)

QString WireTraceLine(const QString& queue, WireDirection direction, const QByteArray& bytes)
{
    QByteArray text = bytes;
    for (char& byte : text)
        if (byte < 0x20 || byte > 0x7e)
            byte = '.';
    return QStringLiteral("%1 %2 %3 %4  |%5|")
        .arg(QTime::currentTime().toString(QStringLiteral("HH:mm:ss.zzz")), queue,
             direction == WireDirection::Sent ? QStringLiteral(">") : QStringLiteral("<"),
             QString::fromLatin1(bytes.toHex(' ')), QString::fromLatin1(text));
}
