#pragma once

#include <QtGlobal>

// The command ids an A-series printer answers, and the command types of its frames.
namespace ASeriesCommand {
constexpr quint8 Configuration = 97;
constexpr quint8 Raster = 74;
constexpr quint8 Clock = 34;
constexpr quint8 PrintCounts = 64;
constexpr quint8 Alarms = 233;
constexpr quint8 Counters = 69;

constexpr int Write = 0;
constexpr int Read = 1;
constexpr int Reply = 2;
constexpr int Error = 4;

constexpr bool isKnown(int id)
{
    switch (id) {
    case Configuration:
    case Raster:
    case Clock:
    case PrintCounts:
    case Alarms:
    case Counters:
        return true;
    default:
        return false;
    }
}
} // namespace ASeriesCommand
