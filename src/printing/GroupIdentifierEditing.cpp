#include "printing/GroupIdentifierEditing.h"

#include "core/clsComponents.h"
#include "printing/IIdentifierDialog.h"

namespace {
// The queue names of the printers in the group and in every group below it, in tree order.
void collectPrinterNames(clsComponents& group, QStringList& names)
{
    for (const auto& child : group.Col().snapshot()) {
        if (child->isGroup())
            collectPrinterNames(static_cast<clsComponents&>(*child), names);
        else
            names.append(child->m_sName);
    }
}

QStringList printerNames(clsComponents& group)
{
    QStringList names;
    collectPrinterNames(group, names);
    return names;
}
} // namespace

bool EditGroupIdentifiers(clsComponents& oGroup, clsComponents& oRoot)
{
    const std::unique_ptr<IIdentifierDialog> dialog = IIdentifierDialog::create();
    if (!dialog)
        return false;
    IdentifierTable table{oGroup.m_colGroupIdentifiers.value_or(GroupIdentifiers()),
                          oGroup.m_bUseAllPrinterForGroupID};
    if (!dialog->Edit(table, printerNames(oGroup), printerNames(oRoot)))
        return false;
    oGroup.m_colGroupIdentifiers = table.entries;
    oGroup.m_bUseAllPrinterForGroupID = table.useAllPrinters;
    return true;
}
