#include "platform/host/ControlCommands.h"

#include "core/AddInControl.h"

namespace {
// What an OnUpdate operation leaves alone keeps this; any other value was written by it.
constexpr qint16 StateUntouched = -1;
} // namespace

// The file view and the sending of label files aren't in this build: their rows find no
// command here, and the host leaves them out.
ControlCommands::ControlCommands(AddInControl& control)
{
    AddInControl* c = &control;
    const auto command = [&](const char* name, void (AddInControl::*run)(),
                             void (AddInControl::*update)(bool&, bool&, qint16&)) {
        Command entry;
        entry.run = [c, run] {
            (c->*run)();
        };
        if (update)
            entry.update = [c, update](bool& v, bool& e, qint16& s) {
                (c->*update)(v, e, s);
            };
        m_commands.insert(QLatin1String(name), entry);
    };
    command("DoEnablePolling", &AddInControl::DoEnablePolling,
            &AddInControl::OnUpdateDoEnablePolling);
    command("DoDisablePolling", &AddInControl::DoDisablePolling,
            &AddInControl::OnUpdateDoDisablePolling);
    command("DoAddGroup", &AddInControl::DoAddGroup, &AddInControl::OnUpdateDoAddGroup);
    command("DoAddPrinter", &AddInControl::DoAddPrinter, &AddInControl::OnUpdateDoAddPrinter);
    command("DoDelete", &AddInControl::DoDelete, &AddInControl::OnUpdateDoDelete);
    command("DoProperties", &AddInControl::DoProperties, &AddInControl::OnUpdateDoProperties);
    command("DoDisablePrinter", &AddInControl::DoDisablePrinter,
            &AddInControl::OnUpdateDoDisablePrinter);
    command("DoEnablePrinter", &AddInControl::DoEnablePrinter,
            &AddInControl::OnUpdateDoEnablePrinter);
    command("DoSyncroniseTime", &AddInControl::DoSyncroniseTime,
            &AddInControl::OnUpdateDoSyncroniseTime);
    command("DoHelp", &AddInControl::DoHelp, nullptr);
    command("DoDisplayOptions", &AddInControl::DoDisplayOptions,
            &AddInControl::OnUpdateDoDisplayOptions);
    command("DoDisplayPrintProgress", &AddInControl::DoDisplayPrintProgress, nullptr);
    command("DoDisplayFileView", &AddInControl::DoDisplayFileView,
            &AddInControl::OnUpdateDoDisplayFileView);
    command("DoSendFilesToPrinters", &AddInControl::DoSendFilesToPrinters, nullptr);
    command("DoClearFileAssignments", &AddInControl::DoClearFileAssignments,
            &AddInControl::OnUpdateDoClearFileAssignments);
}

void ControlCommands::run(const QString& command) const
{
    if (const auto found = m_commands.constFind(command); found != m_commands.constEnd())
        found->run();
}

ControlCommands::State ControlCommands::state(const QString& command) const
{
    State state;
    const auto found = m_commands.constFind(command);
    if (found == m_commands.constEnd() || !found->update)
        return state;
    qint16 checked = StateUntouched;
    found->update(state.visible, state.enabled, checked);
    if (checked != StateUntouched)
        state.checked = checked == 1;
    return state;
}
