#pragma once

#include <QHash>
#include <QString>
#include <functional>
#include <optional>

class AddInControl;

// The control's commands by name, as the host calls them: each command's operation, and the
// operation that tells whether it is visible, enabled and checked, where there is one.
class ControlCommands
{
public:
    struct State
    {
        bool visible = true;
        bool enabled = true;
        // Set only by a command that shows a state; none for the others.
        std::optional<bool> checked;
    };

    explicit ControlCommands(AddInControl& control);

    bool has(const QString& command) const { return m_commands.contains(command); }
    // Runs the command; an unknown name does nothing.
    void run(const QString& command) const;
    // Asks the command's OnUpdate operation; a command without one is visible and enabled.
    State state(const QString& command) const;

private:
    using Update = std::function<void(bool&, bool&, qint16&)>;
    struct Command
    {
        std::function<void()> run;
        Update update;
    };

    QHash<QString, Command> m_commands;
};
