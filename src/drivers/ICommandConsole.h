#pragma once

#include <QByteArray>
#include <QString>
#include <functional>
#include <memory>
#include <optional>

// The command test console: a window in which a service engineer sends a printer raw
// commands and reads the raw replies. The desktop program installs the factory of its
// window; without one there is no console.
class ICommandConsole
{
public:
    virtual ~ICommandConsole() = default;

    // Set-up for a printer kind: whether the type selector and "show as text" are on, and
    // whether replies are framed as the A-series frames them.
    virtual void configure(bool typeSelector, bool showAsText, bool aSeries) = 0;
    virtual void addCommand(const QString& label, char commandByte) = 0;
    // Shown modally: returns when the engineer closes it.
    virtual void showModal() = 0;
    virtual void close() = 0;
    virtual bool isVisible() const = 0;
    // The command byte chosen, followed by the data typed; none when nothing is chosen.
    virtual std::optional<QByteArray> currentCommand() const = 0;
    // For a printer that speaks in frames: the id, type and data chosen, and whether the
    // command carries its data.
    struct FrameCommand
    {
        quint8 id = 0;
        qint32 type = 0;
        QByteArray data;
        bool usesData = false;
    };
    virtual std::optional<FrameCommand> currentFrameCommand() const = 0;
    virtual void SetResponseString(const QString& response) = 0;
    virtual void SetResponseBytes(const QByteArray& response) = 0;

    // What the console's window asks of the handler that opened it.
    struct Hooks
    {
        // Send the command chosen.
        std::function<void()> send;
        // The window's close button: the handler ends the session.
        std::function<void()> end;
        // The window has closed, whichever way: a pending test command is dropped.
        std::function<void()> closed;
    };
    // Given before the console is shown. The console lets go of them when it is dropped.
    virtual void setHooks(Hooks hooks) = 0;

    using Factory = std::function<std::unique_ptr<ICommandConsole>()>;
    static void installFactory(Factory factory);
    // None when no program installed a console.
    static std::unique_ptr<ICommandConsole> create();
};
