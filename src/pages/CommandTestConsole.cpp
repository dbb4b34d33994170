#include "pages/CommandTestConsole.h"

#include "pages/ctlCommands.h"
#include "pages/frmCommandTest.h"

CommandTestConsole::~CommandTestConsole()
{
    dropWindow();
}

void CommandTestConsole::dropWindow()
{
    if (!m_window)
        return;
    m_window->Setup({});
    m_window->done(QDialog::Rejected);
    m_window->deleteLater();
    m_window.clear();
}

void CommandTestConsole::configure(bool typeSelector, bool showAsText, bool aSeries)
{
    // The command list is filled anew at each opening.
    dropWindow();
    m_window = new frmCommandTest;
    ctlCommands& commands = m_window->Cmd();
    commands.EnableType(typeSelector);
    commands.EnableShowAsText(showAsText);
    commands.m_bASeries = aSeries;
}

void CommandTestConsole::addCommand(const QString& label, char commandByte)
{
    if (m_window)
        m_window->Cmd().AddCommand(quint8(commandByte), label);
}

void CommandTestConsole::setHooks(Hooks hooks)
{
    if (m_window)
        m_window->Setup(std::move(hooks));
}

void CommandTestConsole::showModal()
{
    // Nothing of this console may be touched once the loop ends: it may be gone by then.
    if (QPointer<frmCommandTest> window = m_window)
        window->exec();
}

void CommandTestConsole::close()
{
    if (m_window)
        m_window->done(QDialog::Rejected);
}

bool CommandTestConsole::isVisible() const
{
    return m_window && m_window->isVisible();
}

std::optional<QByteArray> CommandTestConsole::currentCommand() const
{
    const auto command = m_window ? m_window->Cmd().GetCommand() : std::nullopt;
    if (!command)
        return std::nullopt;
    return QByteArray(1, char(command->code)) + command->data;
}

std::optional<ICommandConsole::FrameCommand> CommandTestConsole::currentFrameCommand() const
{
    const auto command = m_window ? m_window->Cmd().GetCommand() : std::nullopt;
    if (!command)
        return std::nullopt;
    return FrameCommand{command->code, command->type, command->data, m_window->Cmd().UsesData()};
}

void CommandTestConsole::SetResponseString(const QString& response)
{
    if (m_window)
        m_window->Cmd().SetResponseString(response);
}

void CommandTestConsole::SetResponseBytes(const QByteArray& response)
{
    if (m_window)
        m_window->Cmd().SetResponseBytes(response);
}
