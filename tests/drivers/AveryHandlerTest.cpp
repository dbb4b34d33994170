// The Avery handler against status frames written out by hand.

#include "core/ErrorColours.h"
#include "core/PresentTime.h"
#include "core/clsComponent.h"
#include "drivers/clsAveryErrorCodes.h"
#include "drivers/clsAveryHandler.h"
#include "printing/clsLBXHandler.h"
#include "sim/SimRegistry.h"
#include "support/EnginePump.h"
#include "support/FakeApplication.h"
#include "support/FakeClock.h"
#include "support/ServicesFixture.h"

namespace {
class AveryHandlerTest : public ServicesFixture
{
protected:
    void SetUp() override
    {
        ServicesFixture::SetUp();
        QByteArray catalogue;
        for (int line = 1; line <= 20; ++line)
            catalogue += line == 9 ? "no answer %1 at %2\n" : "\n";
        writeMessageFile(QStringLiteral("en"), catalogue);
        writeFile(QStringLiteral("MSGen/AveryErrors.txt"),
                  "01,0,Material low\n02,1,Ribbon end, replace the ribbon\n03,3,Odd one\n"
                  "0004,2,Head open\n");
        clsAveryErrorCodes::reset();
        m_clock->setNow(QDateTime(QDate(2026, 11, 22), QTime(6, 30)));
        InstallClock(m_clock);
        InstallApplicationFactory([this] { return m_application; });
    }

    void TearDown() override
    {
        m_node.reset();
        clsAveryErrorCodes::reset();
        ReleaseGlobalLBX();
        InstallApplicationFactory(nullptr);
        InstallClock(nullptr);
        ServicesFixture::TearDown();
    }

    clsAveryHandler& labeller(qint16 printerNumber)
    {
        m_queue = &m_application->queues.add(QStringLiteral("Labeller"), printerNumber);
        m_node = std::make_shared<clsComponent>();
        m_node->m_sID = QStringLiteral("ID1");
        m_node->m_sName = QStringLiteral("Labeller");
        m_node->m_lRemoteObjectPrinterNumber = printerNumber;
        auto* made = qobject_cast<clsAveryHandler*>(m_node->GetComponent());
        EXPECT_NE(made, nullptr);
        return *made;
    }

