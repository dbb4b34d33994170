#pragma once

#include "drivers/Application.h"
#include "drivers/LabelSets.h"
#include "platform/lbx/LbxQueues.h"

#include <memory>

// The print application of this program: its queues and settings live in the settings
// store, and it reaches printers over TCP, serial lines or simulators.
class LbxApplication : public Application
{
    Q_OBJECT

public:
    inline static const QString SettingsKey =
        QStringLiteral("Software\\Orvane\\LabelApplication\\Settings");
    // Who may change the tree: names and @groups; empty lets everyone.
    inline static const QString AdministratorsValue = QStringLiteral("Administrators");

    // Takes over the print jobs that programs before it left unsent.
    LbxApplication();
    ~LbxApplication() override;

    // Nothing to lose: the application lives inside this program.
    QVariant Probe() override { return true; }
    class Queues& Queues() override { return m_queues; }
    QString UserName() const override;
    QString LabelRootFolder() const override;
    QString FileViewRootFolder() const override;
    QString DefaultQueueName() const override;
    class LabelSets& LabelSets() override { return m_labelSets; }
    bool IsAdministrator() const override;
    // The same answer without an application, for tools that change the store.
    static bool currentUserIsAdministrator();
    // As stored, else "labels" in the settings store's folder.
    static QString labelRootFolder();

    // For the adapter's attach factory.
    static std::shared_ptr<Application> attach();

private:
    // Label sets can't be opened by this application yet: every path is unknown.
    class NoLabelSets : public ::LabelSets
    {
    public:
        using ::LabelSets::LabelSets;
        std::shared_ptr<LabelSet> Item(const QString&) override { return nullptr; }
    };

    static QString setting(const QString& name);

    LbxQueues m_queues;
    NoLabelSets m_labelSets;
};
