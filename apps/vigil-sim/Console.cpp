#include "Console.h"

void Console::say(const QString& line) const
{
    out << line << Qt::endl;
}

void Console::complain(const QString& message) const
{
    err << "vigil-sim: " << message << Qt::endl;
}

int Console::fail(const QString& message, ExitCode code) const
{
    complain(message);
    return code;
}
