#pragma once

#include "drivers/ICommandConsole.h"

#include <QList>
#include <memory>

// The console a handler opens for command testing: made on first use, filled with the
// printer kind's commands, shown modally, and dropped when it closes.
class CommandConsoleSession
{
public:
    struct Setup
    {
        bool typeSelector = false;
        bool showAsText = false;
        bool aSeries = false;
    };

    // Each command with the message that labels it. Returns when the console closes; by then
    // the handler, and this session with it, may be gone.
    void open(const Setup& setup, const QList<std::pair<qint32, char>>& commands,
              ICommandConsole::Hooks hooks);
    // The console's window wired to the handler's command testing.
    template <typename Handler> static ICommandConsole::Hooks hooksOf(Handler& handler)
    {
        ICommandConsole::Hooks hooks;
        hooks.send = [&handler] { handler.FireCommandTest(); };
        hooks.end = [&handler] { handler.EndCommandTesting(); };
        hooks.closed = [&handler] { handler.ResetCurrentCommand(); };
        return hooks;
    }
    // False when there was none.
    bool close();
    // The console while it is open, or none.
    ICommandConsole* console() const { return m_console.get(); }
    ICommandConsole* visibleConsole() const;

private:
    std::unique_ptr<ICommandConsole> m_console;
};
