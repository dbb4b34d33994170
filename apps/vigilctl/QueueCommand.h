#pragma once

#include "CommandLine.h"

// vigilctl queue: the print application's queues, listed with whether their printers can be
// reached, added and removed.
class QueueCommand
{
public:
    // How long a listing waits for ports to answer.
    static constexpr int ProbeMs = 3000;

    explicit QueueCommand(const Console& console);
    int run(const QStringList& words);

    static QString usage();

private:
    int list();
    int add(const CommandLine& line);
    int remove(const QString& name);

    const Console& m_console;
};
