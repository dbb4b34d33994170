#pragma once

#include "core/ComponentHandler.h"
#include "core/TreeNode.h"

#include <QList>
#include <QObject>
#include <QStringList>
#include <memory>

// One printer of the tree, or the hidden dashboard node of a group. It holds what is
// persistent about the printer; its handler, made on demand, holds what is live.
class IPage;

class clsComponent : public QObject, public TreeNode
{
    Q_OBJECT

public:
    clsComponent();
    ~clsComponent() override;

    QString m_sRemoteObjectModule = QStringLiteral("KorvexVigil");
    QString m_sRemoteObjectName = QStringLiteral("AveryPrinterHandler");
    QString m_sRemoteObjectControl = QStringLiteral("ctlAveryUI");
    qint32 m_lRemoteObjectPrinterNumber = 0;
    // A group's dashboard node has no tree item.
    bool m_bIsGLVComponent = false;
    // The handler's PortBusy lives here, so that it outlives the handler.
    bool m_bBusy = false;

    bool Disabled() override;
    void setDisabled(bool disabled) override;
    QString TreeText() const override;
    QString IconText() const override;
    QStringList RegisteredGLVs() const { return m_asGLVs; }

    // The handler, made on first need by the first class of the table that claims the
    // printer number; none only when no class does.
    ComponentHandler* GetComponent();
    void ReleaseComponent() override;

    void Process() override;
    void ProcessTimeout(qint16 nTimeout_seconds) override;
    bool ProcessResponse(const QByteArray& sReply);
    void SaveAll();
    void Save(const QString& sKeyName) override;
    void LoadState(const QString& sKeyName) override;
    void ShowProperties();

    // The page class this node's page is made of: module, a point, and the handler's page.
    QString GetControlName() const;
    // Ties a new page to this node's name and handler.
    void InitialiseControl(IPage& oControl);
    // Lets a page that stretches take the pane's size; false for one that doesn't.
    bool Resize(IPage& oControl, qint16 nWidth, qint16 nHeight);

    void AddStoredSetting(const QString& sSettingName, const QString& sValue);
    bool GetStoredSetting(const QString& sSettingName, QString& sValue) const;
    QString GetStoredSettingByIdx(qint32 nIndex, bool bGetName) const;
    void RemoveStoredSetting(const QString& sSettingName);

    TreeNode* GetTreeComponent(const QString& sID, bool bSelect);
    void RegisterGLV(const QString& sID);
    void UnregisterGLV(const QString& sID);

    ErrorState GetErrorState() override;
    quint32 GetErrorColour(qint32 eViewType, bool bContrastColour,
                           std::optional<qint32> vErrorState = std::nullopt) override;
    void AddImages(ImageList& imlSmallImageList, ImageList& imlLargeImageList) override;
    qint32 GetIconIndex(qint32 lvbLPSize) override;
    // The picture file of this node's icon at size 0 or 3, as the image lists hold it; empty
    // before its images are added.
    QString GetIcon(qint32 lvbLPSize);
    void SyncTime(std::optional<QDateTime> dtTime = std::nullopt) override;
    QString IconPath() const;
    qint32 LBXPrinterType();
    bool Contains(const QString&) const override { return false; }
    QString GetHighestAlert() const;

    // A format for this printer, relative to the label folder, checked with the print
    // application; from a label set, the set's format, unchecked. A file from a label set
    // is never replaced.
    void SetAssignedFile(const QString& sFilename, bool bFromLabelSet = false);
    void ClearAssignedFile() override;
    void ClearLabelSetAssignedFile();
    bool IsAssignedFileInLabelSet() const { return m_bAssignedFromLabelSet; }

    const QString& CurrentMessage() const { return m_sCurrentMessage; }
    // Shown until the next status update brings the handler's own.
    void setCurrentMessage(const QString& message) { m_sCurrentMessage = message; }
    qint32 PrintCount() const { return m_lPrintCount; }

signals:
    void StatusChanged();

private:
    void UpdateStatus();
    qsizetype FindStoredSetting(const QString& sSettingName) const;
    void CompactStoredSettings();

    QString m_sCurrentMessage;
    qint32 m_lPrintCount = 0;
    bool m_bAssignedFromLabelSet = false;
    qint32 m_nSmallIcon = 0;
    qint32 m_nLargeIcon = 0;
    QList<std::pair<QString, QString>> m_asSettings{{QString(), QString()}};
    std::unique_ptr<ComponentHandler> m_oRemoteObject;
    QStringList m_asGLVs{QString()};
    // The state the node last told the feed of; none before its first status.
    std::optional<ErrorState> m_stateTold;
};
