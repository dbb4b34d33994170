#pragma once

#include "core/ErrorState.h"

#include <QDateTime>
#include <QHash>
#include <QString>
#include <QStringList>

// Decides which printers are worth a notice. A printer in trouble (a fault, no answer or a busy
// port) is told about once it is still in that same trouble at a later time-out walk than the
// one that first saw it, and the delay has gone by: a glitch of one reply calls nobody. It is
// told once per trouble; an operator's acknowledgement silences it until its state changes.
class TroubleNotices
{
public:
    struct Settings
    {
        bool enabled = true;
        // How long the trouble must have lasted; 0 is "at the next time-out walk".
        qint32 delaySeconds = 0;
    };

    static bool isTrouble(ErrorState state);

    void setSettings(const Settings& settings) { m_settings = settings; }

    // A time-out walk saw the printer in that state.
    void seen(const QString& printerId, ErrorState state, const QDateTime& now);
    // After a walk's printers have all been seen: the printers to tell about now, each only
    // once. Printers the walk didn't see are forgotten.
    QStringList walkEnded(const QDateTime& now);
    // Silences the printer, now in that state, until its state changes; false for a printer
    // not in trouble.
    bool acknowledge(const QString& printerId, ErrorState state, const QDateTime& now);
    bool acknowledged(const QString& printerId) const;

private:
    struct Watch
    {
        ErrorState state = StateGood;
        QDateTime since;
        // The time-out walks that saw the printer in this state.
        int walks = 0;
        bool told = false;
        bool acknowledged = false;
        bool seenThisWalk = false;
    };

    // The printer's watch, started afresh when its state is a new one: the debounce, the
    // notice and the acknowledgement go with the old state.
    Watch& follow(const QString& printerId, ErrorState state, const QDateTime& now);
    bool due(const Watch& watch, const QDateTime& now) const;

    Settings m_settings;
    QHash<QString, Watch> m_watches;
};
