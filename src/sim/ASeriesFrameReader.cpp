#include "sim/ASeriesFrameReader.h"

#include "sim/ASeriesFrame.h"

#include <algorithm>

using namespace ASeriesFrame;

QList<ASeriesRequest> ASeriesFrameReader::read(const QByteArray& bytes, const QDateTime& now)
{
    if (!m_buffer.isEmpty() && m_lastInput.msecsTo(now) > kForgetAfterMs)
        m_buffer.clear();
    m_lastInput = now;
    m_buffer += bytes;

    QList<ASeriesRequest> requests;
    qsizetype at = 0;
    while ((at = m_buffer.indexOf(kStart, at)) >= 0) {
        const std::optional<qsizetype> size = frameSizeAt(at);
        if (size && at + *size > m_buffer.size())
            break;
        if (size && checksumFits(at, *size)) {
            requests.append(requestAt(at, *size));
            at += *size;
        } else {
            ++at;
        }
    }
    m_buffer.remove(0, at < 0 ? m_buffer.size() : at);
    return requests;
}

std::optional<qsizetype> ASeriesFrameReader::frameSizeAt(qsizetype at) const
{
    const QByteArray header = m_buffer.mid(at, kDataAt);
    for (qsizetype index = 1; index < std::min(header.size(), kLengthAt); ++index)
        if (header.at(index) != 0)
            return std::nullopt;
    if (header.size() <= kLengthAt + 1)
        return kDataAt;
    const int length = quint8(header.at(kLengthAt)) | quint8(header.at(kLengthAt + 1)) << 8;
    if (length < kShortestLength || length > kLongestLength)
        return std::nullopt;
    return kIdAt + length + kChecksumSize;
}

bool ASeriesFrameReader::checksumFits(qsizetype at, qsizetype size) const
{
    const qsizetype end = at + size - kChecksumSize;
    const quint16 sent = quint8(m_buffer.at(end)) | quint8(m_buffer.at(end + 1)) << 8;
    return checksum(m_buffer.mid(at, size - kChecksumSize)) == sent;
}

ASeriesRequest ASeriesFrameReader::requestAt(qsizetype at, qsizetype size) const
{
    return {quint8(m_buffer.at(at + kIdAt)), quint8(m_buffer.at(at + kTypeAt)) >> kTypeShift,
            m_buffer.mid(at + kDataAt, size - kDataAt - kChecksumSize)};
}
