#pragma once

#include <QTextStream>

enum ExitCode {
    ExitDone = 0,
    ExitNothingServed = 1,
    ExitBadInput = 2,
};

// The streams the program writes to; every line goes out at once, since scripts and tests
// read them while the program runs.
struct Console
{
    QTextStream& out;
    QTextStream& err;

    void say(const QString& line) const;
    void complain(const QString& message) const;
    int fail(const QString& message, ExitCode code) const;
};
