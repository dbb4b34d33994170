#include "core/clsComponents.h"

#include "core/ErrorColours.h"
#include "core/Globals.h"
#include "core/IconFiles.h"
#include "core/ImageList.h"
#include "core/PresentTime.h"
#include "core/StoredNode.h"
#include "core/clsComponent.h"
#include "services/MessageCatalogue.h"
#include "services/NumericUtilities.h"
#include "services/SettingsAccess.h"
#include "services/TextUtilities.h"
#include "services/VigilError.h"

namespace {
constexpr qint32 InvalidArgument = 5;
const QString RootId = QStringLiteral("GPRoot");

QString BooleanText(bool value)
{
    return value ? QStringLiteral("True") : QStringLiteral("False");
}
} // namespace

clsComponents::clsComponents() = default;

clsComponents::~clsComponents()
{
    m_colComponents.clear();
    m_oDisplayComponent.reset();
}

template <typename Visit> void clsComponents::forEachChild(Visit&& visit)
{
    for (const auto& child : m_colComponents.snapshot()) {
        if (!m_colComponents.contains(child.get()))
            continue;
        if (!visit(*child))
            return;
    }
}

bool clsComponents::Disabled()
{
    bool disabled = true;
    forEachChild([&disabled](TreeNode& child) {
        disabled = child.Disabled();
        return disabled;
    });
    return disabled;
}

void clsComponents::setDisabled(bool disabled)
{
    forEachChild([disabled](TreeNode& child) {
        child.setDisabled(disabled);
        return true;
    });
}

bool clsComponents::Contains(const QString& sID) const
{
    const auto children = m_colComponents.snapshot();
    for (const auto& child : children)
        if (child->m_sID.left(sID.size()) == sID)
            return true;
    for (const auto& child : children)
        if (child->Contains(sID))
            return true;
    return false;
}

std::shared_ptr<TreeNode> clsComponents::AddComponent(const QString& sKey,
                                                      std::shared_ptr<TreeNode> oNewItem)
{
    if (!m_colComponents.add(sKey, oNewItem))
        throw VigilError(VigilError::KeyAlreadyExists, QStringLiteral("clsComponents"),
                         QStringLiteral("This key is already associated with an element of "
                                        "this collection: %1")
                             .arg(sKey));
    return oNewItem;
}

std::shared_ptr<TreeNode> clsComponents::Item(const QString& sKey) const
{
    auto child = m_colComponents.item(sKey);
    if (!child)
        throw VigilError(InvalidArgument, QStringLiteral("clsComponents"),
                         QStringLiteral("No child with the key %1").arg(sKey));
    return child;
}

std::shared_ptr<TreeNode> clsComponents::Item(qsizetype index) const
{
    auto child = m_colComponents.at(index);
    if (!child)
        throw VigilError(InvalidArgument, QStringLiteral("clsComponents"),
                         QStringLiteral("No child at index %1").arg(index));
    return child;
}

void clsComponents::Delete(const QString& sKey)
{
    const auto child = Item(sKey);
    if (IsGroupId(sKey)) {
        auto& group = static_cast<clsComponents&>(*child);
        for (const auto& grandChild : group.m_colComponents.snapshot())
            group.Delete(grandChild->m_sID);
    } else {
        try {
            if (ComponentHandler* handler = static_cast<clsComponent&>(*child).GetComponent())
                handler->Delete();
        } catch (const std::exception&) {
            // A handler without Delete, or one that fails, keeps nothing outside the tree.
        }
    }
    // The queue's removal may have taken the entry out already.
    m_colComponents.remove(sKey);
}

void clsComponents::Remove(const QString& sKey)
{
    if (!m_colComponents.remove(sKey))
        throw VigilError(InvalidArgument, QStringLiteral("clsComponents"),
                         QStringLiteral("No child with the key %1").arg(sKey));
}

