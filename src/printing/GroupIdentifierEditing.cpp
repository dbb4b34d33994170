#include "printing/GroupIdentifierEditing.h"

#include "core/clsComponent.h"
#include "core/clsComponents.h"
#include "printing/IIdentifierDialog.h"

namespace {
// The queue names of the printers in the group and in every group below it, in tree order.
QStringList printerNames(clsComponents& group)
{
    QStringList names;
    for (const clsComponent* printer : group.Printers())
        names.append(printer->m_sName);
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
