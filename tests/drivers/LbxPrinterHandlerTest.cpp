#include "HandlerFixture.h"
#include "core/HandlerTable.h"
#include "core/IProgressLog.h"
#include "drivers/clsLBXPrinterHandler.h"

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

class LbxPrinterHandlerTest : public HandlerFixture
{
protected:
    void SetUp() override
    {
        HandlerFixture::SetUp();
        InstallProgressLog(m_log);
    }

    void TearDown() override
    {
        InstallProgressLog(nullptr);
        HandlerFixture::TearDown();
    }

    // How often the node raised StatusChanged in one Process.
    static int raisedOnProcess(clsComponent& node)
    {
        int raised = 0;
        const auto connection =
            QObject::connect(&node, &clsComponent::StatusChanged, [&raised] { ++raised; });
        node.Process();
        QObject::disconnect(connection);
        return raised;
    }

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
    EXPECT_TRUE(HandlerTable::IsPrinterSupported(31337));
}

TEST_F(LbxPrinterHandlerTest, ItMirrorsItsQueue)
{
    auto& handler = node<clsLBXPrinterHandler>(QStringLiteral("Labeller 3"), 900);
    m_queue->portName = QStringLiteral("10.0.0.7:9100");
    EXPECT_EQ(handler.LBXPrinterType(), 900);
    EXPECT_EQ(handler.Port(), QStringLiteral("10.0.0.7:9100"));
    EXPECT_EQ(handler.HandlerFreindlyName(), QStringLiteral("Labeller 3 (friendly)"));
    // A new node shows a count of 0 until its first status update brings the handler's -1.
    EXPECT_EQ(m_node->TreeText(), QStringLiteral("Labeller 3: (0)"));
    EXPECT_EQ(raisedOnProcess(*m_node), 1);
    EXPECT_EQ(m_node->TreeText(), QStringLiteral("Labeller 3"));
    EXPECT_EQ(m_node->GetErrorState(), StateGood);
    handler.setPortBusy(true);
    EXPECT_EQ(m_node->GetErrorState(), StatePortBusy);
    m_node->setDisabled(true);
    EXPECT_EQ(m_node->GetErrorState(), StateDisabled);
    EXPECT_TRUE(m_node->Disabled());

    emit m_queue->PrintItemStatusChanged(QStringLiteral("7"), 4,
                                         QStringLiteral("JOB=7\nFMT=Carton\n"));
    emit m_queue->Error(41, QStringLiteral("Ribbon out"));
    emit m_queue->Message(QStringLiteral("Paused"));
    EXPECT_EQ(m_log->lines,
              (QStringList{"status Labeller 3 Carton 4", "error Labeller 3 Ribbon out 41",
                           "message Labeller 3 Paused"}));
    EXPECT_EQ(handler.lastPrintStatus(), 4);
    m_node->ShowProperties();
    EXPECT_EQ(m_queue->propertiesShown, 1);

    // Deleting the printer drops its queue from the application.
    handler.Delete();
    EXPECT_EQ(m_application->queues.Item(QStringLiteral("Labeller 3")), nullptr);
    EXPECT_EQ(handler.LBXPrinterType(), -1);
}

// Without a queue, or after it was removed under the handler: good, and quiet.
TEST_F(LbxPrinterHandlerTest, WithoutAQueueItShowsGoodAndStaysQuiet)
{
    clsComponent gone;
    gone.m_sName = QStringLiteral("Gone");
    gone.m_lRemoteObjectPrinterNumber = 900;
    EXPECT_EQ(raisedOnProcess(gone), 0);
    EXPECT_EQ(gone.GetErrorState(), StateGood);
    EXPECT_EQ(gone.LBXPrinterType(), -1);
    EXPECT_EQ(gone.GetComponent()->Port(), QString());

    node<clsLBXPrinterHandler>(QStringLiteral("Line 9"), 900);
    EXPECT_EQ(m_node->LBXPrinterType(), 900);
    m_application->queues.remove(QStringLiteral("Line 9"));
    EXPECT_EQ(m_node->LBXPrinterType(), -1);
    EXPECT_EQ(raisedOnProcess(*m_node), 0);
}
} // namespace