QString clsComponents::TreeText() const
{
    if (m_sAssignedFile.isEmpty())
        return m_sName;
    return m_sName + QStringLiteral("      [") + GetFileName(m_sAssignedFile) + QLatin1Char(']');
}

ErrorState clsComponents::GetErrorState()
{
    ErrorState state = StateGood;
    forEachChild([&state](TreeNode& child) {
        state = std::max(state, child.GetErrorState());
        return true;
    });
    return state;
}

quint32 clsComponents::GetErrorColour(qint32 eViewType, bool bContrastColour, std::optional<qint32>)
{
    return LookUpColour(StateGood, eViewType, bContrastColour);
}

void clsComponents::Save(const QString& sKeyName)
{
    StoredNode key(sKeyName);
    key.removeWholeKey();
    key.writeText(QStringLiteral("Name"), m_sName);
    key.writeText(QStringLiteral("ID"), m_sID);
    key.writeText(QStringLiteral("GLV"), BooleanText(HasUI()));
    // This deletes the whole dashboard subtree of the group, so the children's dashboards
    // are written after it.
    if (m_oDisplayComponent)
        m_oDisplayComponent->Save(QStringLiteral("GLV\\") + sKeyName);
    for (qsizetype index = 1; index <= Count(); ++index) {
        const auto child = Item(index);
        child->Save(sKeyName + QLatin1Char('\\') + child->m_sID);
    }
    SaveGroupIdentifierSettings(sKeyName);
}

void clsComponents::LoadState(const QString& sKeyName)
{
    StoredNode key(sKeyName);
    m_sName = key.readText(QStringLiteral("Name"), m_sName);
    m_sID = key.readText(QStringLiteral("ID"), m_sID);
    const bool hasDashboard =
        key.readText(QStringLiteral("GLV"), BooleanText(false)) == BooleanText(true);
    if (m_sID == RootId)
        m_sName = GetMessage(23);

    QStringList subKeys;
    if (EnumSubKeys(HKEY_LOCAL_MACHINE, subKeys, sKeyName))
        loadChildren(sKeyName, subKeys, hasDashboard);
    LoadGroupIdentifierSettings(sKeyName);
}

void clsComponents::loadChildren(const QString& sKeyName, const QStringList& subKeys,
                                 bool hasDashboard)
{
    // The dashboard is restored once for each child, each time from the same key; a group
    // without children lists one empty name, and restores it once.
    for (const QString& subKey : std::as_const(subKeys)) {
        std::shared_ptr<TreeNode> child;
        if (subKey.startsWith(QLatin1String("GP")))
            child = std::make_shared<clsComponents>();
        else if (subKey.startsWith(QLatin1String("ID")))
            child = std::make_shared<clsComponent>();
        if (child && !m_colComponents.item(subKey)) {
            child->m_sID = subKey;
            child->LoadState(sKeyName + QLatin1Char('\\') + subKey);
            AddComponent(child->m_sID, child);
        }
        if (hasDashboard)
            RestoreUI(QStringLiteral("GLV\\") + sKeyName);
    }
}

void clsComponents::CreateUI()
{
    m_oDisplayComponent = std::make_shared<clsComponent>();
    m_oDisplayComponent->m_sRemoteObjectModule = QStringLiteral("KorvexVigil");
    m_oDisplayComponent->m_sRemoteObjectName = QStringLiteral("GroupHandler");
    m_oDisplayComponent->m_sRemoteObjectControl = QStringLiteral("GroupUI");
    m_oDisplayComponent->m_sID = QStringLiteral("ID") + m_sID;
    m_oDisplayComponent->m_sName = m_sName;
    m_oDisplayComponent->m_bIsGLVComponent = true;
}

void clsComponents::RestoreUI(const QString& sKeyName)
{
    if (!m_oDisplayComponent)
        CreateUI();
    m_oDisplayComponent->LoadState(sKeyName);
}

