#pragma once

#include "sim/CSeriesPrinterState.h"
#include "sim/CSeriesSettings.h"
#include "sim/CSeriesTimeline.h"

#include <QByteArray>
#include <QDateTime>

// The replies of the commands that read the printer, as it stands. A garbled reply has a
// number field in letters, so that whoever reads it fails to convert it.
class CSeriesReplies
{
public:
    CSeriesReplies(const CSeriesSettings& settings, const CSeriesPrinterState& state,
                   const CSeriesTimeline& timeline);

    // "Key : value" fields, each ended by byte 13, the whole by byte 254.
    QByteArray status(const QDateTime& now, bool bGarbled) const;
    // Comma-separated tokens ended by byte 254.
    QByteArray setup(bool bGarbled) const;
    // Lines ended by byte 10, each closing with its date and time, then byte 254; a lone NAK
    // when the log is empty.
    QByteArray errorLog(const QDateTime& now, bool bGarbled) const;
    // Names, each ended by byte 13; a lone 13 when there are none, as the reader waits for one.
    QByteArray logoList() const;
    QByteArray fileList() const;
    QByteArray currentFile() const;
    // Two binary bytes, low byte first.
    QByteArray printCount() const;

private:
    QByteArray dateText(const QDate& date) const;
    QByteArray asSent(const QByteArray& name) const;

    const CSeriesSettings& m_settings;
    const CSeriesPrinterState& m_state;
    const CSeriesTimeline& m_timeline;
};
