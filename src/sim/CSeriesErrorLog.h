#pragma once

#include <QByteArray>
#include <QDateTime>
#include <QList>
#include <optional>

struct CSeriesLogEntry
{
    QByteArray text;
    QDateTime at;
};

// The printer's error log, a ring of at most 20 entries listed from its start: after the wrap
// line the older entries follow, so that the dates fall back there.
class CSeriesErrorLog
{
public:
    static constexpr qsizetype kCapacity = 20;

    // `entries` entries, the newest an interval before `poweredOn`, and the timed error if it
    // stands, written behind the newest.
    static QList<CSeriesLogEntry> lines(int entries, int wrap, const QDateTime& poweredOn,
                                        const std::optional<QDateTime>& timedError);
};
