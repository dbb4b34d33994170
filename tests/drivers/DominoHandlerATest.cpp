// The A-series frame and handler against frames written out by hand.

#include "core/ErrorColours.h"
#include "core/PresentTime.h"
#include "core/clsComponent.h"
#include "drivers/clsASeriesMessage.h"
#include "drivers/clsAlarms.h"
#include "drivers/clsDominoHandlerA.h"
#include "printing/clsLBXHandler.h"
#include "support/FakeApplication.h"
#include "support/FakeClock.h"
#include "support/ScriptedConsole.h"
#include "support/ServicesFixture.h"

#include <QMap>

namespace {
QByteArray hex(const char* text)
{
    return QByteArray::fromHex(text);
}

// A reply frame of that id and type with that data, checksum and all.
QByteArray reply(quint8 id, const QByteArray& data, qint32 type = 2)
{
    QByteArray frame = QByteArray("\x02\0\0\0\0", 5);
    frame += char((data.size() + 2) & 0xFF);
    frame += char((data.size() + 2) >> 8);
    frame += char(id);
    frame += char(type << 5);
    frame += data;
    quint16 sum = 0;
    for (const char byte : frame)
        sum += quint8(byte);
    frame += char(sum & 0xFF);
    frame += char(sum >> 8);
    return frame;
}

TEST(ASeriesMessageTest, FramesAreBuiltAndReadByteForByte)
{
    clsASeriesMessage message;
    EXPECT_EQ(message.BuildCommand(97, 1), hex("0200000000020061208500"));
    EXPECT_EQ(message.BuildCommand(34, 1), hex("0200000000020022204600"));
    EXPECT_EQ(message.BuildCommandWithData(74, 1, QByteArray(1, '\0'), false), hex("02000000000300"
                                                                                   "4A20006F00"));
    EXPECT_EQ(message.BuildCommandWithData(34, 0,
                                           hex("14070905"
                                               "0E071E"),
                                           false),
              hex("020000000009002200140709050E071E8900"));
    EXPECT_EQ(message.BuildCommandWithData(9, 6, "ignored", true), hex("02000000000200"
                                                                       "09C0CD00"));
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

    clsASeriesMessage strings;
    ASSERT_TRUE(strings.ParseMessage(reply(97, QByteArray("ab\0cd\0ef", 8)), 97));
    qint32 end = 0;
    EXPECT_EQ(strings.GetStringNZ(1, 1, end), QStringLiteral("ab"));
    EXPECT_EQ(end, 3);
    EXPECT_EQ(strings.GetStringNZ(7, 1, end), QString()); // no terminator before the end
    EXPECT_EQ(strings.GetStringNZArray(1, 1), (QStringList{"ab", "cd", ""}));
}

class DominoHandlerATest : public ServicesFixture
{
protected:
    void SetUp() override
    {
        ServicesFixture::SetUp();
        const QMap<int, QByteArray> messages{{9, "no answer to stage %1 sent at %2"},
                                             {255, "Request '%2' failed: %1"},
                                             {256, "unknown command"},
                                             {257, "not now"},
                                             {258, "bad data"}};
        QByteArray catalogue;
        for (int line = 1; line <= 400; ++line)
            catalogue += messages.value(line) + '\n';
        writeMessageFile(QStringLiteral("en"), catalogue);
        writeFile(QStringLiteral("MSGen/ASeriesAlerts.txt"),
                  "1\t0\tInk refill due\n2\t1\tSolvent low\n3\t2\tHigh voltage trip\n");
        ResetAlarmLookup();
        m_clock->setNow(QDateTime(QDate(2026, 11, 22), QTime(6, 30)));
        InstallClock(m_clock);
        InstallApplicationFactory([this] { return m_application; });
        m_queue = &m_application->queues.add(QStringLiteral("A1"), 2011);
        m_node->m_sID = QStringLiteral("ID1");
        m_node->m_sName = QStringLiteral("A1");
        m_node->m_lRemoteObjectPrinterNumber = 2011;
        m_printer = qobject_cast<clsDominoHandlerA*>(m_node->GetComponent());
        ASSERT_NE(m_printer, nullptr);
    }

    void TearDown() override
    {
        m_node.reset();
        ResetAlarmLookup();
        ReleaseGlobalLBX();
        InstallApplicationFactory(nullptr);
        InstallClock(nullptr);
        ServicesFixture::TearDown();
    }

    QList<QByteArray> sent() { return std::exchange(m_queue->sent, {}); }

    // Answers the round from its first request, each stage with its frame.
    void answerRound(const QByteArray& alarms)
    {
        m_printer->Process();
        m_queue->inject(reply(97, QByteArray("a\0b\0c\0Mk7\0CIJ\0Std\0", 18).prepend("xxxx")));
        m_queue->inject(reply(74, QByteArray("\0x\0 16 dot \0", 12)));
        m_queue->inject(reply(34, hex("141A0B16061E0F")));
        m_queue->inject(reply(64, hex("0A000000"
                                      "39300000")));
        m_queue->inject(reply(233, alarms));
        m_queue->inject(reply(69, QByteArray(12, '\0')));
    }

