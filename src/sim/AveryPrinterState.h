#pragma once

#include "sim/AverySettings.h"

#include <QDateTime>

// Whether the printer prints, and the labels it still has to print, which run down by one a
// second while it does and stop at 0. Running out doesn't end the job: the printer waits for
// more with the job started, until it is stopped or cleared.
class AveryPrinterState
{
public:
    explicit AveryPrinterState(const AverySettings& settings);

    // A printer that prints from the start counts down from when it is switched on.
    void powerOn(const QDateTime& now);
    // Each sets the format digit as well: 1 while it prints, 0 otherwise.
    void start(const QDateTime& now);
    void stop(const QDateTime& now);
    // Stops, and drops the labels still to print.
    void clear();

    int format() const { return m_format; }
    qint64 labels(const QDateTime& now) const;

private:
    int m_format = 0;
    bool m_bPrinting = false;
    // As many as at m_since; m_since means nothing while it doesn't print.
    qint64 m_labels = 0;
    QDateTime m_since;
};
