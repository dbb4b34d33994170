#pragma once

#include "sim/CSeriesSettings.h"

#include <QDateTime>
#include <optional>

struct CSeriesInk
{
    int status = 0;
    int remaining = 0;
};

// What the printer does by itself as time goes by, counted from the first bytes it gets: that
// is when a simulated printer is switched on, as far as anyone can tell.
class CSeriesTimeline
{
public:
    explicit CSeriesTimeline(const CSeriesSettings& settings);

    // Only the first call counts.
    void powerOn(const QDateTime& now);
    const QDateTime& poweredOn() const { return m_poweredOn; }
    // From ink low on, the state is at least 1 and one print a second less remains; with none
    // left the printer is out of ink, state 3.
    CSeriesInk ink(const QDateTime& now) const;
    // When the timed error came up, if it stands at `now`.
    std::optional<QDateTime> timedError(const QDateTime& now) const;

private:
    const CSeriesSettings& m_settings;
    QDateTime m_poweredOn;
};
