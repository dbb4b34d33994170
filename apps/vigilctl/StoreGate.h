#pragma once

#include "CommandLine.h"

// The settings store as one command of vigilctl may use it. A reading command opens the store
// for reading only and never makes one; a writing command makes a missing store, and is
// refused to anybody the print application doesn't take for an administrator, by the rule
// the program itself follows.
class StoreGate
{
public:
    enum class Access { Read, Write };

    // Opens the store at its default path and installs it as the process's. ExitDone, or the
    // exit code with the reason in one line in `problem`.
    static ExitCode open(Access access, QString& problem);
    // The same, with the reason written as the command's failure.
    static int open(Access access, const Console& console);
};
