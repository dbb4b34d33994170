#pragma once

#include "printing/clsGroupIdentifier.h"

#include <QStringList>
#include <functional>
#include <memory>

// A group's printer identifiers as the identifiers dialog edits them.
struct IdentifierTable
{
    GroupIdentifiers entries;
    // The printer lists offer every printer of the tree, not only the group's.
    bool useAllPrinters = false;
};

// The dialog in which an administrator ties a group's printer identifiers to printers. It
// works on a copy: the caller takes the table back only when the dialog says so.
class IIdentifierDialog
{
public:
    virtual ~IIdentifierDialog() = default;

    // Modal over the control. The printer lists are queue names, the group's own (subgroups
    // included) and the whole tree's. False when the user cancelled: the table is then as it
    // came in.
    virtual bool Edit(IdentifierTable& table, const QStringList& groupPrinters,
                      const QStringList& allPrinters) = 0;

    using Factory = std::function<std::unique_ptr<IIdentifierDialog>()>;
    // The window's dialog; without a window none, and the command says so.
    static std::unique_ptr<IIdentifierDialog> create();
    static void install(Factory factory);
};
