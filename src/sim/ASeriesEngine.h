#pragma once

#include "sim/ASeriesFrameReader.h"
#include "sim/ASeriesReplies.h"
#include "sim/ASeriesSettings.h"
#include "sim/SimClock.h"
#include "sim/SimEngine.h"
#include "sim/SimKnobs.h"
#include "sim/SimUptime.h"

#include <memory>

// A Domino A-series ink-jet printer: answers the reads of its configuration (97), raster (74),
// clock (34), print counts (64), alarms (233) and counters (69) with a reply frame of the
// same id and type 2, and takes the clock write (34, type 0, seven bytes), answered by type 2
// without data. Any other request, a write it can't carry out included, is answered by an
// error frame of type 4 without data. Knobs (all optional):
//   machine=TEXT  ink=TEXT  nozzle=TEXT  raster=TEXT  count=N  detected=N
//   alarms=NUMBER[:STATUS],...  timedalarm=NUMBER[:STATUS]  alarmafter=S  alarmfor=S
//   (seconds after the first bytes came; 0 seconds for: the alarm stays)
//   error=ID (that id is answered by an error frame instead, and does nothing)
class ASeriesEngine : public SimEngine
{
public:
    static std::unique_ptr<SimEngine> create(const SimKnobs& knobs, QString& error);

    explicit ASeriesEngine(const ASeriesSettings& settings);
    // Its parts hold on to its settings and state.
    Q_DISABLE_COPY_MOVE(ASeriesEngine)

    QList<QByteArray> receive(const QByteArray& bytes, const QDateTime& now) override;

private:
    QByteArray answer(const ASeriesRequest& request, const QDateTime& now);
    QByteArray write(const ASeriesRequest& request, const QDateTime& now);

    const ASeriesSettings m_settings;
    SimUptime m_uptime;
    SimClock m_clock;
    ASeriesReplies m_replies;
    ASeriesFrameReader m_reader;
};
