#pragma once

#include "sim/CSeriesArguments.h"

#include <QByteArray>
#include <QDateTime>
#include <QList>

// What the printer keeps of the commands that change it.
struct CSeriesPrinterState
{
    // The printer's clock runs this far from the host's.
    qint64 clockOffsetMs = 0;
    QByteArray currentFile;
    int printCount = 0;
    int direction = 0;
    int orientation = 0;
    // Nothing reads them back, but a printer keeps them all the same.
    QList<CSeriesShift> shifts;

    QDateTime clockAt(const QDateTime& now) const { return now.addMSecs(clockOffsetMs); }
    void setClock(const QDateTime& printerNow, const QDateTime& now)
    {
        clockOffsetMs = now.msecsTo(printerNow);
    }
};
