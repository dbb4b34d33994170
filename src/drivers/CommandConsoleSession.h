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

    // Each command with the message that labels it.
    void open(const Setup& setup, const QList<std::pair<qint32, char>>& commands);
    // False when there was none.
    bool close();
    // The console while it is open, or none.
    ICommandConsole* console() const { return m_console.get(); }
    ICommandConsole* visibleConsole() const;

private:
    std::unique_ptr<ICommandConsole> m_console;
};
