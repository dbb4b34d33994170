#pragma once

#include "CommandLine.h"

// vigilctl status: the monitor without a window, run on a copy of the store for a few poll
// cycles, and the tree it sees printed for a person or a monitoring system. Its exit codes
// are a monitoring plugin's, so a bad command line is 3, "the check could not run".
class StatusCommand
{
public:
    explicit StatusCommand(const Console& console);
    int run(const QStringList& words);

    static QString usage();

private:
    int check(int cycles, bool json);

    const Console& m_console;
};