    std::shared_ptr<FakeClock> m_clock = std::make_shared<FakeClock>();
    std::shared_ptr<FakeApplication> m_application = std::make_shared<FakeApplication>();
    FakeQueue* m_queue = nullptr;
    std::shared_ptr<clsComponent> m_node = std::make_shared<clsComponent>();
    clsDominoHandlerA* m_printer = nullptr;
};

TEST_F(DominoHandlerATest, ARoundReadsEveryValueAndTheAlarms)
{
    EXPECT_EQ(m_printer->GetErrorState(), StateNoAnswer); // until its first alarm reply
    answerRound(hex("020102"
                    "0300"));
    EXPECT_EQ(m_queue->sent.size(), 6);
    EXPECT_EQ(m_queue->sent.at(1), hex("02000000000300"
                                       "4A20006F00"));
    EXPECT_EQ(m_printer->currentStage(), clsDominoHandlerA::StageIdle);
    EXPECT_FALSE(m_queue->replyWanted);
    EXPECT_EQ(m_printer->MachineType(), QStringLiteral("Mk7"));
    EXPECT_EQ(m_printer->InkSystem(), QStringLiteral("CIJ"));
    EXPECT_EQ(m_printer->NozzleType(), QStringLiteral("Std"));
    EXPECT_EQ(m_printer->RasterType(), QStringLiteral("16 dot"));
    EXPECT_EQ(m_printer->DateTime(), QDateTime(QDate(2026, 11, 22), QTime(6, 30, 15)));
    EXPECT_EQ(m_printer->PrintDetected(), 10);
    EXPECT_EQ(m_printer->PrintCount(), 12345);
    // Level 0 then level 2: a fault, with the text of the level 2 alarm.
    EXPECT_EQ(m_printer->GetErrorState(), StateFault);
    EXPECT_EQ(m_printer->HighestAlert(), QStringLiteral("High voltage trip"));
    QStringList list;
    m_printer->PopulateAlertListBox(list);
    EXPECT_EQ(list, (QStringList{"Ink refill due (1)", "High voltage trip (3)"}));

    // Level 2 then level 1 keeps the level 2 text; no alarms gives healthy.
    sent();
    answerRound(hex("02030002"));
    EXPECT_EQ(m_printer->HighestAlert(), QStringLiteral("High voltage trip"));
    answerRound(hex("00"));
    EXPECT_EQ(m_printer->GetErrorState(), StateGood);

    // An alarm the catalogue doesn't know is a fault with no text, until a known one speaks.
    answerRound(hex("01"
                    "6300"));
    EXPECT_EQ(m_printer->GetErrorState(), StateFault);
    EXPECT_EQ(m_printer->HighestAlert(), QString());
    answerRound(hex("02"
                    "6300"
                    "0200"));
    EXPECT_EQ(m_printer->GetErrorState(), StateFault);
    EXPECT_EQ(m_printer->HighestAlert(), QString()); // 2 is below the fault already reached
}

TEST_F(DominoHandlerATest, AFailedFrameMovesTheRoundOnAndErrorRepliesAreShown)
{
    m_printer->Process();
    m_printer->Process(); // a tick while a reply is awaited does nothing
    EXPECT_EQ(sent().size(), 1);
    m_queue->inject(reply(97, {}).left(8)); // a fragment: that request is skipped
    EXPECT_EQ(sent(), QList<QByteArray>{hex("02000000000300"
                                            "4A20006F00")});
    m_queue->inject(reply(97, {})); // the wrong id: skipped too
    EXPECT_EQ(sent(), QList<QByteArray>{hex("0200000000020022204600")});
    m_queue->inject(reply(34, {}, 5)); // a refusal still moves on, and says why
    EXPECT_EQ(m_printer->HighestAlert(),
              QStringLiteral("Request 'Real Time Clock Set-up' failed: not now"));
    EXPECT_EQ(sent(), QList<QByteArray>{hex("0200000000020040206400")});
    m_queue->inject(reply(64, {}));
    m_queue->inject(reply(233, hex("00")));
    m_queue->inject(reply(69, {}));
    EXPECT_EQ(m_printer->currentStage(), clsDominoHandlerA::StageIdle);
    m_queue->inject(reply(1, {})); // at rest: dropped
    EXPECT_EQ(m_printer->currentStage(), clsDominoHandlerA::StageIdle);

    // A lost reply times out; the next tick starts a new round.
    m_printer->Process();
    m_clock->setNow(m_clock->now().addSecs(5));
    m_printer->ProcessTimeout(5);
    EXPECT_EQ(m_printer->GetErrorState(), StateNoAnswer);
    EXPECT_EQ(m_printer->TimeoutMessage(), QStringLiteral("no answer to stage 1 sent at 06:30:00"));
    sent();
    m_printer->Process();
    EXPECT_EQ(sent(), QList<QByteArray>{hex("0200000000020061208500")});

    m_printer->setDisabled(true);
    EXPECT_EQ(m_printer->GetErrorState(), StateDisabled);
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
