#pragma once

#include "core/ErrorState.h"

#include <QDateTime>
#include <QString>
#include <memory>
#include <optional>

class ImageList;

// What a group and a printer node both answer, so that a walk of the tree can call the same
// operation on either. The first two letters of the id tell which one a node is.
class TreeNode : public std::enable_shared_from_this<TreeNode>
{
public:
    virtual ~TreeNode() = default;

    QString m_sName;
    QString m_sID;

    bool isGroup() const;

    virtual bool Disabled() = 0;
    virtual void setDisabled(bool disabled) = 0;
    virtual QString TreeText() const = 0;
    virtual QString IconText() const = 0;
    virtual ErrorState GetErrorState() = 0;
    virtual quint32 GetErrorColour(qint32 eViewType, bool bContrastColour,
                                   std::optional<qint32> vErrorState = std::nullopt) = 0;
    // A node's key below the control's default root.
    virtual void Save(const QString& sKeyName) = 0;
    virtual void LoadState(const QString& sKeyName) = 0;
    virtual void Process() = 0;
    virtual void ProcessTimeout(qint16 nTimeout_seconds) = 0;
    virtual void AddImages(ImageList& imlSmallImageList, ImageList& imlLargeImageList) = 0;
    virtual qint32 GetIconIndex(qint32 lvbLPSize) = 0;
    virtual void SyncTime(std::optional<QDateTime> dtTime = std::nullopt) = 0;
    // Whether some node below has an id that begins with sID; a printer has none below.
    virtual bool Contains(const QString& sID) const = 0;
    virtual void ReleaseComponent() = 0;

    // The label file assigned to the node until the next send: a format on a printer, a
    // label set on a group.
    const QString& AssignedFilename() const { return m_sAssignedFile; }
    bool FileAssigned() const { return !m_sAssignedFile.isEmpty(); }
    // Clears the node's own assignment; a printer keeps a file its group's label set gave it.
    virtual void ClearAssignedFile() = 0;

protected:
    QString m_sAssignedFile;
};
