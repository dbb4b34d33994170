#pragma once

#include "CommandLine.h"

// vigilctl jobs: the print jobs kept in the spool, listed, and one cancelled.
class JobsCommand
{
public:
    explicit JobsCommand(const Console& console);
    int run(const QStringList& words);

    static QString usage();

private:
    int list();
    int cancel(const QString& id);

    const Console& m_console;
};
