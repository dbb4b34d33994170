#include "platform/lbx/LbxApplication.h"

#include "drivers/LabelSet.h"
#include "drivers/Queue.h"
#include "platform/lbx/PrintSpool.h"
#include "platform/lbx/UserRights.h"
#include "services/SettingsAccess.h"
#include "services/SettingsStore.h"

#include <QFileInfo>

LbxApplication::LbxApplication()
{
    PrintSpool::process()->takeOver();
}

LbxApplication::~LbxApplication() = default;

std::shared_ptr<Application> LbxApplication::attach()
{
    return std::make_shared<LbxApplication>();
}

QString LbxApplication::setting(const QString& name)
{
    QVariant value;
    if (ReadValue(HKEY_LOCAL_MACHINE, SettingsKey, name, value) != 0)
        return {};
    return value.toString();
}

QString LbxApplication::UserName() const
{
    return UserRights::userName();
}

QString LbxApplication::labelRootFolder()
{
    const QString stored = setting(QStringLiteral("LabelRootFolder"));
    if (!stored.isEmpty())
        return stored;
    return QFileInfo(SettingsStore::process().filePath()).absolutePath() +
           QStringLiteral("/labels");
}

QString LbxApplication::LabelRootFolder() const
{
    return labelRootFolder();
}

QString LbxApplication::FileViewRootFolder() const
{
    const QString stored = setting(QStringLiteral("FileViewRootFolder"));
    return stored.isEmpty() ? labelRootFolder() : stored;
}

// Else the first queue, so that a site with one printer needs no setting.
QString LbxApplication::DefaultQueueName() const
{
    const QString stored = setting(QStringLiteral("DefaultQueueName"));
    if (!stored.isEmpty() || m_queues.List().isEmpty())
        return stored;
    return m_queues.List().first()->Name();
}

bool LbxApplication::IsAdministrator() const
{
    return currentUserIsAdministrator();
}

bool LbxApplication::currentUserIsAdministrator()
{
    return UserRights::isAdministrator(setting(AdministratorsValue), UserRights::userName(),
                                       UserRights::groupNames());
}
