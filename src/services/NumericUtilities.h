#pragma once

#include <QByteArray>
#include <QDateTime>
#include <QString>
#include <array>

inline qint32 MaxLong(qint32 a, qint32 b)
{
    return a > b ? a : b;
}
inline qint32 MinLong(qint32 a, qint32 b)
{
    return a < b ? a : b;
}
inline float MaxSingle(float a, float b)
{
    return a > b ? a : b;
}
inline float MinSingle(float a, float b)
{
    return a < b ? a : b;
}
inline void RaiseToMax(qint32& level, qint32 candidate)
{
    if (candidate > level)
        level = candidate;
}

// Little-endian: the first byte is the least significant. Up to four bytes count.
qint32 BytesToLong(const QByteArray& bytes);
// One byte per character, the character's code.
QByteArray StringToBytes(const QString& text);
QString BytesToString(const QByteArray& bytes);

// The day of `date` at the time of day of `time`, to the second.
QDateTime CombineDateTime(const QDateTime& date, const QDateTime& time);

// 0 -> 1 -> 2 -> 3, anything else -> 1.
qint32 NextMode(qint32 mode);
// The first of the pair for small icons (size 0), the second for large (size 3), else 0.
qint32 IconIndex(const std::array<qint32, 2>& pair, qint32 size);

// The platform's version code. Not the platform the codes were made for, so both the family
// and the version answer "newer than any listed".
qint32 GetOSVersion(bool family);
