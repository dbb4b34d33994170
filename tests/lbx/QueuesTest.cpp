#include "platform/lbx/IQueueDialogs.h"
#include "platform/lbx/LbxApplication.h"
#include "platform/lbx/LbxQueue.h"
#include "platform/lbx/LbxQueues.h"
#include "platform/lbx/QueueStore.h"
#include "platform/lbx/UserRights.h"
#include "services/SettingsAccess.h"
#include "support/EventLoop.h"
#include "support/ServicesFixture.h"

#include <QPointer>
#include <QSignalSpy>

namespace {
class ScriptedQueueDialogs : public IQueueDialogs
{
public:
    std::optional<QueueRecord> askForNewQueue() override { return std::exchange(next, {}); }
    void showProperties(const QueueRecord& record, const QString& reachability) override
    {
        shown << record.name + QStringLiteral(": ") + reachability;
    }

    std::optional<QueueRecord> next;
    QStringList shown;
};

class QueuesTest : public ServicesFixture
{
protected:
    void SetUp() override
    {
        ServicesFixture::SetUp();
        EnsureApplication();
        IQueueDialogs::install(m_queueDialogs);
    }
    void TearDown() override
    {
        IQueueDialogs::install(nullptr);
        ServicesFixture::TearDown();
    }

    static QueueRecord record(const QString& name, const QString& port = "sim:echo")
    {
        return {name, port, 2100, name + QStringLiteral(" coder")};
    }

    static void add(const QueueRecord& queue)
    {
        QString problem;
        ASSERT_TRUE(QueueStore::add(queue, problem)) << problem.toStdString();
    }

    // What another program on the machine does: its own connection to the same file.
    template <typename Step> void asAnotherProgram(Step&& step)
    {
        SettingsStore::install(std::make_shared<SettingsStore>(m_store->filePath()));
        step();
        SettingsStore::install(m_store);
    }

    static QStringList names(const Queues& queues)
    {
        QStringList list;
        for (const Queue* queue : queues.List())
            list << queue->Name();
        return list;
    }

