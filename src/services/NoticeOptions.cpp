#include "services/NoticeOptions.h"

#include "services/ApplicationOptions.h"
#include "services/SettingsAccess.h"

namespace {
const QString EnabledValue = QStringLiteral("NotifyTrouble");
const QString DelayValue = QStringLiteral("NotifyDelaySeconds");
const QString SoundValue = QStringLiteral("NotifySoundFile");

QVariant readOption(const QString& name, qint32 type, const QVariant& defaultValue)
{
    QVariant value;
    TransferValueEx(HKEY_LOCAL_MACHINE, OptionsKey, TransferRead, type, name, value, defaultValue,
                    false);
    return value;
}

void writeOption(const QString& name, qint32 type, QVariant value)
{
    TransferValueEx(HKEY_LOCAL_MACHINE, OptionsKey, TransferWrite, type, name, value, value, false);
}
} // namespace

NoticeOptions NoticeOptions::load()
{
    const NoticeOptions defaults;
    NoticeOptions options;
    options.enabled = readOption(EnabledValue, REG_DWORD, qint32(defaults.enabled)).toInt() != 0;
    const qint32 delay = readOption(DelayValue, REG_DWORD, defaults.delaySeconds).toInt();
    options.delaySeconds = delay >= 0 && delay <= MaxDelaySeconds ? delay : defaults.delaySeconds;
    options.soundFile = readOption(SoundValue, REG_SZ, defaults.soundFile).toString();
    return options;
}

void NoticeOptions::save() const
{
    writeOption(EnabledValue, REG_DWORD, qint32(enabled));
    writeOption(DelayValue, REG_DWORD, qBound(0, delaySeconds, MaxDelaySeconds));
    writeOption(SoundValue, REG_SZ, soundFile);
}
