// A group's printer identifiers: stored with the group, and reset when a printer goes.

#include "printing/GroupIdentifierSettings.h"

#include "core/Globals.h"
#include "core/StoredNode.h"
#include "core/clsComponents.h"
#include "services/Conversions.h"

namespace {
const QString IdentifierValue = QStringLiteral("PrinterIdentifier");
const QString PrinterValue = QStringLiteral("Printer");
const QString CountValue = QStringLiteral("NoOfIdentifiers");
const QString UseAllPrintersValue = QStringLiteral("UseAllPrinters");
} // namespace

void clsComponents::SaveGroupIdentifierSettings(const QString& sKeyName)
{
    const StoredNode key(sKeyName);
    qint32 n = 0;
    for (const clsGroupIdentifier& entry : m_colGroupIdentifiers.value_or(GroupIdentifiers())) {
        ++n;
        key.writeText(IdentifierValue + QString::number(n), entry.m_strPrinterIdentifier);
        key.writeText(PrinterValue + QString::number(n), entry.m_strPrinter);
    }
    key.writeNumber(CountValue, n);
    key.writeNumber(UseAllPrintersValue, ToLong(QVariant(m_bUseAllPrinterForGroupID)));
}

void clsComponents::LoadGroupIdentifierSettings(const QString& sKeyName)
{
    const StoredNode key(sKeyName);
    const qint32 count = key.readNumber(CountValue, 0);
    GroupIdentifiers identifiers;
    for (qint32 n = 1; n <= count; ++n)
        identifiers.append({key.readText(IdentifierValue + QString::number(n), QString()),
                            key.readText(PrinterValue + QString::number(n), QString())});
    m_colGroupIdentifiers = identifiers;
    m_bUseAllPrinterForGroupID = key.readNumber(UseAllPrintersValue, 0) != 0;
}

void DeletePrinterGroupIdentifiers(TreeNode& oGroup, const QString& sPrinter)
{
    if (!oGroup.isGroup())
        return;
    auto& group = static_cast<clsComponents&>(oGroup);
    for (const auto& child : group.Col().snapshot())
        if (child->isGroup())
            DeletePrinterGroupIdentifiers(*child, sPrinter);
    if (!group.m_colGroupIdentifiers)
        return;
    for (clsGroupIdentifier& entry : *group.m_colGroupIdentifiers)
        if (entry.m_strPrinter == sPrinter)
            entry.m_strPrinter = g_sNoPrinter;
}