clsComponent* clsComponents::FindPrinter(const QString& sPrinterName)
{
    clsComponent* found = nullptr;
    forEachChild([&](TreeNode& child) {
        if (child.isGroup())
            found = static_cast<clsComponents&>(child).FindPrinter(sPrinterName);
        else if (child.m_sName == sPrinterName)
            found = static_cast<clsComponent*>(&child);
        return found == nullptr;
    });
    return found;
}

QList<clsComponent*> clsComponents::Printers()
{
    QList<clsComponent*> printers;
    forEachChild([&printers](TreeNode& child) {
        if (child.isGroup())
            printers += static_cast<clsComponents&>(child).Printers();
        else
            printers.append(static_cast<clsComponent*>(&child));
        return true;
    });
    return printers;
}

TreeNode* clsComponents::Find(const QString& sID)
{
    if (sID == m_sID)
        return this;
    TreeNode* found = nullptr;
    forEachChild([&](TreeNode& child) {
        if (child.m_sID == sID)
            found = &child;
        else if (child.isGroup())
            found = static_cast<clsComponents&>(child).Find(sID);
        return found == nullptr;
    });
    return found;
}

clsComponents* clsComponents::FindParent(const QString& sID)
{
    clsComponents* found = nullptr;
    forEachChild([&](TreeNode& child) {
        if (child.m_sID == sID)
            found = this;
        else if (child.isGroup())
            found = static_cast<clsComponents&>(child).FindParent(sID);
        return found == nullptr;
    });
    return found;
}

void clsComponents::Process()
{
    bool walkedAll = true;
    forEachChild([&walkedAll](TreeNode& child) {
        child.Process();
        walkedAll = TreeWorkAllowed();
        return walkedAll;
    });
    if (!walkedAll || !m_oDisplayComponent)
        return;
    // A rename reaches the dashboard this way and no other.
    m_oDisplayComponent->m_sName = m_sName;
    m_oDisplayComponent->Process();
}

void clsComponents::ProcessTimeout(qint16 nTimeout_seconds)
{
    forEachChild([nTimeout_seconds](TreeNode& child) {
        child.ProcessTimeout(nTimeout_seconds);
        return TreeWorkAllowed();
    });
}

void clsComponents::AddImages(ImageList& imlSmallImageList, ImageList& imlLargeImageList)
{
    if (m_oDisplayComponent) {
        m_oDisplayComponent->AddImages(imlSmallImageList, imlLargeImageList);
        return;
    }
    // One picture per size, however many groups use it.
    const auto addFileImage = [](ImageList& list, qint32 size) {
        const QString path = IconFile(QStringLiteral("Group.ico"));
        const QString key = path + QLatin1Char('_') + QString::number(size);
        const qint32 existing = list.indexOfKey(key);
        return existing ? existing : list.add(key, path, size);
    };
    m_nSmallIcon = addFileImage(imlSmallImageList, 0);
    m_nLargeIcon = addFileImage(imlLargeImageList, 3);
}

qint32 clsComponents::GetIconIndex(qint32 lvbLPSize)
{
    if (m_oDisplayComponent)
        return m_oDisplayComponent->GetIconIndex(lvbLPSize);
    return IconIndex({m_nSmallIcon, m_nLargeIcon}, lvbLPSize);
}

void clsComponents::SyncTime(std::optional<QDateTime> dtTime)
{
    forEachChild([&dtTime](TreeNode& child) {
        child.SyncTime(dtTime ? dtTime : std::optional<QDateTime>(PresentTime()));
        return true;
    });
}

void clsComponents::ReleaseComponent()
{
    forEachChild([](TreeNode& child) {
        try {
            child.ReleaseComponent();
        } catch (const std::exception&) {
        }
        return true;
    });
}

bool clsComponents::UniqueGroupName(const QString& sNewGroupName) const
{
    for (const auto& child : m_colComponents.snapshot())
        if (child->isGroup() && child->m_sName == sNewGroupName)
            return false;
    return true;
}
