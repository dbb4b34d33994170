#include "drivers/CommandConsoleSession.h"

#include "services/MessageCatalogue.h"

void CommandConsoleSession::open(const Setup& setup, const QList<std::pair<qint32, char>>& commands,
                                 ICommandConsole::Hooks hooks)
{
    if (!m_console)
        m_console = ICommandConsole::create();
    if (!m_console)
        return;
    m_console->configure(setup.typeSelector, setup.showAsText, setup.aSeries);
    for (const auto& [message, command] : commands)
        m_console->addCommand(GetMessage(message), command);
    m_console->setHooks(std::move(hooks));
    m_console->showModal();
}

bool CommandConsoleSession::close()
{
    if (!m_console)
        return false;
    m_console->close();
    m_console.reset();
    return true;
}

ICommandConsole* CommandConsoleSession::visibleConsole() const
{
    return m_console && m_console->isVisible() ? m_console.get() : nullptr;
}
