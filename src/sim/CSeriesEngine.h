#pragma once

#include "sim/CSeriesCommandReader.h"
#include "sim/CSeriesPrinterState.h"
#include "sim/CSeriesReplies.h"
#include "sim/CSeriesSettings.h"
#include "sim/CSeriesTimeline.h"
#include "sim/SimEngine.h"
#include "sim/SimKnobs.h"

#include <memory>

// A Domino C-series ink-jet coder: answers the status, set-up, error log, list, current file
// and print count requests, and keeps what the clock, message, count, direction, orientation
// and shift commands set. Knobs (all optional):
//   ink=0..3  remaining=0..65535  errors=0..20  wrap=LINE  files=A,B  logos=A,B
//   file=NAME (joins the files if it isn't one; empty: none selected)
//   count=0..65535  heads=1..6  version=A1.234  app=TEXT  fpga=TEXT  highbit=BOOL
//   packed=BOOL (the set-up list's direction and orientation in one token)
//   dateformat=dmy|mdy  dateseparator=/|-|.
//   nak=CMD  soh=CMD (that command byte is answered by NAK or SOH instead, and does nothing)
//   garble=14|128|29 (a number field of that reply in letters)
//   inklowafter=S  errorafter=S  errorfor=S (seconds after the first bytes came)
// Its output buffer holds 64 KiB: what one fragment's commands would have it say beyond that
// is lost, so that a flood of requests can't make it say without end.
class CSeriesEngine : public SimEngine
{
public:
    static constexpr qsizetype kOutputBuffer = 64 * 1024;

    static std::unique_ptr<SimEngine> create(const SimKnobs& knobs, QString& error);

    explicit CSeriesEngine(const CSeriesSettings& settings);
    // Its parts hold on to its settings and state.
    Q_DISABLE_COPY_MOVE(CSeriesEngine)

    QList<QByteArray> receive(const QByteArray& bytes, const QDateTime& now) override;
    const CSeriesPrinterState& state() const { return m_state; }

private:
    QByteArray answer(const CSeriesRequest& request, const QDateTime& now);
    // What the printer does with a command it took; NAK for an argument it refuses.
    QByteArray carryOut(const CSeriesRequest& request, const QDateTime& now);
    QByteArray selectMessage(const QByteArray& argument);

    const CSeriesSettings m_settings;
    CSeriesPrinterState m_state;
    CSeriesTimeline m_timeline;
    CSeriesReplies m_replies;
    CSeriesCommandReader m_reader;
};
