#include "sim/ASeriesReplies.h"

#include "sim/ASeriesClock.h"
#include "sim/ASeriesCommand.h"

namespace {
constexpr quint16 kModel = 2010;
constexpr quint16 kRevision = 3;
const QByteArray kMessage = QByteArrayLiteral("BESTBY");
// Hours on, inks fitted and services done: a host keeps them, but nothing shows them.
constexpr quint32 kCounters[] = {74565, 305419896, 7};

QByteArray littleEndian(quint32 value, qsizetype size)
{
    QByteArray bytes(size, '\0');
    for (qsizetype index = 0; index < size; ++index, value >>= 8)
        bytes[index] = char(value & 0xFF);
    return bytes;
}

QByteArray strings(const QList<QByteArray>& texts)
{
    QByteArray bytes;
    for (const QByteArray& text : texts)
        bytes += text + '\0';
    return bytes;
}
} // namespace

ASeriesReplies::ASeriesReplies(const ASeriesSettings& settings, const SimClock& clock,
                               const SimUptime& uptime)
    : m_settings(settings)
    , m_clock(clock)
    , m_uptime(uptime)
{}

std::optional<QByteArray> ASeriesReplies::dataOf(quint8 id, const QDateTime& now) const
{
    switch (id) {
    case ASeriesCommand::Configuration:
        return configuration();
    case ASeriesCommand::Raster:
        return raster();
    case ASeriesCommand::Clock:
        return ASeriesClock::bytesOf(m_clock.at(now));
    case ASeriesCommand::PrintCounts:
        return printCounts();
    case ASeriesCommand::Alarms:
        return alarms(now);
    case ASeriesCommand::Counters:
        return counters();
    default:
        return std::nullopt;
    }
}

QByteArray ASeriesReplies::configuration() const
{
    return littleEndian(kModel, 2) + littleEndian(kRevision, 2) +
           strings({"Domino", "A-Series", "SN070905", m_settings.machine, m_settings.ink,
                    m_settings.nozzle, "Head 1"});
}

QByteArray ASeriesReplies::raster() const
{
    return strings({{}, kMessage, m_settings.raster.leftJustified(ASeriesSettings::kRasterWidth)});
}

QByteArray ASeriesReplies::printCounts() const
{
    return littleEndian(m_settings.printDetected, 4) + littleEndian(m_settings.printCount, 4);
}

QByteArray ASeriesReplies::alarms(const QDateTime& now) const
{
    QList<ASeriesAlarm> standing = m_settings.alarms;
    if (m_settings.timedAlarm && m_uptime.stands(m_settings.alarmAfter, m_settings.alarmFor, now))
        standing.append(*m_settings.timedAlarm);
    QByteArray bytes(1, char(standing.size()));
    for (const ASeriesAlarm& alarm : standing)
        bytes += char(alarm.number) + QByteArray(1, char(alarm.status));
    return bytes;
}

QByteArray ASeriesReplies::counters() const
{
    QByteArray bytes;
    for (const quint32 counter : kCounters)
        bytes += littleEndian(counter, 4);
    return bytes;
}
