#pragma once

#include "CommandLine.h"

// vigilctl status: the monitor without a window, run on a copy of the store for a few poll
// cycles, and the tree it sees, or one group or printer of it, printed for a monitoring system
// and a person. It answers as a monitoring plugin does, so a bad command line is 3, UNKNOWN,
// "the check could not run".
class StatusCommand
{
public:
    explicit StatusCommand(const Console& console);
    int run(const QStringList& words);

    static QString usage();

private:
    int check(int cycles, const QString& name, bool json);
    int unknown(const QString& problem) const;

    const Console& m_console;
};
