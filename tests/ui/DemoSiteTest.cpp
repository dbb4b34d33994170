#include "platform/host/DemoSite.h"

#include "core/AddInControl.h"
#include "core/HandlerTable.h"
#include "core/clsComponent.h"
#include "core/clsComponents.h"
#include "platform/lbx/LbxApplication.h"
#include "platform/lbx/PortAddress.h"
#include "platform/lbx/QueueStore.h"
#include "services/ApplicationOptions.h"
#include "services/MessageCatalogue.h"
#include "services/SettingsAccess.h"
#include "services/SettingsStore.h"
#include "sim/SimPrinter.h"
#include "support/RecordingDialogs.h"
#include "ui/WidgetApplication.h"

#include <QApplication>
#include <QCryptographicHash>
#include <QDir>
#include <QFile>
#include <QMap>
#include <QSet>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace {
class DemoSiteTest : public ::testing::Test
{
protected:
    void SetUp() override
    {
        EnsureWidgetApplication();
        ASSERT_TRUE(m_folder.isValid());
        for (const char* variable : {"VIGIL_STORE", "XDG_DATA_HOME", "VIGIL_HOME", "LANGUAGE"})
            m_saved.insert(variable, qgetenv(variable));
        qputenv("VIGIL_STORE", QFile::encodeName(userStorePath()));
        qputenv("VIGIL_HOME", QFile::encodeName(m_folder.path()));
        qputenv("LANGUAGE", "en");
        IDialogs::install(m_dialogs);
        ApplicationOptions::process() = ApplicationOptions();
        MessageCatalogue::process() = MessageCatalogue();
        // The root's name comes from the messages.
        ASSERT_TRUE(QDir(m_folder.path()).mkpath("MSGen"));
        QFile messages(m_folder.filePath("MSGen/Vigil.msg"));
        ASSERT_TRUE(messages.open(QIODevice::WriteOnly));
        messages.write(QByteArray(22, '\n') + "All Printers\n");
    }

    void TearDown() override
    {
        SettingsStore::install(nullptr);
        IDialogs::install(nullptr);
        ApplicationOptions::process() = ApplicationOptions();
        MessageCatalogue::process() = MessageCatalogue();
        for (auto saved = m_saved.cbegin(); saved != m_saved.cend(); ++saved)
            if (saved.value().isNull())
                qunsetenv(saved.key().constData());
            else
                qputenv(saved.key().constData(), saved.value());
    }

    QString userStorePath() const { return m_folder.filePath(QStringLiteral("store.sqlite")); }

    static QStringList queueNames()
    {
        QStringList names;
        for (const QueueRecord& queue : QueueStore::load())
            names.append(queue.name);
        return names;
    }

    // The tree as start-up reads it.
    static std::shared_ptr<clsComponents> loadTree()
    {
        auto root = std::make_shared<clsComponents>();
        root->m_sID = AddInControl::RootId;
        root->CreateUI();
        root->LoadState(QStringLiteral("Printers"));
        return root;
    }

    QTemporaryDir m_folder;
    QMap<QByteArray, QByteArray> m_saved;
    std::shared_ptr<RecordingDialogs> m_dialogs = std::make_shared<RecordingDialogs>();
};

