#pragma once

#include "sim/ASeriesSettings.h"
#include "sim/SimClock.h"
#include "sim/SimUptime.h"

#include <QByteArray>
#include <QDateTime>
#include <optional>

// The data of the replies to the reads, as the printer stands.
class ASeriesReplies
{
public:
    ASeriesReplies(const ASeriesSettings& settings, const SimClock& clock, const SimUptime& uptime);

    // None for an id the printer doesn't know.
    std::optional<QByteArray> dataOf(quint8 id, const QDateTime& now) const;

private:
    // The model number and revision, then zero-terminated strings: maker, family, serial
    // number, machine type, ink system, nozzle type, print head.
    QByteArray configuration() const;
    // An empty string, the message's name, then the raster name padded with blanks.
    QByteArray raster() const;
    // Print detected and print count, each 32 bits, low byte first.
    QByteArray printCounts() const;
    // Their count, then each alarm's number and status byte.
    QByteArray alarms(const QDateTime& now) const;
    // Three running totals, each 32 bits, low byte first.
    QByteArray counters() const;

    const ASeriesSettings& m_settings;
    const SimClock& m_clock;
    const SimUptime& m_uptime;
};
