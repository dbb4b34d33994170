#pragma once

#include "CommandLine.h"

class PrintJob;

// vigilctl print: prints a label format or a label set on a queue without a window, through
// the same print application and spool as the desktop program, and ends once the printers
// have taken the labels.
class PrintCommand
{
public:
    explicit PrintCommand(const Console& console);

    static QString usage();
    int run(const QStringList& words);

private:
    // Writes the --set values into the job's prompted values and database keys; a name the
    // label doesn't ask for, or a value longer than it takes, is refused.
    bool setValues(PrintJob& job, const QStringList& assignments, QString& problem) const;

    const Console& m_console;
};
