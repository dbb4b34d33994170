#include "drivers/clsASeriesMessage.h"

namespace {
const QByteArray FrameHeader = QByteArray("\x02\0\0\0\0", 5);

quint16 sum(const QByteArray& bytes, qsizetype count)
{
    quint32 total = 0;
    for (qsizetype at = 0; at < count; ++at)
        total += quint8(bytes.at(at));
    return quint16(total);
}
} // namespace

qint32 clsASeriesMessage::CommandType() const
{
    // Only the top three bits carry the type, and 7 isn't one.
    const qint32 type = m_nTypeByte >> 5;
    return (m_nTypeByte & 0x1F) == 0 && type <= 6 ? type : 0;
}

QByteArray clsASeriesMessage::BuildCommand(quint8 commandID, qint32 commandType)
{
    return BuildCommandWithData(commandID, commandType, {}, true);
}

QByteArray clsASeriesMessage::BuildCommandWithData(quint8 commandID, qint32 commandType,
                                                   const QByteArray& data, bool noData)
{
    m_header = FrameHeader;
    m_nCommandID = commandID;
    m_nTypeByte = quint8(commandType << 5);
    m_data = noData ? QByteArray() : data;
    CalcHiLoBytes(quint16(2 + m_data.size()), m_nLengthLow, m_nLengthHigh);
    QByteArray frame = fields(true);
    CalcHiLoBytes(sum(frame, frame.size()), m_nChecksumLow, m_nChecksumHigh);
    frame += char(m_nChecksumLow);
    frame += char(m_nChecksumHigh);
    return frame;
}

QByteArray clsASeriesMessage::fields(bool withData) const
{
    QByteArray laidOut = m_header;
    laidOut += char(m_nLengthLow);
    laidOut += char(m_nLengthHigh);
    laidOut += char(m_nCommandID);
    laidOut += char(m_nTypeByte);
    if (withData)
        laidOut += m_data;
    return laidOut;
}

void clsASeriesMessage::CalcHiLoBytes(quint16 value, quint8& low, quint8& high)
{
    low = quint8(value & 0xFF);
    high = quint8(value >> 8);
}

quint16 clsASeriesMessage::CalcFromHiLoBytes(quint8 low, quint8 high)
{
    return quint16(low + 256 * high);
}

bool clsASeriesMessage::ParseMessage(const QByteArray& bytes, qint32 expectedCommand)
{
    m_raw = bytes;
    if (bytes.size() < 9 ||
        sum(bytes, bytes.size() - 2) !=
            CalcFromHiLoBytes(quint8(bytes.at(bytes.size() - 2)), quint8(bytes.back())))
        return false;
    m_header = FrameHeader;
    m_nCommandID = quint8(bytes.at(7));
    m_nTypeByte = quint8(bytes.at(8));
    if (expectedCommand != -1 && expectedCommand != m_nCommandID)
        return false;
    m_nLengthLow = quint8(bytes.at(5));
    m_nLengthHigh = quint8(bytes.at(6)) & 0x03;
    const qint32 dataSize = GetDataLen() - 2;
    if (dataSize > 0) {
        m_data = bytes.mid(9, dataSize);
        m_data.append(QByteArray(dataSize - m_data.size(), '\0'));
    } else {
        m_data = QByteArray(1, '\0');
    }
    m_nChecksumLow = quint8(bytes.at(bytes.size() - 2));
    m_nChecksumHigh = quint8(bytes.back());
    // The sum of the fields as declared: extra bytes, or bits where zeros belong, fail here.
    const QByteArray declared = fields(dataSize > 0);
    return sum(declared, declared.size()) == GetChecksum();
}

quint8 clsASeriesMessage::GetDataSingle(qint32 position, qint32 base) const
{
    const qint32 at = position - base;
    return at >= 0 && at < m_data.size() ? quint8(m_data.at(at)) : 0;
}

QByteArray clsASeriesMessage::GetDataRange(qint32 first, qint32 last, qint32 base) const
{
    QByteArray range;
    for (qint32 position = first; position <= last; ++position)
        range += char(GetDataSingle(position, base));
    return range;
}

QString clsASeriesMessage::GetStringNZ(qint32 position, qint32 base, qint32& endPosition) const
{
    qint32 at = std::max(0, position - base);
    while (at < m_data.size() && m_data.at(at) != '\0')
        ++at;
    endPosition = at + base;
    if (at >= m_data.size() || position - base >= m_data.size())
        return {};
    return QString::fromLatin1(m_data.mid(position - base, at - (position - base)));
}

QStringList clsASeriesMessage::GetStringNZArray(qint32 position, qint32 base) const
{
    QStringList strings;
    const qint32 upper = qint32(m_data.size()) - 1;
    qint32 endPosition = position;
    do {
        strings.append(GetStringNZ(position, base, endPosition));
        position = endPosition + 1;
    } while (endPosition - base < upper);
    return strings;
}
