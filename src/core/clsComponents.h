#pragma once

#include "core/KeyedList.h"
#include "core/TreeNode.h"
#include "printing/clsGroupIdentifier.h"

#include <QStringList>
#include <memory>

class clsComponent;

// A group of the tree: an ordered list of children, printers and groups, keyed by id, and one
// hidden dashboard node of its own that is no child and has no tree item.
class clsComponents : public TreeNode
{
public:
    clsComponents();
    ~clsComponents() override;

    bool Disabled() override;
    void setDisabled(bool disabled) override;
    KeyedList<TreeNode>& Col() { return m_colComponents; }
    bool Contains(const QString& sID) const override;
    std::shared_ptr<TreeNode> AddComponent(const QString& sKey, std::shared_ptr<TreeNode> oNewItem);
    // A missing key raises.
    std::shared_ptr<TreeNode> Item(const QString& sKey) const;
    std::shared_ptr<TreeNode> Item(qsizetype index) const;
    qsizetype Count() const { return m_colComponents.count(); }
    // The child and everything below it go for good: their handlers clear what they keep
    // outside the tree.
    void Delete(const QString& sKey);
    // Takes the child out of the list without telling its handler; a missing key raises.
    void Remove(const QString& sKey);

    QString TreeText() const override;
    QString IconText() const override { return {}; }
    clsComponent* DisplayComponent() const { return m_oDisplayComponent.get(); }
    ErrorState GetErrorState() override;
    quint32 GetErrorColour(qint32 eViewType, bool bContrastColour,
                           std::optional<qint32> vErrorState = std::nullopt) override;
    void Save(const QString& sKeyName) override;
    void LoadState(const QString& sKeyName) override;
    void CreateUI();
    bool HasUI() const { return m_oDisplayComponent != nullptr; }
    void RestoreUI(const QString& sKeyName);
    clsComponent* FindPrinter(const QString& sPrinterName);
    // The printers of this group and of every group below it, in the tree's order.
    QList<clsComponent*> Printers();
    TreeNode* Find(const QString& sID);
    clsComponents* FindParent(const QString& sID);
    void Process() override;
    void ProcessTimeout(qint16 nTimeout_seconds) override;
    void AddImages(ImageList& imlSmallImageList, ImageList& imlLargeImageList) override;
    qint32 GetIconIndex(qint32 lvbLPSize) override;
    void SyncTime(std::optional<QDateTime> dtTime = std::nullopt) override;
    bool IsValidMSFormat(const QString&, QString&) const { return false; }

    // A label set, relative to the label folder, whose formats go to the printers it names:
    // refused when one of them has a file already, asked about when one is in another group.
    void SetAssignedFile(const QString& sFilename);
    // The label set goes, and with it the files it gave the printers.
    void ClearAssignedFile() override;
    // The printer of that name in this group, or else, if asked, in the whole tree.
    clsComponent* FindForAssign(const QString& id, bool wholeTree);
    // The identifiers as values of the group's key; a group without any stores 0 of them.
    void SaveGroupIdentifierSettings(const QString& sKeyName);
    void LoadGroupIdentifierSettings(const QString& sKeyName);

    // The printers the label set reached, by element; an entry is emptied when cleared.
    QStringList m_asAssignedIDs;
    // Which printer of the group each identifier of a label set means; none before the
    // group has been loaded or edited.
    std::optional<GroupIdentifiers> m_colGroupIdentifiers;
    bool m_bUseAllPrinterForGroupID = false;
    void ReleaseComponent() override;
    // False if a group at this level has exactly that name.
    bool UniqueGroupName(const QString& sNewGroupName) const;

private:
    void loadChildren(const QString& sKeyName, const QStringList& subKeys, bool hasDashboard);
    // The children as they stand now; a child that an event removes in mid-walk is skipped.
    template <typename Visit> void forEachChild(Visit&& visit);

    std::shared_ptr<clsComponent> m_oDisplayComponent;
    qint32 m_nSmallIcon = 0;
    qint32 m_nLargeIcon = 0;
    KeyedList<TreeNode> m_colComponents;
};
