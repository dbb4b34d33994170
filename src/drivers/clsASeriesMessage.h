#pragma once

#include <QByteArray>
#include <QStringList>

// One frame of the A-series binary protocol, built for sending or parsed from a reply:
//   02 00 00 00 00 | length lo, hi | command id | type | data | checksum lo, hi
// The length counts id, type and data; the checksum is the sum of every byte before it,
// modulo 65536. A new message is made for every frame.
class clsASeriesMessage
{
public:
    static constexpr char StartByte = 0x02;
    static constexpr int HeaderSize = 5;
    // A frame without data: header, length, id, type and checksum.
    static constexpr int ShortestFrame = 11;

    quint8 CommandID() const { return m_nCommandID; }
    // 0 to 6, from the top three bits of the type byte; any other byte reads as 0.
    qint32 CommandType() const;
    QByteArray Header() const { return m_header; }
    qint32 GetDataLen() const { return m_nLengthLow + 256 * m_nLengthHigh; }
    qint32 GetChecksum() const { return m_nChecksumLow + 256 * m_nChecksumHigh; }

    QByteArray BuildCommand(quint8 commandID, qint32 commandType);
    // With noData the data is ignored and the frame carries none.
    QByteArray BuildCommandWithData(quint8 commandID, qint32 commandType, const QByteArray& data,
                                    bool noData);
    static void CalcHiLoBytes(quint16 value, quint8& low, quint8& high);
    static quint16 CalcFromHiLoBytes(quint8 low, quint8 high);

    // Whether the bytes are one good frame, of that id unless it is -1.
    bool ParseMessage(const QByteArray& bytes, qint32 expectedCommand);
    const QByteArray& Raw() const { return m_raw; }
    const QByteArray& GetData() const { return m_data; }
    // The data byte at position - base, or 0 behind the end.
    quint8 GetDataSingle(qint32 position, qint32 base) const;
    // The bytes from first - base to last - base; positions behind the end give 0.
    QByteArray GetDataRange(qint32 first, qint32 last, qint32 base) const;
    // The zero-terminated string at position; endPosition gives its terminator's position.
    // Without a terminator before the data's end the string is empty.
    QString GetStringNZ(qint32 position, qint32 base, qint32& endPosition) const;
    // Every zero-terminated string from position on; at least one, maybe empty.
    QStringList GetStringNZArray(qint32 position, qint32 base) const;

private:
    // Header, length, id and type as the frame lays them out, and the data if asked for.
    QByteArray fields(bool withData) const;

    QByteArray m_header;
    quint8 m_nCommandID = 0;
    quint8 m_nTypeByte = 0;
    QByteArray m_data;
    quint8 m_nLengthLow = 0;
    quint8 m_nLengthHigh = 0;
    quint8 m_nChecksumLow = 0;
    quint8 m_nChecksumHigh = 0;
    QByteArray m_raw;
};
