#pragma once

#include "core/ComponentHandler.h"

class TreeNode;

// The handler of a group's dashboard node: no queue and no protocol. It keeps the dashboard
// told of the group's name, and lets it reach any printer of the tree.
class GroupHandler : public ComponentHandler
{
    Q_OBJECT

public:
    bool Disabled() const override { return m_bDisabled; }
    void setDisabled(bool disabled) override;
    bool Initialise(clsComponent* oComponent, const QString& sKey, const QString& sName) override;
    void Process() override;
    void ProcessTimeout(qint16) override {}
    QString HandlerFreindlyName() override;
    QString PrinterIcon(qint32 lvbLPSize) override;
    ErrorState GetErrorState() override;
    QString HighestAlert() override { return m_sErrorDescription; }
    qint32 LBXPrinterType() override { return -1; }
    bool IsPrinterTypeSupported(qint32 lPrinterNumber) const override
    {
        return lPrinterNumber == 0;
    }
    QString GetControlName() const override { return QStringLiteral("GroupUI"); }
    QString GetObjectName() const override { return QStringLiteral("GroupHandler"); }
    void ShowProperties() override {}
    // The group's printers get their own calls.
    void SyncTime(const QDateTime&) override {}
    void CloseDown() override {}

    // Any node of the tree, or none: the dashboard reaches its printers this way.
    TreeNode* RequestComponent(const QString& sID);
    const QString& id() const { return m_sID; }
    // The dashboard node this handler serves.
    clsComponent* node() const { return m_oParent; }

private:
    QString m_sID;
    QString m_sErrorDescription;
    clsComponent* m_oParent = nullptr;
    bool m_bDisabled = false;
};
