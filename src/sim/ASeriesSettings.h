#pragma once

#include "sim/SimKnobs.h"

#include <QByteArray>
#include <QList>
#include <optional>

struct ASeriesAlarm
{
    quint8 number = 0;
    // What it means is the printer's business; the host only keeps it.
    quint8 status = 1;

    bool operator==(const ASeriesAlarm&) const = default;
};

// What a simulated A-series printer is set up with, from its knobs. Every knob may be left
// out: without any it is a healthy printer with no alarms.
struct ASeriesSettings
{
    // The reply's count of alarms is one byte.
    static constexpr qsizetype kMostAlarms = 255;
    static constexpr qsizetype kLongestText = 32;
    // The raster name goes out padded with blanks to this width.
    static constexpr qsizetype kRasterWidth = 16;

    QByteArray machine;
    QByteArray ink;
    QByteArray nozzle;
    QByteArray raster;
    quint32 printCount = 0;
    quint32 printDetected = 0;
    QList<ASeriesAlarm> alarms;
    // Comes `alarmAfter` seconds after power-on and goes `alarmFor` seconds later (0: stays).
    std::optional<ASeriesAlarm> timedAlarm;
    qint64 alarmAfter = -1;
    qint64 alarmFor = 0;
    // The command id answered by an error frame instead; -1 for none.
    int errorId = -1;

    // None with `error` naming the first bad knob.
    static std::optional<ASeriesSettings> read(const SimKnobs& knobs, QString& error);
};
