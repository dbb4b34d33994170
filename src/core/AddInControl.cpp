#include "core/AddInControl.h"

#include "core/Globals.h"
#include "core/PresentTime.h"
#include "core/clsComponents.h"
#include "services/ErrorBox.h"
#include "services/SettingsStore.h"
#include "services/VigilError.h"

namespace {
const QString Context = QStringLiteral("AddInControl - ");
} // namespace

AddInControl::AddInControl(ITreeView& treePrinters)
    : m_treePrinters(treePrinters)
{}

std::optional<TreeItem> AddInControl::GetTreeNode(const QString& sID)
{
    if (!m_treePrinters.hasItem(sID))
        return std::nullopt;
    return TreeItem(m_treePrinters, sID);
}

void AddInControl::SelectTreeItem(const QString& sID)
{
    if (m_treePrinters.hasItem(sID))
        m_treePrinters.selectItem(sID);
}

ImageList* AddInControl::imlList(qint32 lvbLPSize)
{
    switch (lvbLPSize) {
    case 0:
        return &m_imlSmallList;
    case 3:
        return &m_imlLargeList;
    default:
        ShowError(QStringLiteral("Image Size not supported"), QString());
        return nullptr;
    }
}

const ImageList::Picture* AddInControl::GetFromImageList(qint32 lvbLPSize, qint32 nIndex)
{
    const ImageList* list = imlList(lvbLPSize);
    return list ? list->picture(nIndex) : nullptr;
}

QString AddInControl::CreateUniqueID(bool bGroup)
{
    QString id;
    RunTrapped(Context + QStringLiteral("CreateUniqueID"), [&] {
        const QString base = (bGroup ? QStringLiteral("GP") : QStringLiteral("ID")) +
                             PresentTime().toString(QStringLiteral("ddMMyyHHmmss"));
        id = base;
        for (qint32 count = 1; g_oComponents && g_oComponents->Find(id); ++count)
            id = base + QString::number(count);
    });
    return id;
}

void AddInControl::Save()
{
    RunTrapped(Context + QStringLiteral("Save"), [this] {
        // A store that can't be used was reported when it was opened.
        if (!g_oComponents || !SettingsStore::process().isAvailable())
            return;
        SettingsStore::Transaction transaction(SettingsStore::process());
        g_oComponents->Save(QStringLiteral("Printers"));
        if (!transaction.commit())
            throw VigilError(SettingsStore::BadDatabase, QStringLiteral("AddInControl"),
                             QStringLiteral("The tree could not be saved to %1")
                                 .arg(SettingsStore::process().filePath()));
    });
}
