#pragma once

#include "core/ITreeView.h"
#include "core/ImageList.h"

#include <QObject>
#include <optional>

// The control that the host shell creates: the tree of groups and printers, its view, the
// timers, and the commands the host calls by name.
class AddInControl : public QObject
{
    Q_OBJECT

public:
    explicit AddInControl(ITreeView& treePrinters);

    // The tree item whose key is the id, if the view has one.
    std::optional<TreeItem> GetTreeNode(const QString& sID);
    void SelectTreeItem(const QString& sID);
    // The image list of icon size 0 or 3; any other size is refused with a warning.
    ImageList* imlList(qint32 lvbLPSize);
    const ImageList::Picture* GetFromImageList(qint32 lvbLPSize, qint32 nIndex);
    // A new id for a group or a printer, unique over the tree.
    QString CreateUniqueID(bool bGroup);
    // The whole tree into the store, as one transaction: a save that fails leaves the
    // previous tree whole.
    void Save();

private:
    ITreeView& m_treePrinters;
    ImageList m_imlSmallList{0};
    ImageList m_imlLargeList{3};
};