    std::shared_ptr<FakeClock> m_clock = std::make_shared<FakeClock>();
    std::shared_ptr<FakeApplication> m_application = std::make_shared<FakeApplication>();
    FakeQueue* m_queue = nullptr;
    std::shared_ptr<clsComponent> m_node;
};

TEST_F(AveryHandlerTest, AShortFrameIsReadFieldByField)
{
    clsAveryHandler& avery = labeller(123);
    EXPECT_EQ(avery.GetErrorState(), StateNoAnswer); // until its first data
    avery.Process();
    avery.Process(); // every tick asks, answered or not
    EXPECT_EQ(m_queue->sent, (QList<QByteArray>{"#!A1#!X0#!P1", "#!A1#!X0#!P1"}));
    EXPECT_TRUE(m_queue->replyWanted);

    m_queue->inject("S00Ax01M001");
    EXPECT_EQ(avery.LabelsToPrint, 0); // half a frame waits for the rest
    m_queue->inject("23F04096K12 and more");
    EXPECT_EQ(avery.FormatInPrinter, 1);
    EXPECT_EQ(avery.LabelsToPrint, 123);
    EXPECT_EQ(avery.PrintCount(), 123);
    EXPECT_EQ(avery.FreeBytesInBuffer, 4096);
    EXPECT_EQ(avery.EPROMVersion, QStringLiteral("12"));
    EXPECT_FALSE(m_queue->replyWanted);
    EXPECT_EQ(avery.GetErrorState(), StateGood);
    // What stood behind the frame went with it.
    m_queue->inject("S01Ax12M00007F00100K13");
    EXPECT_EQ(avery.LabelsToPrint, 7);

    // Flagged errors by their level: 0 a warning, 1 and 2 a fault, others no answer.
    const std::pair<const char*, qint32> levels[] = {
        {"01", StateWarning}, {"02", StateFault}, {"03", StateNoAnswer}, {"99", StateWarning}};
    for (const auto& [code, state] : levels) {
        m_queue->inject(QByteArray("S") + code + "Ax11M00007F00100K13");
        EXPECT_EQ(avery.ErrorCode(), QString::fromLatin1(code));
        EXPECT_EQ(avery.GetErrorState(), state) << code;
    }
    m_queue->inject("S02Ax11M00007F00100K13");
    EXPECT_EQ(avery.HighestAlert(), QStringLiteral("02 Ribbon end, replace the ribbon"));
    EXPECT_EQ(avery.ErrorMessage(), QStringLiteral("Ribbon end, replace the ribbon"));

    // Bad markers or digits that aren't digits change nothing.
    m_queue->inject("S00Bx01M00001F00001K14");
    m_queue->inject("S00Ax01M0x001F00001K14");
    EXPECT_EQ(avery.ErrorCode(), QStringLiteral("02"));
    EXPECT_EQ(avery.LabelsToPrint, 7);
    // A flag other than "1" stores no code.
    m_queue->inject("S02Ax01M00007F00100K13");
    EXPECT_EQ(avery.ErrorCode(), QString());
    EXPECT_EQ(avery.HighestAlert(), QString());
}

TEST_F(AveryHandlerTest, TheHModelsSendTheLongFrame)
{
    EXPECT_EQ(clsAveryHandler::ModelLetter(126), QStringLiteral("A"));
    EXPECT_EQ(clsAveryHandler::ModelLetter(781), QStringLiteral("E"));
    EXPECT_EQ(clsAveryHandler::ModelLetter(158), QStringLiteral("G"));
    EXPECT_EQ(clsAveryHandler::ModelLetter(799), QStringLiteral("X"));
    clsAveryHandler& avery = labeller(152);
    m_queue->inject("S0004Ax12M000123F004096KV1.2 long    ");
    EXPECT_EQ(avery.LabelsToPrint, 0);
    m_queue->inject("   ");
    EXPECT_EQ(avery.ErrorCode(), QStringLiteral("0004"));
    EXPECT_EQ(avery.FormatInPrinter, 2);
    EXPECT_EQ(avery.LabelsToPrint, 123);
    EXPECT_EQ(avery.FreeBytesInBuffer, 4096);
    EXPECT_EQ(avery.EPROMVersion, QStringLiteral("V1.2 long"));
    EXPECT_EQ(avery.GetErrorState(), StateFault);
}

TEST_F(AveryHandlerTest, ActionsAndTimeOuts)
{
    clsAveryHandler& avery = labeller(780);
    avery.StartPrinting();
    avery.StopPrinting();
    avery.ClearPrinter();
    EXPECT_EQ(m_queue->sent, (QList<QByteArray>{"#!A1#!SR#!P1", "#!A1#!SP#!P1", "#!A1#!CA#!P1"}));
    EXPECT_TRUE(m_queue->replyWantedWrites.isEmpty());

    avery.Process();
    m_queue->inject("S00Ax01M00001F00001K14");
    avery.Process();
    m_clock->setNow(m_clock->now().addSecs(5));
    avery.ProcessTimeout(5);
    EXPECT_EQ(avery.GetErrorState(), StateNoAnswer);
    EXPECT_EQ(avery.TimeoutMessage(), QStringLiteral("no answer  at 06:30:00"));
    m_queue->inject("S00Ax01M00001F00001K14"); // late, but welcome
    EXPECT_EQ(avery.GetErrorState(), StateGood);
    avery.setPortBusy(true);
    EXPECT_EQ(avery.GetErrorState(), StatePortBusy);
    avery.setDisabled(true);
    EXPECT_EQ(avery.GetErrorState(), StateDisabled);
}
// Against the simulated printer: start, stop and clear change what it reports.
TEST_F(AveryHandlerTest, StartStopAndClearChangeTheSimulatedPrinter)
{
    QString error;
    auto engine = SimRegistry::create(
        QStringLiteral("avery"),
        *SimKnobs::fromQuery(QStringLiteral("labels=250&printing=false"), error), error);
    ASSERT_TRUE(engine) << error.toStdString();
    clsAveryHandler& avery = labeller(123);
    EnginePump printer(*m_queue, std::move(engine));
    const auto poll = [&](int seconds) {
        avery.Process();
        printer.run(QDateTime(QDate(2026, 11, 22), QTime(6, 30)).addSecs(seconds));
    };
    poll(0);
    EXPECT_EQ(avery.FormatInPrinter, 0);
    EXPECT_EQ(avery.LabelsToPrint, 250);
    avery.StartPrinting();
    poll(1);
    EXPECT_EQ(avery.FormatInPrinter, 1);
    poll(11);
    EXPECT_EQ(avery.LabelsToPrint, 240); // printing, a label a second
    avery.StopPrinting();
    poll(12);
    EXPECT_EQ(avery.FormatInPrinter, 0);
    avery.ClearPrinter();
    poll(13);
    EXPECT_EQ(avery.LabelsToPrint, 0);
    EXPECT_EQ(avery.GetErrorState(), StateGood);
}
} // namespace
