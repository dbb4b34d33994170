#include "platform/lbx/UserRights.h"

#include <QRegularExpression>
#include <grp.h>
#include <pwd.h>
#include <unistd.h>
#include <vector>

QString UserRights::userName()
{
    if (const passwd* entry = getpwuid(geteuid()))
        return QString::fromLocal8Bit(entry->pw_name);
    return qEnvironmentVariable("USER");
}

QStringList UserRights::groupNames()
{
    const passwd* entry = getpwuid(geteuid());
    if (!entry)
        return {};
    int count = 32;
    std::vector<gid_t> ids(count);
    if (getgrouplist(entry->pw_name, entry->pw_gid, ids.data(), &count) < 0) {
        ids.resize(count);
        if (getgrouplist(entry->pw_name, entry->pw_gid, ids.data(), &count) < 0)
            return {};
    }
    QStringList names;
    for (int i = 0; i < count; ++i)
        if (const group* found = getgrgid(ids[i]))
            names.append(QString::fromLocal8Bit(found->gr_name));
    return names;
}

bool UserRights::isAdministrator(const QString& administrators, const QString& user,
                                 const QStringList& groups)
{
    static const QRegularExpression separators(QStringLiteral("[,;\\s]+"));
    const QStringList entries = administrators.split(separators, Qt::SkipEmptyParts);
    if (entries.isEmpty())
        return true;
    for (const QString& entry : entries) {
        if (entry.startsWith(QLatin1Char('@')) ? groups.contains(entry.mid(1))
                                               : !user.isEmpty() && entry == user)
            return true;
    }
    return false;
}