TEST_F(DemoSiteTest, AFreshDemoHasBothLinesOfSimulatedPrintersOfEveryKind)
{
    DemoSite::use(true);
    EXPECT_EQ(SettingsStore::process().filePath(), m_folder.filePath("demo.sqlite"));

    const auto root = loadTree();
    EXPECT_EQ(root->m_sName, QStringLiteral("All Printers"));
    ASSERT_EQ(root->Count(), 2);
    QMap<QString, qint32> numbers;
    QSet<QString> handlers;
    for (qsizetype index = 1; index <= root->Count(); ++index) {
        const auto group = std::dynamic_pointer_cast<clsComponents>(root->Item(index));
        ASSERT_NE(group, nullptr);
        EXPECT_EQ(group->m_sName, QStringLiteral("Line %1").arg(index));
        EXPECT_TRUE(group->m_sID.startsWith("GP"));
        EXPECT_TRUE(group->HasUI());
        EXPECT_GE(group->Count(), 4);
        for (qsizetype child = 1; child <= group->Count(); ++child) {
            const auto printer = std::dynamic_pointer_cast<clsComponent>(group->Item(child));
            ASSERT_NE(printer, nullptr);
            EXPECT_TRUE(printer->m_sID.startsWith("ID"));
            const auto handler = HandlerTable::createFor(printer->m_lRemoteObjectPrinterNumber);
            ASSERT_NE(handler, nullptr);
            EXPECT_EQ(printer->m_sRemoteObjectName, handler->GetObjectName());
            handlers.insert(handler->GetObjectName());
            // A coder's timed fault shows only through its error log.
            QString readsLog;
            EXPECT_EQ(printer->GetStoredSetting("GetErrorLog", readsLog),
                      handler->GetObjectName() == "clsDominoHandlerC");
            numbers.insert(printer->m_sName, printer->m_lRemoteObjectPrinterNumber);
        }
    }
    EXPECT_EQ(handlers, (QSet<QString>{"clsDominoHandlerC", "clsDominoHandlerA", "clsAveryHandler",
                                       "clsLBXPrinterHandler"}));

    // Every node has its queue, on a simulated printer that takes its knobs.
    const QList<QueueRecord> queues = QueueStore::load();
    EXPECT_EQ(queues.size(), numbers.size());
    QSet<QString> kinds;
    for (const QueueRecord& queue : queues) {
        EXPECT_EQ(numbers.value(queue.name, -1), queue.printerNumber) << queue.name.toStdString();
        const PortAddress address = PortAddress::parse(queue.portName);
        ASSERT_EQ(address.kind, PortAddress::Kind::Simulated) << queue.portName.toStdString();
        QString refusal;
        const auto simulated = SimPrinter::fromAddress(address.simAddress, refusal);
        ASSERT_NE(simulated, nullptr) << refusal.toStdString();
        kinds.insert(simulated->kind());
    }
    EXPECT_EQ(kinds, (QSet<QString>{"c-series", "a-series", "avery", "echo"}));

    ApplicationOptions::process() = ApplicationOptions();
    EXPECT_EQ(GetPollInterval(), ApplicationOptions::MinPollInterval);
    EXPECT_GT(GetPrintsRemainingInkLowLimit(), 0);
    QVariant administrators;
    EXPECT_EQ(ReadValue(HKEY_LOCAL_MACHINE, LbxApplication::SettingsKey, "Administrators",
                        administrators),
              0);
    EXPECT_EQ(administrators, QVariant(QString()));
    EXPECT_TRUE(m_dialogs->boxes().isEmpty());
    EXPECT_FALSE(QFile::exists(userStorePath()));
}

TEST_F(DemoSiteTest, AChangedDemoIsKeptUnlessFreshAndTheUsersStoreIsNeverTouched)
{
    {
        SettingsStore::install(std::make_shared<SettingsStore>(userStorePath()));
        QString problem;
        ASSERT_TRUE(QueueStore::add({"Real coder", "10.0.4.21:9100", 2100, "Line 1"}, problem));
        SettingsStore::install(nullptr);
    }
    const auto userStoreHash = [this] {
        QFile file(userStorePath());
        EXPECT_TRUE(file.open(QIODevice::ReadOnly));
        return QCryptographicHash::hash(file.readAll(), QCryptographicHash::Sha256);
    };
    const QByteArray before = userStoreHash();

    DemoSite::use(false);
    ASSERT_TRUE(queueNames().contains("Filler C1"));
    EXPECT_FALSE(queueNames().contains("Real coder"));
    QString problem;
    ASSERT_TRUE(QueueStore::remove("Filler C1", problem));

    DemoSite::use(false);
    EXPECT_FALSE(queueNames().contains("Filler C1"));
    DemoSite::use(true);
    EXPECT_TRUE(queueNames().contains("Filler C1"));

    SettingsStore::install(nullptr);
    EXPECT_EQ(userStoreHash(), before);
    EXPECT_TRUE(m_dialogs->boxes().isEmpty());
}

TEST_F(DemoSiteTest, WithoutAnExplicitStoreTheDemoSitsBesideTheDefaultOne)
{
    qunsetenv("VIGIL_STORE");
    qputenv("XDG_DATA_HOME", QFile::encodeName(m_folder.path()));
    const QString expected = m_folder.filePath("korvex-vigil/demo.sqlite");
    EXPECT_EQ(DemoSite::storePath(), expected);

    DemoSite::use(true);
    EXPECT_EQ(SettingsStore::process().filePath(), expected);
    EXPECT_FALSE(queueNames().isEmpty());
    EXPECT_FALSE(QFile::exists(m_folder.filePath("korvex-vigil/store.sqlite")));
}
} // namespace
