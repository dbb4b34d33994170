#include "support/RegRoundTrip.h"

#include "services/RegFile.h"
#include "services/SettingsStore.h"

QString RoundTripFault(const QString& backup)
{
    SettingsStore restored(QStringLiteral(":memory:"));
    const RegFile::ImportResult imported = RegFile(restored).importText(backup);
    if (!imported.ok)
        return QStringLiteral("the backup does not import: %1").arg(imported.error);
    RegFile file(restored);
    QString again;
    if (file.exportAll(again) != SettingsStore::Success)
        return QStringLiteral("the restored store cannot be exported: %1")
            .arg(restored.lastFailure());
    if (!file.leftOut().isEmpty())
        return QStringLiteral("the restored store holds names no export can write: %1")
            .arg(file.leftOut().join(QStringLiteral(", ")));
    if (again != backup) {
        qsizetype at = 0;
        while (at < backup.size() && at < again.size() && backup.at(at) == again.at(at))
            ++at;
        return QStringLiteral("the restored store exports otherwise, from character %1: \"%2\" "
                              "instead of \"%3\"")
            .arg(at)
            .arg(again.mid(at, 40), backup.mid(at, 40));
    }
    return {};
}