    std::shared_ptr<ScriptedQueueDialogs> m_queueDialogs = std::make_shared<ScriptedQueueDialogs>();
};

TEST_F(QueuesTest, TheStoreKeepsQueuesByNameAndRefusesClashes)
{
    add(record("Line 1", "10.0.0.7:9100"));
    add({"Line 2", "/dev/ttyUSB0", 123, "Labeller"});
    EXPECT_EQ(QueueStore::load(),
              (QList<QueueRecord>{{"Line 1", "10.0.0.7:9100", 2100, "Line 1 coder"},
                                  {"Line 2", "/dev/ttyUSB0", 123, "Labeller"}}));

    QString problem;
    EXPECT_FALSE(QueueStore::add(record("LINE 1"), problem));
    EXPECT_TRUE(problem.contains("already")) << problem.toStdString();
    EXPECT_FALSE(QueueStore::add(record(" "), problem) || QueueStore::add(record("A\\B"), problem));
    // A line break would break every later backup of the store.
    EXPECT_EQ(QueueStore::add(record("Line\n4"), problem).kind, QueueStore::Outcome::Refused);
    EXPECT_EQ(problem, "\"Line\\n4\" can't be stored: a name may not hold a line break (\\n)");
    EXPECT_FALSE(QueueStore::remove("Line 9", problem));
    EXPECT_TRUE(problem.contains("no queue"));
    EXPECT_FALSE(QueueStore::remove("", problem));
    EXPECT_EQ(QueueStore::load().size(), 2);

    // Values of the wrong type, or missing, take their defaults.
    const QString key = QueueStore::QueuesKey + "\\Line 3";
    ASSERT_EQ(WriteValue(HKEY_LOCAL_MACHINE, key, "PrinterNumber", REG_SZ, "many"), 0);
    EXPECT_EQ(QueueStore::load().last(), (QueueRecord{"Line 3", "", 0, "Line 3"}));

    EXPECT_TRUE(QueueStore::remove("line 2", problem));
    EXPECT_EQ(QueueStore::load().size(), 2);
}

TEST_F(QueuesTest, QueuesAddedOrRemovedByAnotherProgramAreHeard)
{
    add(record("Line 1"));
    add(record("Line 3"));
    LbxQueues queues;
    QSignalSpy added(&queues, &Queues::PrinterAdded);
    QSignalSpy deleted(&queues, &Queues::PrinterDeleted);
    EXPECT_EQ(names(queues), (QStringList{"Line 1", "Line 3"}));
    QPointer<Queue> line1 = queues.Item("Line 1");

    asAnotherProgram([] { add(record("Line 2")); });
    ASSERT_TRUE(WaitUntil([&] { return added.count() == 1; }, 3000));
    EXPECT_EQ(added.at(0).at(0).toString(), QStringLiteral("Line 2"));
    EXPECT_EQ(names(queues), (QStringList{"Line 1", "Line 2", "Line 3"})); // the store's order

    asAnotherProgram([] {
        QString problem;
        ASSERT_TRUE(QueueStore::remove("Line 1", problem));
    });
    ASSERT_TRUE(WaitUntil([&] { return deleted.count() == 1; }, 3000));
    EXPECT_EQ(deleted.at(0).at(0).toString(), QStringLiteral("Line 1"));
    EXPECT_EQ(queues.Item("Line 1"), nullptr);
    EXPECT_TRUE(WaitUntil([&] { return line1.isNull(); }, 1000)); // gone once events ran

    // A port changed elsewhere reaches the queue that is there.
    asAnotherProgram([] {
        WriteValue(HKEY_LOCAL_MACHINE, QueueStore::QueuesKey + "\\Line 2", "PortName", REG_SZ,
                   "sim:echo?delay=1");
    });
    ASSERT_TRUE(
        WaitUntil([&] { return queues.Item("Line 2")->PortName() == "sim:echo?delay=1"; }, 3000));
    EXPECT_EQ(added.count(), 1);
}

TEST_F(QueuesTest, AddingAndRemovingHereIsToldOnceAndStored)
{
    LbxQueues queues;
    QSignalSpy added(&queues, &Queues::PrinterAdded);
    QSignalSpy deleted(&queues, &Queues::PrinterDeleted);

    EXPECT_EQ(queues.AddQueue(), nullptr); // the user gave up
    m_queueDialogs->next = record("Line 1");
    Queue* line1 = queues.AddQueue();
    ASSERT_NE(line1, nullptr);
    EXPECT_EQ(line1->FriendlyName(), QStringLiteral("Line 1 coder"));
    EXPECT_EQ(added.count(), 1);
    queues.reload(); // what the store says now is what was told
    EXPECT_EQ(added.count(), 1);
    EXPECT_EQ(QueueStore::load().size(), 1);

    m_queueDialogs->next = record("line 1");
    EXPECT_EQ(queues.AddQueue(), nullptr);
    ASSERT_EQ(m_dialogs->boxes().size(), 1);
    EXPECT_TRUE(m_dialogs->boxes()[0].text.contains("already"));

    line1->ShowPrinterProperties();
    EXPECT_EQ(m_queueDialogs->shown, QStringList{"Line 1: connected"});

    queues.RemoveQueue("Line 1");
    EXPECT_EQ(deleted.count(), 1);
    EXPECT_TRUE(queues.List().isEmpty());
    EXPECT_TRUE(QueueStore::load().isEmpty());
    queues.RemoveQueue("Line 1");
    EXPECT_EQ(deleted.count(), 1);
    EXPECT_EQ(m_dialogs->boxes().size(), 2);
}

TEST_F(QueuesTest, TheApplicationReadsItsSettingsAndTheUsersRight)
{
    LbxApplication application;
    EXPECT_TRUE(application.IsAdministrator()); // nobody named: everybody may
    const auto set = [](const char* name, const QString& value) {
        WriteValue(HKEY_LOCAL_MACHINE, LbxApplication::SettingsKey, name, REG_SZ, value);
    };
    set("LabelRootFolder", "/srv/labels");
    set("DefaultQueueName", "Line 1");
    set("Administrators", "@no-such-group-here");
    EXPECT_EQ(application.LabelRootFolder(), QStringLiteral("/srv/labels"));
    EXPECT_EQ(application.DefaultQueueName(), QStringLiteral("Line 1"));
    EXPECT_EQ(application.FileViewRootFolder(), QStringLiteral("/srv/labels")); // the label root
    EXPECT_FALSE(application.IsAdministrator());
    set("Administrators", "someone, " + UserRights::userName());
    EXPECT_TRUE(application.IsAdministrator());
    EXPECT_EQ(application.UserName(), UserRights::userName());
    EXPECT_EQ(application.LabelSets().Item("/srv/labels/a.lbs"), nullptr);
}
} // namespace
