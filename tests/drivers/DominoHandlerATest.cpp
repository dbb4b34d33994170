// The A-series frame and handler against frames written out by hand.

#include "ASeriesFrames.h"
#include "HandlerFixture.h"
#include "drivers/clsASeriesMessage.h"
#include "drivers/clsAlarms.h"
#include "drivers/clsDominoHandlerA.h"
#include "support/ScriptedConsole.h"

namespace {
TEST(ASeriesMessageTest, FramesAreBuiltAndReadByteForByte)
{
    clsASeriesMessage message;
    // The plain commands and the clock frame are checked as the handler sends them.
    EXPECT_EQ(message.BuildCommandWithData(9, 6, "ignored", true), hex("0200000000020009C0CD00"));
    EXPECT_EQ(message.GetDataLen(), 2);

    clsASeriesMessage parsed;
    const QByteArray frame = reply(233, hex("0201000502"));
    EXPECT_TRUE(parsed.ParseMessage(frame, 233));
    EXPECT_EQ(parsed.CommandType(), 2);
    EXPECT_EQ(parsed.GetDataSingle(1, 1), 2);
    EXPECT_EQ(parsed.GetDataSingle(9, 1), 0); // behind the end: 0, no failure
    EXPECT_EQ(parsed.GetDataRange(4, 7, 1), hex("05020000"));
    EXPECT_FALSE(clsASeriesMessage().ParseMessage(frame, 97)); // another id
    EXPECT_TRUE(clsASeriesMessage().ParseMessage(frame, -1));
    EXPECT_FALSE(clsASeriesMessage().ParseMessage(frame.left(10), -1));
    QByteArray broken = frame;
    broken[9] = char(broken.at(9) + 1);
    EXPECT_FALSE(clsASeriesMessage().ParseMessage(broken, -1));
    // A byte where a zero belongs passes the sum of the whole frame but not that of its fields.
    QByteArray dirty = frame;
    dirty[2] = 1;
    dirty[dirty.size() - 2] = char(quint8(dirty.at(dirty.size() - 2)) + 1);
    EXPECT_FALSE(clsASeriesMessage().ParseMessage(dirty, -1));
    // A checksum of 0x8000 and more compares unsigned.
    const QByteArray heavy = reply(1, QByteArray(200, char(0xFF)));
    EXPECT_GE(quint8(heavy.back()), 0x80);
    EXPECT_TRUE(clsASeriesMessage().ParseMessage(heavy, 1));

    ASSERT_TRUE(parsed.ParseMessage(reply(97, QByteArray("ab\0cd\0ef", 8)), 97));
    qint32 end = 0;
    EXPECT_EQ(parsed.GetStringNZ(1, 1, end), QStringLiteral("ab"));
    EXPECT_EQ(end, 3);
    EXPECT_EQ(parsed.GetStringNZ(7, 1, end), QString()); // no terminator before the end
    EXPECT_EQ(parsed.GetStringNZArray(1, 1), (QStringList{"ab", "cd", ""}));
}

class DominoHandlerATest : public HandlerFixture
{
protected:
    void SetUp() override
    {
        HandlerFixture::SetUp();
        writeCatalogue(400, {{9, "no answer to stage %1 sent at %2"},
                             {255, "Request '%2' failed: %1"},
                             {257, "not now"}});
        writeFile(QStringLiteral("MSGen/ASeriesAlerts.txt"),
                  "1\t0\tInk refill due\n2\t1\tSolvent low\n3\t2\tHigh voltage trip\n");
        ResetAlarmLookup();
        m_printer = &node<clsDominoHandlerA>(QStringLiteral("A1"), 2011);
    }

    void TearDown() override
    {
        ResetAlarmLookup();
        HandlerFixture::TearDown();
    }

    // Answers the round from its first request, each stage with its frame.
    void answerRound(const QByteArray& alarms)
    {
        m_printer->Process();
        m_queue->inject(reply(97, QByteArray("a\0b\0c\0Mk7\0CIJ\0Std\0", 18).prepend("xxxx")));
        m_queue->inject(reply(74, QByteArray("\0x\0 16 dot \0", 12)));
        m_queue->inject(reply(34, hex("141A0B16061E0F")));
        m_queue->inject(reply(64, hex("0A00000039300000")));
        m_queue->inject(reply(233, hex(alarms)));
        m_queue->inject(reply(69, QByteArray(12, '\0')));
    }

