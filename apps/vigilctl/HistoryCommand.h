#pragma once

#include "CommandLine.h"
#include "services/StateChange.h"

#include <QList>

class StateShares;

// vigilctl history: the printers' changes of state as the polling programs wrote them to the
// history beside the store, newest last, for one printer or group or all; or with --summary
// the share of time each printer and group spent in each state.
class HistoryCommand
{
public:
    explicit HistoryCommand(const Console& console);
    int run(const QStringList& words);

    static QString usage();

private:
    enum class Format { Text, Csv, Json };

    void printChanges(const QList<StateChange>& changes, Format format) const;
    void printShares(const StateShares& shares, qint64 fromMs, qint64 toMs, Format format) const;

    const Console& m_console;
};
