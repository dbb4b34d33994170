// The Avery handler against status frames written out by hand.

#include "HandlerFixture.h"
#include "drivers/clsAveryErrorCodes.h"
#include "drivers/clsAveryHandler.h"

namespace {
class AveryHandlerTest : public HandlerFixture
{
protected:
    void SetUp() override
    {
        HandlerFixture::SetUp();
        writeCatalogue(20, {{9, "no answer %1 at %2"}});
        writeFile(QStringLiteral("MSGen/AveryErrors.txt"),
                  "01,0,Material low\n02,1,Ribbon end, replace the ribbon\n03,3,Odd one\n"
                  "0004,2,Head open\n");
        clsAveryErrorCodes::reset();
    }

    void TearDown() override
    {
        clsAveryErrorCodes::reset();
        HandlerFixture::TearDown();
    }

    clsAveryHandler& labeller(qint16 number)
    {
        return node<clsAveryHandler>(QStringLiteral("Labeller"), number);
    }
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
    for (const auto& [number, letter] : {std::pair{126, "A"}, {781, "E"}, {158, "G"}, {799, "X"}})
        EXPECT_EQ(clsAveryHandler::ModelLetter(number), QLatin1String(letter)) << number;
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
    EXPECT_EQ(sent(), (QList<QByteArray>{"#!A1#!SR#!P1", "#!A1#!SP#!P1", "#!A1#!CA#!P1"}));
    EXPECT_TRUE(m_queue->replyWantedWrites.isEmpty());

    avery.Process();
    m_queue->inject("S00Ax01M00001F00001K14");
    avery.Process();
    later(5);
    avery.ProcessTimeout(5);
    EXPECT_EQ(avery.GetErrorState(), StateNoAnswer);
    EXPECT_EQ(avery.TimeoutMessage(), QStringLiteral("no answer  at 06:30:00"));
    m_queue->inject("S00Ax01M00001F00001K14"); // late, but welcome
    EXPECT_EQ(avery.GetErrorState(), StateGood);
    avery.setPortBusy(true);
    EXPECT_EQ(avery.GetErrorState(), StatePortBusy);
    // A disabled printer is sent nothing, whether a request was answered or not.
    sent();
    avery.Process();
    avery.setDisabled(true);
    EXPECT_EQ(avery.GetErrorState(), StateDisabled);
    avery.Process();
    avery.StopPrinting();
    EXPECT_EQ(sent(), QList<QByteArray>{"#!A1#!X0#!P1"});
    avery.setDisabled(false);
    avery.Process();
    EXPECT_EQ(sent(), QList<QByteArray>{"#!A1#!X0#!P1"});
}

} // namespace
