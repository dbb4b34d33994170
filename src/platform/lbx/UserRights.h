#pragma once

#include <QStringList>

// Who the user is, and whether they may change the tree of printers.
class UserRights
{
public:
    // The login name; empty when it can't be found.
    static QString userName();
    // The names of the groups the user belongs to.
    static QStringList groupNames();
    // True when the list is empty, names the user, or names one of their groups as "@group".
    // Entries are separated by commas, semicolons or blanks.
    static bool isAdministrator(const QString& administrators, const QString& user,
                                const QStringList& groups);
};
