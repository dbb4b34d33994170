#pragma once

#include "CommandLine.h"

// vigilctl message ID [ARG...]: one message of the catalogue, in the language the program
// would choose, with its arguments filled in and the brand words applied.
class MessageCommand
{
public:
    explicit MessageCommand(const Console& console);
    int run(const QStringList& words);

    static QString usage();

private:
    const Console& m_console;
};
