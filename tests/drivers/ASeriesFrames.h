#pragma once

#include <QByteArray>

// A-series frames written out by hand.

inline QByteArray hex(const char* text)
{
    return QByteArray::fromHex(text);
}

// A reply frame of that id and type (2: accepted) with that data, its length and checksum.
inline QByteArray reply(quint8 id, const QByteArray& data, qint32 type = 2)
{
    QByteArray frame = QByteArray("\x02\0\0\0\0", 5);
    for (const int part :
         {int(data.size() + 2) & 0xFF, int(data.size() + 2) >> 8, int(id), type << 5})
        frame += char(part);
    frame += data;
    quint16 sum = 0;
    for (const char byte : frame)
        sum += quint8(byte);
    return frame + char(sum & 0xFF) + char(sum >> 8);
}
