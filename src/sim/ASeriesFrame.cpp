#include "sim/ASeriesFrame.h"

namespace ASeriesFrame {
quint16 checksum(const QByteArray& bytes)
{
    quint16 sum = 0;
    for (const char byte : bytes)
        sum = quint16(sum + quint8(byte));
    return sum;
}

QByteArray build(quint8 id, int type, const QByteArray& data)
{
    Q_ASSERT(data.size() <= kLongestData);
    const qsizetype length = data.size() + kShortestLength;
    QByteArray frame(kLengthAt, '\0');
    frame[0] = kStart;
    frame += char(length & 0xFF);
    frame += char(length >> 8);
    frame += char(id);
    frame += char(type << kTypeShift);
    frame += data;
    const quint16 sum = checksum(frame);
    frame += char(sum & 0xFF);
    frame += char(sum >> 8);
    return frame;
}
} // namespace ASeriesFrame
