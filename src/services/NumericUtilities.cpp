#include "services/NumericUtilities.h"

qint32 BytesToLong(const QByteArray& bytes)
{
    quint32 value = 0;
    for (qsizetype i = qMin<qsizetype>(bytes.size(), 4) - 1; i >= 0; --i)
        value = (value << 8) | quint8(bytes.at(i));
    return qint32(value);
}

QByteArray StringToBytes(const QString& text)
{
    return text.toLatin1();
}

QString BytesToString(const QByteArray& bytes)
{
    return QString::fromLatin1(bytes);
}

QDateTime CombineDateTime(const QDateTime& date, const QDateTime& time)
{
    const QTime t = time.time();
    return QDateTime(date.date(), QTime(t.hour(), t.minute(), t.second()));
}

qint32 NextMode(qint32 mode)
{
    switch (mode) {
    case 0:
        return 1;
    case 1:
        return 2;
    case 2:
        return 3;
    default:
        return 1;
    }
}

qint32 IconIndex(const std::array<qint32, 2>& pair, qint32 size)
{
    switch (size) {
    case 0:
        return pair[0];
    case 3:
        return pair[1];
    default:
        return 0;
    }
}

qint32 GetOSVersion(bool /*family*/)
{
    return 11;
}
