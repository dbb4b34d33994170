#include "platform/lbx/LbxApplication.h"

#include "drivers/LabelSet.h"
#include "platform/lbx/UserRights.h"
#include "services/SettingsAccess.h"

LbxApplication::LbxApplication() = default;
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

QString LbxApplication::LabelRootFolder() const
{
    return setting(QStringLiteral("LabelRootFolder"));
}

QString LbxApplication::FileViewRootFolder() const
{
    return setting(QStringLiteral("FileViewRootFolder"));
}

QString LbxApplication::DefaultQueueName() const
{
    return setting(QStringLiteral("DefaultQueueName"));
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