    clsDominoHandlerA* m_printer = nullptr;
};

TEST_F(DominoHandlerATest, ARoundReadsEveryValueAndTheAlarms)
{
    EXPECT_EQ(m_printer->GetErrorState(), StateNoAnswer); // until its first alarm reply
    answerRound("0201020300");
    EXPECT_EQ(m_queue->sent.size(), 6);
    EXPECT_EQ(m_queue->sent.at(1), hex("020000000003004A20006F00"));
    EXPECT_EQ(m_printer->currentStage(), clsDominoHandlerA::StageIdle);
    EXPECT_FALSE(m_queue->replyWanted);
    EXPECT_EQ((QStringList{m_printer->MachineType(), m_printer->InkSystem(),
                           m_printer->NozzleType(), m_printer->RasterType()}),
              (QStringList{"Mk7", "CIJ", "Std", "16 dot"}));
    EXPECT_EQ(m_printer->DateTime(), QDateTime(QDate(2026, 11, 22), QTime(6, 30, 15)));
    EXPECT_EQ(std::pair(m_printer->PrintDetected(), m_printer->PrintCount()), std::pair(10, 12345));
    // Level 0 then level 2: a fault, with the text of the level 2 alarm.
    EXPECT_EQ(m_printer->GetErrorState(), StateFault);
    EXPECT_EQ(m_printer->HighestAlert(), QStringLiteral("High voltage trip"));
    QStringList list;
    m_printer->PopulateAlertListBox(list);
    EXPECT_EQ(list, (QStringList{"Ink refill due (1)", "High voltage trip (3)"}));

    // Level 2 then level 1 keeps the level 2 text; no alarms gives healthy; an alarm the
    // catalogue doesn't know is a fault with no text, and a lower known one behind it adds none.
    const std::tuple<const char*, qint32, const char*> rounds[] = {
        {"02030002", StateFault, "High voltage trip"},
        {"00", StateGood, nullptr},
        {"016300", StateFault, ""},
        {"0263000200", StateFault, ""}};
    for (const auto& [alarms, state, alert] : rounds) {
        answerRound(alarms);
        EXPECT_EQ(m_printer->GetErrorState(), state) << alarms;
        EXPECT_TRUE(!alert || m_printer->HighestAlert() == QString::fromUtf8(alert)) << alarms;
    }
}

TEST_F(DominoHandlerATest, AFailedFrameMovesTheRoundOnAndErrorRepliesAreShown)
{
    m_printer->Process();
    m_printer->Process(); // a tick while a reply is awaited does nothing
    EXPECT_EQ(sent().size(), 1);
    m_queue->inject(reply(97, {}).left(8)); // a fragment: that request is skipped
    EXPECT_EQ(sent(), QList<QByteArray>{hex("020000000003004A20006F00")});
    m_queue->inject(reply(97, {})); // the wrong id: skipped too
    EXPECT_EQ(sent(), QList<QByteArray>{hex("0200000000020022204600")});
    m_queue->inject(reply(34, {}, 5)); // a refusal still moves on, and says why
    EXPECT_EQ(m_printer->HighestAlert(),
              QStringLiteral("Request 'Real Time Clock Set-up' failed: not now"));
    EXPECT_EQ(sent(), QList<QByteArray>{hex("0200000000020040206400")});
    for (const quint8 id : {64, 233, 69})
        m_queue->inject(reply(id, id == 233 ? hex("00") : QByteArray()));
    EXPECT_EQ(m_printer->currentStage(), clsDominoHandlerA::StageIdle);
    m_queue->inject(reply(1, {})); // at rest: dropped
    EXPECT_EQ(m_printer->currentStage(), clsDominoHandlerA::StageIdle);

    // A lost reply times out; the next tick starts a new round.
    m_printer->Process();
    later(5);
    m_printer->ProcessTimeout(5);
    EXPECT_EQ(m_printer->GetErrorState(), StateNoAnswer);
    EXPECT_EQ(m_printer->TimeoutMessage(), QStringLiteral("no answer to stage 1 sent at 06:30:00"));
    sent();
    m_printer->Process();
    EXPECT_EQ(sent(), QList<QByteArray>{hex("0200000000020061208500")});

    // Disabled at a tick or in the middle of a round, the engine comes to rest; the first tick
    // after it is enabled again starts a round.
    m_printer->setDisabled(true);
    EXPECT_EQ(m_printer->GetErrorState(), StateDisabled);
    m_queue->inject(reply(97, {}));
    m_printer->Process();
    EXPECT_TRUE(sent().isEmpty());
    m_printer->setDisabled(false);
    m_printer->Process();
    EXPECT_EQ(sent(), QList<QByteArray>{hex("0200000000020061208500")});
    m_printer->ResetCurrentCommand();
    m_printer->setDisabled(true);
    m_printer->Process();
    m_printer->setDisabled(false);
    m_printer->Process();
    EXPECT_EQ(sent(), QList<QByteArray>{hex("0200000000020061208500")});
}

TEST_F(DominoHandlerATest, TheClockAndTheNextRoundGoOutBackToBack)
{
    m_printer->SyncTime(QDateTime(QDate(2007, 9, 5), QTime(14, 7, 30)));
    EXPECT_EQ(sent(), (QList<QByteArray>{hex("020000000009002200140709050E071E8900"),
                                         hex("0200000000020061208500")}));
    m_queue->pendingItems = 1;
    m_printer->SyncTime(QDateTime(QDate(2007, 9, 5), QTime(14, 7, 30)));
    EXPECT_TRUE(sent().isEmpty());
    EXPECT_EQ(m_printer->currentStage(), clsDominoHandlerA::StageIdle);
}

TEST_F(DominoHandlerATest, TheConsoleSendsFramesAndShowsWhatComesBack)
{
    ScriptedConsole* console = nullptr;
    ICommandConsole::installFactory([&console] {
        auto made = std::make_unique<ScriptedConsole>();
        console = made.get();
        return made;
    });
    m_printer->InvokeCommandTesting();
    ASSERT_NE(console, nullptr);
    EXPECT_EQ(console->setup, std::make_tuple(true, false, true));
    EXPECT_EQ(console->commands.size(), 99);
    EXPECT_EQ(quint8(console->commands.at(98)), 255);

    console->frameCommand = ICommandConsole::FrameCommand{16, 1, "data", false};
    m_printer->FireCommandTest();
    EXPECT_EQ(sent(), QList<QByteArray>{clsASeriesMessage().BuildCommand(16, 1)});
    m_queue->inject(reply(16, "ok"));
    EXPECT_EQ(console->responses.last(), QString::fromLatin1(reply(16, "ok").toHex(' ')));
    m_printer->FireCommandTest();
    m_queue->inject("garbled");
    EXPECT_EQ(console->responses.last(), QStringLiteral("02 00 00 00 00 02 00 09 c0 cd 00"));
    m_printer->EndCommandTesting();
    ICommandConsole::installFactory(nullptr);
}
} // namespace
