#pragma once

#include "drivers/ICommandConsole.h"

#include <QPointer>

class frmCommandTest;

// The command test console as a handler holds it. Each opening gets a fresh window. The
// window runs a loop of its own while it is shown, in which the handler may let go of the
// console, or go itself: the window is then closed and deleted later, never under its own
// feet, and hears nothing more of the handler.
class CommandTestConsole : public ICommandConsole
{
public:
    CommandTestConsole() = default;
    ~CommandTestConsole() override;
    CommandTestConsole(const CommandTestConsole&) = delete;
    CommandTestConsole& operator=(const CommandTestConsole&) = delete;

    void configure(bool typeSelector, bool showAsText, bool aSeries) override;
    void addCommand(const QString& label, char commandByte) override;
    void setHooks(Hooks hooks) override;
    void showModal() override;
    void close() override;
    bool isVisible() const override;
    std::optional<QByteArray> currentCommand() const override;
    std::optional<FrameCommand> currentFrameCommand() const override;
    void SetResponseString(const QString& response) override;
    void SetResponseBytes(const QByteArray& response) override;

private:
    void dropWindow();

    QPointer<frmCommandTest> m_window;
};
