#include "StoreGate.h"

#include "platform/lbx/LbxApplication.h"
#include "platform/lbx/UserRights.h"
#include "services/SettingsStore.h"

ExitCode StoreGate::open(Access access, QString& problem)
{
    const auto mode =
        access == Access::Read ? SettingsStore::Mode::ReadOnly : SettingsStore::Mode::ReadWrite;
    auto store = std::make_shared<SettingsStore>(SettingsStore::defaultFilePath(), mode);
    const QString cannot = QStringLiteral("the settings store %1 can't be ").arg(store->filePath());
    if (!store->isAvailable()) {
        problem = cannot + QStringLiteral("used: ") + store->problem();
        return ExitUnavailable;
    }
    SettingsStore::install(store);
    if (access == Access::Read)
        return ExitDone;
    if (!LbxApplication::currentUserIsAdministrator()) {
        problem = QStringLiteral("only an administrator may change the settings store, and %1 is "
                                 "not one (see %2 in HKLM\\%3)")
                      .arg(UserRights::userName(), LbxApplication::AdministratorsValue,
                           LbxApplication::SettingsKey);
        return ExitNotAdministrator;
    }
    if (const QString readOnly = store->writeProblem(); !readOnly.isEmpty()) {
        problem = cannot + QStringLiteral("changed: ") + readOnly;
        return ExitUnavailable;
    }
    return ExitDone;
}

int StoreGate::open(Access access, const Console& console)
{
    QString problem;
    const ExitCode code = open(access, problem);
    return code == ExitDone ? ExitDone : console.fail(problem, code);
}
