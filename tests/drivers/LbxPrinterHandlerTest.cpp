#include "core/ErrorColours.h"
#include "core/GroupHandler.h"
#include "core/HandlerTable.h"
#include "core/IProgressLog.h"
#include "core/clsComponent.h"
#include "drivers/clsLBXPrinterHandler.h"
#include "printing/clsLBXHandler.h"
#include "support/FakeApplication.h"
#include "support/ServicesFixture.h"

namespace {
class RecordingLog : public IProgressLog
{
public:
    void AddStatusItem(const QString& p, const QString& m, qint32 s) override
    {
        lines << QStringLiteral("status %1 %2 %3").arg(p, m).arg(s);
    }
    void AddErrorItem(const QString& p, const QString& m, qint32 c) override
    {
        lines << QStringLiteral("error %1 %2 %3").arg(p, m).arg(c);
    }
    void AddMessageItem(const QString& p, const QString& m) override
    {
        lines << QStringLiteral("message %1 %2").arg(p, m);
    }
    void ShowMe() override {}
    QStringList lines;
};

class LbxPrinterHandlerTest : public ServicesFixture
{
protected:
    void SetUp() override
    {
        ServicesFixture::SetUp();
        InstallApplicationFactory([this] { return m_application; });
        InstallProgressLog(m_log);
    }

    void TearDown() override
    {
        InstallProgressLog(nullptr);
        ReleaseGlobalLBX();
        InstallApplicationFactory(nullptr);
        ServicesFixture::TearDown();
    }

    std::shared_ptr<FakeApplication> m_application = std::make_shared<FakeApplication>();
    std::shared_ptr<RecordingLog> m_log = std::make_shared<RecordingLog>();
};

TEST_F(LbxPrinterHandlerTest, EveryNumberNoOtherClassClaimsIsALocalPrinter)
{
    for (qint32 number : {784, 785, 122, 170, 800, 1999, 2020, 2099, 2200, -7}) {
        clsComponent node;
        node.m_lRemoteObjectPrinterNumber = number;
        EXPECT_NE(qobject_cast<clsLBXPrinterHandler*>(node.GetComponent()), nullptr) << number;
        EXPECT_EQ(node.m_sRemoteObjectControl, QStringLiteral("ctlLBXPrinterUI"));
    }
    // The printer kinds the drivers claim, at both ends of their ranges.
    const std::pair<qint32, const char*> claimed[] = {
        {2000, "clsDominoHandlerC"}, {2199, "clsDominoHandlerC"}, {2010, "clsDominoHandlerA"},
        {2019, "clsDominoHandlerA"}, {123, "clsAveryHandler"},    {799, "clsAveryHandler"},
        {783, "clsAveryHandler"},    {786, "clsAveryHandler"},
    };
    for (const auto& [number, handler] : claimed) {
        clsComponent node;
        node.m_lRemoteObjectPrinterNumber = number;
        ASSERT_NE(node.GetComponent(), nullptr);
        EXPECT_EQ(node.GetComponent()->GetObjectName(), QLatin1String(handler)) << number;
    }
    clsComponent dashboard;
    EXPECT_NE(qobject_cast<GroupHandler*>(dashboard.GetComponent()), nullptr);
    EXPECT_TRUE(HandlerTable::IsPrinterSupported(31337));
}

TEST_F(LbxPrinterHandlerTest, ItMirrorsItsQueue)
{
    FakeQueue& queue = m_application->queues.add(QStringLiteral("Labeller 3"), 900,
                                                 QStringLiteral("10.0.0.7:9100"));
    clsComponent node;
    node.m_sID = QStringLiteral("ID1");
    node.m_sName = QStringLiteral("Labeller 3");
    node.m_lRemoteObjectPrinterNumber = 900;
    auto* handler = qobject_cast<clsLBXPrinterHandler*>(node.GetComponent());
    ASSERT_NE(handler, nullptr);
    EXPECT_EQ(handler->LBXPrinterType(), 900);
    EXPECT_EQ(handler->Port(), QStringLiteral("10.0.0.7:9100"));
    EXPECT_EQ(handler->HandlerFreindlyName(), QStringLiteral("Labeller 3 (friendly)"));
    // A new node shows a count of 0 until its first status update brings the handler's -1.
    EXPECT_EQ(node.TreeText(), QStringLiteral("Labeller 3: (0)"));
    int raised = 0;
    QObject::connect(&node, &clsComponent::StatusChanged, [&raised] { ++raised; });
    node.Process();
    EXPECT_EQ(raised, 1);
    EXPECT_EQ(node.TreeText(), QStringLiteral("Labeller 3"));
    EXPECT_EQ(node.GetErrorState(), StateGood);
    handler->setPortBusy(true);
    EXPECT_EQ(node.GetErrorState(), StatePortBusy);
    node.setDisabled(true);
    EXPECT_EQ(node.GetErrorState(), StateDisabled);
    EXPECT_TRUE(node.Disabled());

    emit queue.PrintItemStatusChanged(QStringLiteral("7"), 4,
                                      QStringLiteral("JOB=7\nFMT=Carton\n"));
    emit queue.Error(41, QStringLiteral("Ribbon out"));
    emit queue.Message(QStringLiteral("Paused"));
    EXPECT_EQ(m_log->lines,
              (QStringList{"status Labeller 3 Carton 4", "error Labeller 3 Ribbon out 41",
                           "message Labeller 3 Paused"}));
    EXPECT_EQ(handler->lastPrintStatus(), 4);

    node.ShowProperties();
    EXPECT_EQ(queue.propertiesShown, 1);

    // Deleting the printer drops its queue from the application.
    handler->Delete();
    EXPECT_EQ(m_application->queues.Item(QStringLiteral("Labeller 3")), nullptr);
    EXPECT_EQ(handler->LBXPrinterType(), -1);
}

TEST_F(LbxPrinterHandlerTest, WithoutAQueueItShowsGoodAndStaysQuiet)
{
    clsComponent node;
    node.m_sName = QStringLiteral("Gone");
    node.m_lRemoteObjectPrinterNumber = 900;
    int raised = 0;
    QObject::connect(&node, &clsComponent::StatusChanged, [&raised] { ++raised; });
    node.Process();
    EXPECT_EQ(raised, 0);
    EXPECT_EQ(node.GetErrorState(), StateGood);
    EXPECT_EQ(node.LBXPrinterType(), -1);
    EXPECT_EQ(node.GetComponent()->Port(), QString());
}

TEST_F(LbxPrinterHandlerTest, AQueueRemovedUnderTheHandlerIsForgotten)
{
    m_application->queues.add(QStringLiteral("Line 9"), 900);
    clsComponent node;
    node.m_sName = QStringLiteral("Line 9");
    node.m_lRemoteObjectPrinterNumber = 900;
    EXPECT_EQ(node.LBXPrinterType(), 900);
    m_application->queues.remove(QStringLiteral("Line 9"));
    EXPECT_EQ(node.LBXPrinterType(), -1);
    int raised = 0;
    QObject::connect(&node, &clsComponent::StatusChanged, [&raised] { ++raised; });
    node.Process();
    EXPECT_EQ(raised, 0);
}
} // namespace
