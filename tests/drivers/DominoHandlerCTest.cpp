// The C-series handler against replies written out by hand, byte for byte.

#include "HandlerFixture.h"
#include "drivers/clsDominoHandlerC.h"
#include "services/ApplicationOptions.h"
#include "services/SettingsAccess.h"

namespace {
const QByteArray Status = QByteArrayLiteral(
    "Date : 22/11/2026\rTime : 06:30:15\rLanguage : 1\rShaft encoder : 0\rPhotocell : 1\r"
    "Fpga status : 0\rInk status : 0\rAvailable drivespace : 512\rHead 1 : 105\r"
    "Merlin version : A1234\rApprentice version : 2.10\rFPGA version : = 7.3\r\xFE");
// Token 8 packs 1, 23, 4, 5: direction 4, orientation 5.
const QByteArray SetupList = QByteArrayLiteral("a,b,c,300,12,x,4,12345\xFE");
const QByteArray Logos = QByteArrayLiteral("LOGO1\rLOGO2\r");
const QByteArray CurrentFile = QByteArrayLiteral("\xC1\x42\x43\r");
const QByteArray Count = QByteArrayLiteral("\x15\x01");
const QByteArray Files = QByteArrayLiteral("\xC1\x42\x43\rDEF\r");

class DominoHandlerCTest : public HandlerFixture
{
protected:
    void SetUp() override
    {
        HandlerFixture::SetUp();
        writeCatalogue(260, {{9, "no answer to stage %1 sent at %2"},
                             {115, "comms error %1"},
                             {169, "ink low: %1 prints left"},
                             {171, "the printer refused a command"}});
        qputenv("LC_TIME", "en_GB.UTF-8");
    }

    clsDominoHandlerC& handler(bool checkErrorLog = false)
    {
        return node<clsDominoHandlerC>(QStringLiteral("Coder"), 2100, [&](clsComponent& made) {
            if (checkErrorLog)
                made.AddStoredSetting(QStringLiteral("GetErrorLog"), QStringLiteral("True"));
        });
    }

    // Asks for the status and answers it, then the set-up list.
    void answerStatusAndSetup(clsDominoHandlerC& coder)
    {
        coder.Process();
        m_queue->inject(Status);
        m_queue->inject(SetupList);
    }

    static void useInkLimit(int limit)
    {
        WriteValue(HKEY_LOCAL_MACHINE, OptionsKey, QStringLiteral("PrintsRemainingInkLowLimit"),
                   REG_DWORD, limit);
        ApplicationOptions::process() = ApplicationOptions();
    }
};

TEST_F(DominoHandlerCTest, ARoundAsksEachQuestionInTurnAndStoresTheAnswers)
{
    clsDominoHandlerC& coder = handler();
    coder.Process();
    EXPECT_EQ(sent(), QList<QByteArray>{"\x0E"});
    EXPECT_TRUE(m_queue->replyWanted);
    // The report comes in pieces of three bytes; the next question goes with the last.
    for (qsizetype at = 0; at < Status.size(); at += 3)
        m_queue->inject(Status.mid(at, 3));
    EXPECT_EQ(sent(), QList<QByteArray>{"\x80"});
    // No error log ("\x1D") unless asked for; nothing after the file list.
    for (const auto& [reply, next] : {std::pair{SetupList, QByteArray("\x18")},
                                      {Logos, "\x10"},
                                      {CurrentFile, "\x15"},
                                      {Count, "\x19"}}) {
        m_queue->inject(reply);
        EXPECT_EQ(sent(), QList<QByteArray>{next});
    }
    m_queue->inject(Files);
    EXPECT_TRUE(sent().isEmpty());
    EXPECT_EQ(coder.currentStage(), clsDominoHandlerC::StageIdle);
    EXPECT_FALSE(m_queue->replyWanted);

    EXPECT_EQ(coder.DateTime(), QDateTime(QDate(2026, 11, 22), QTime(6, 30, 15)));
    // 21 and 1 are a count here, not an error.
    EXPECT_EQ(
        (QList<qint32>{coder.Photocell(), coder.Drivespace(), coder.DPI(), coder.PrintDirection(),
                       coder.PrintOrientation(), coder.PrintCount(), coder.CommsErrors()}),
        (QList<qint32>{1, 512, 300, 4, 5, 277, 0}));
    EXPECT_EQ((QStringList{coder.GetHead(1), coder.PritnerVersion(), coder.FirmwareVersion(),
                           coder.GetLogoList(2), coder.GetLogoList(1000), coder.CurrentFile(),
                           coder.GetFileList(1), coder.GetDominoFileList(0)}),
              (QStringList{"105", "A.234", "7.3", "LOGO2", "", "ABC", "ABC",
                           QString::fromLatin1("\xC1\x42\x43")}));
    EXPECT_EQ(coder.GetErrorState(), StateGood);
    EXPECT_EQ(m_node->TreeText(), QStringLiteral("Coder: ABC (277)"));

    // The next tick starts the next round.
    coder.Process();
    EXPECT_EQ(sent(), QList<QByteArray>{"\x0E"});
}

TEST_F(DominoHandlerCTest, TheErrorLogIsReadNewestFirstAcrossItsWrap)
{
    clsDominoHandlerC& coder = handler(true);
    EXPECT_TRUE(coder.bCheckErrorLog());
    answerStatusAndSetup(coder);
    EXPECT_EQ(sent(), (QList<QByteArray>{"\x0E", "\x80", "\x1D"}));
    m_queue->inject(QByteArrayLiteral("E2 ink 21/11/2026 10:00:00\nE3 head 21/11/2026 11:00:00\n"
                                      "E0 old 20/11/2026 09:00:00\nE1 old 20/11/2026 09:30:00\n"
                                      "\xFE"));
    const QStringList newestFirst{"E3 head 21/11/2026 11:00:00", "E2 ink 21/11/2026 10:00:00",
                                  "E1 old 20/11/2026 09:30:00", "E0 old 20/11/2026 09:00:00", ""};
    for (qsizetype at = 0; at < newestFirst.size(); ++at)
        EXPECT_EQ(coder.GetErrorLog(at + 1), newestFirst[at]);
    EXPECT_EQ(coder.GetErrorState(), StateWarning);
    EXPECT_EQ(coder.HighestAlert(), QStringLiteral("E3 head 21/11/2026 11:00:00"));

    // Dealt with: healthy again until another entry comes first.
    coder.IgnoreCurrentErrorLog();
    EXPECT_EQ(coder.GetErrorState(), StateGood);

    // A lone NAK to the log question is an empty log, not a refusal.
    for (const QByteArray& reply : {Logos, CurrentFile, Count, Files})
        m_queue->inject(reply);
    answerStatusAndSetup(coder);
    m_queue->inject("\x15");
    EXPECT_EQ(coder.CommsErrors(), 0);
    EXPECT_EQ(coder.GetErrorLog(1), QString());
    EXPECT_EQ(sent().last(), QByteArray("\x18"));

    coder.setBCheckErrorLog(false);
    QString stored;
    ASSERT_TRUE(m_node->GetStoredSetting(QStringLiteral("GetErrorLog"), stored));
    EXPECT_EQ(stored, QStringLiteral("False"));
}

TEST_F(DominoHandlerCTest, RefusalsAndInkSetTheStateAndItsAlert)
{
    clsDominoHandlerC& coder = handler();
    coder.Process();
    sent();
    m_queue->inject("\x15");
    EXPECT_EQ(coder.CommsErrors(), clsDominoHandlerC::NakBit);
    EXPECT_EQ(coder.GetErrorState(), StateWarning);
    EXPECT_EQ(coder.HighestAlert(), QStringLiteral("the printer refused a command"));
    EXPECT_EQ(coder.CommsDetail(), QStringLiteral("comms error 2"));
    EXPECT_EQ(coder.currentStage(), clsDominoHandlerC::StageStatus);
    coder.Process(); // asked again at the next tick
    EXPECT_EQ(sent(), QList<QByteArray>{"\x0E"});
    m_queue->inject("\x01");
    EXPECT_EQ(coder.CommsErrors(), clsDominoHandlerC::SohBit); // one kind replaces the other
    coder.ClearCommsError();
    EXPECT_EQ(coder.GetErrorState(), StateGood);

    // Ink: a fault unless a limit says that enough prints remain.
    coder.Process();
    m_queue->inject(QByteArray(Status).replace("Ink status : 0", "Ink status : 2500"));
    EXPECT_EQ(coder.InkStatus(), 2);
    EXPECT_EQ(coder.PrintsRemaining(), 500);
    EXPECT_EQ(coder.GetErrorState(), StateFault);
    EXPECT_EQ(coder.HighestAlert(), QStringLiteral("ink low: 500 prints left"));
    // 500 prints left is not strictly more than a limit of 500; 0 is no limit.
    for (const auto& [limit, state] :
         {std::pair{100, StateWarning}, {500, StateFault}, {0, StateWarning}}) {
        useInkLimit(limit);
        EXPECT_EQ(coder.GetErrorState(), state) << limit;
    }

    coder.setPortBusy(true);
    EXPECT_EQ(coder.GetErrorState(), StatePortBusy);
    coder.setDisabled(true);
    EXPECT_EQ(coder.GetErrorState(), StateDisabled);
}

TEST_F(DominoHandlerCTest, ALostReplyTimesOutAndAStuckStageEndsAfterTheTimeOut)
{
    clsDominoHandlerC& coder = handler();
    const auto wait = [&](int seconds) {
        later(seconds);
        coder.ProcessTimeout(5);
    };
    coder.Process();
    sent();
    wait(4);
    EXPECT_EQ(coder.GetErrorState(), StateGood);
    wait(1);
    EXPECT_EQ(coder.GetErrorState(), StateNoAnswer);
    EXPECT_EQ(coder.TimeoutMessage(), QStringLiteral("no answer to stage 0 sent at 06:30:00"));
    EXPECT_EQ(coder.currentStage(), clsDominoHandlerC::StageIdle);

    // A late reply clears the time-out but isn't read.
    m_queue->inject(Status);
    EXPECT_EQ(coder.GetErrorState(), StateGood);
    EXPECT_EQ(coder.Drivespace(), 0);
    EXPECT_EQ(coder.currentStage(), clsDominoHandlerC::StageStatus);

    // A set-up list that doesn't convert is shown once; its stage ends one time-out later,
    // and the printer is polled again.
    coder.Process();
    m_queue->inject(Status);
    EXPECT_EQ(sent(), (QList<QByteArray>{"\x0E", "\x80"}));
    m_queue->inject("a,b,c,three hundred,12\xFE");
    ASSERT_EQ(m_dialogs->boxes().size(), 1);
    EXPECT_TRUE(m_dialogs->boxes()[0].title.startsWith("clsDominoHandlerC - ProcessResponse"));
    coder.Process();
    EXPECT_TRUE(sent().isEmpty()); // still in the failed stage
    wait(5);
    EXPECT_EQ(coder.currentStage(), clsDominoHandlerC::StageIdle);
    coder.Process();
    EXPECT_EQ(sent(), QList<QByteArray>{"\x0E"});
    EXPECT_EQ(m_dialogs->boxes().size(), 1);

    // A logo list that begins and never ends is lost at its stage, one time-out later.
    m_queue->inject(Status);
    m_queue->inject(SetupList);
    m_queue->inject("LOGO1");
    wait(4);
    EXPECT_EQ(coder.GetErrorState(), StateGood);
    wait(1);
    EXPECT_EQ(coder.GetErrorState(), StateNoAnswer);
    EXPECT_EQ(coder.TimeoutMessage(), QStringLiteral("no answer to stage 3 sent at 06:30:10"));
    EXPECT_EQ(coder.currentStage(), clsDominoHandlerC::StageIdle);

    // A refusal of the status request stays on show: the next tick asks again.
    coder.Process();
    m_queue->inject("\x15");
    wait(5);
    EXPECT_EQ(coder.GetErrorState(), StateWarning);
    EXPECT_EQ(coder.currentStage(), clsDominoHandlerC::StageStatus);
}

TEST_F(DominoHandlerCTest, RepliesCutIntoPiecesByTheLineJoinOrWaitWithoutATimeOut)
{
    clsDominoHandlerC& coder = handler();
    const auto wait = [&](int seconds) {
        later(seconds);
        coder.ProcessTimeout(5);
    };
    // A file list ends at its first Cr; the rest comes 80 ms later, after the round is over.
    answerStatusAndSetup(coder);
    for (const QByteArray& reply : {Logos, CurrentFile, Count})
        m_queue->inject(reply);
    m_queue->inject("\xC1\x42\x43\rDE");
    EXPECT_EQ(coder.currentStage(), clsDominoHandlerC::StageIdle);
    m_queue->inject("F\rGHI\r");
    wait(30);
    EXPECT_EQ(coder.GetErrorState(), StateGood);
    EXPECT_EQ(coder.TimeoutMessage(), QString());
    EXPECT_EQ(coder.GetFileList(1), QStringLiteral("ABC"));
    // The piece was no reply of the next round's: that reads as ever.
    sent();
    coder.Process();
    EXPECT_EQ(sent(), QList<QByteArray>{"\x0E"});
    m_queue->inject(QByteArray(Status).replace("Photocell : 1", "Photocell : 0"));
    EXPECT_EQ(coder.Photocell(), 0);
    EXPECT_EQ(sent(), QList<QByteArray>{"\x80"});

    // A report cut before its end byte waits, and joins the report of the next tick.
    for (const QByteArray& reply : {SetupList, Logos, CurrentFile, Count, Files})
        m_queue->inject(reply);
    coder.Process();
    m_queue->inject(QByteArray(Status).replace("Language : 1", "Language : 2").left(60));
    wait(30);
    EXPECT_EQ(coder.GetErrorState(), StateGood);
    EXPECT_EQ(coder.currentStage(), clsDominoHandlerC::StageStatus);
    coder.Process();
    m_queue->inject("Shaft encoder : 3\r\xFE");
    EXPECT_EQ((QList<qint32>{coder.Language(), coder.ShaftEncoder()}), (QList<qint32>{2, 3}));
    EXPECT_EQ(coder.currentStage(), clsDominoHandlerC::StageSetup);

    // Something on the line that answers each request and never ends a report (a device that
    // echoes, say) doesn't answer as a coder: once a second request's answer hasn't ended
    // the report either, it is lost.
    coder.ResetCurrentCommand();
    for (int tick = 0; tick < 2; ++tick) {
        coder.Process();
        m_queue->inject("\x0E");
        wait(5);
    }
    EXPECT_EQ(coder.GetErrorState(), StateNoAnswer);
    EXPECT_EQ(coder.currentStage(), clsDominoHandlerC::StageIdle);
}

TEST_F(DominoHandlerCTest, OnlyTheDatesThatFindTheWrapAreRead)
{
    clsDominoHandlerC& coder = handler(true);
    const auto answerLog = [&](const QByteArray& log) {
        answerStatusAndSetup(coder);
        m_queue->inject(log);
        for (const QByteArray& reply : {Logos, CurrentFile, Count, Files})
            m_queue->inject(reply);
    };
    // Two lines are never searched for a wrap: the newest needs no date.
    answerLog("E1 old 20/11/2026 09:30:00\nE2 head fault\n\xFE");
    EXPECT_EQ(coder.GetErrorState(), StateWarning);
    EXPECT_EQ(coder.HighestAlert(), QStringLiteral("E2 head fault"));
    EXPECT_EQ(coder.GetErrorLog(2), QStringLiteral("E1 old 20/11/2026 09:30:00"));
    // Behind the wrap no date is read.
    answerLog("E3 a 21/11/2026 10:00:00\nE1 b 20/11/2026 09:00:00\nE2 c no date\n\xFE");
    EXPECT_EQ(
        (QStringList{coder.GetErrorLog(1), coder.GetErrorLog(2), coder.GetErrorLog(3)}),
        (QStringList{"E3 a 21/11/2026 10:00:00", "E2 c no date", "E1 b 20/11/2026 09:00:00"}));
    // Before it, a line without a date fails the log, which stays as it was.
    answerLog("E4 d 22/11/2026 10:00:00\nE5 e no date\nE6 f 22/11/2026 11:00:00\n\xFE");
    EXPECT_EQ(coder.GetErrorLog(1), QStringLiteral("E3 a 21/11/2026 10:00:00"));
}

TEST_F(DominoHandlerCTest, ActionsGoOutAtOnceAndNeverTwiceInARow)
{
    clsDominoHandlerC& coder = handler();
    coder.SetDirection(2);
    coder.SetDirection(2);
    EXPECT_EQ(sent(), QList<QByteArray>{"\x04\x32"});
    m_queue->inject("\xFE");
    EXPECT_EQ(coder.currentStage(), clsDominoHandlerC::StageStatus);

    coder.SetCounts(0);
    EXPECT_EQ(sent(), (QList<QByteArray>{QByteArray("\x11\0\0", 3), "\x15"}));
    m_queue->inject(QByteArray("\x07\0", 2));
    EXPECT_EQ(coder.PrintCount(), 7);
    EXPECT_EQ(sent(), QList<QByteArray>{"\x19"}); // the round goes on from the file list

    // Sunday 22 November 2026, 14:07: the clock, then at once the status request.
    coder.SyncTime(QDateTime(QDate(2026, 11, 22), QTime(14, 7)));
    EXPECT_EQ(sent(), (QList<QByteArray>{'\x14' + QByteArray("7112220261407"), "\x0E"}));

    coder.SelectMessage(QStringLiteral("SEVEN77"));
    coder.SelectMessage(QStringLiteral("SEVEN77"));
    EXPECT_EQ(sent(), QList<QByteArray>{"\x09SEVEN77\r"});
    m_queue->inject("\x06");
    coder.SelectMessage(QStringLiteral("EIGHT888")); // no other command went between
    EXPECT_TRUE(sent().isEmpty());
    coder.SetDirection(1);
    coder.SelectMessage(QStringLiteral("EIGHT888"));
    EXPECT_EQ(sent(), (QList<QByteArray>{"\x04\x31", "\tEIGHT888"}));

    coder.SetShifts(clsShift());
    EXPECT_EQ(sent(), QList<QByteArray>{'\x13' + QByteArray("00:0000:0000:0000:00")});

    // Print work waiting: nothing goes out, and the engine idles.
    m_queue->pendingItems = 1;
    coder.SyncTime(QDateTime(QDate(2026, 11, 23), QTime(6, 0)));
    coder.Process();
    EXPECT_TRUE(sent().isEmpty());
    EXPECT_EQ(coder.currentStage(), clsDominoHandlerC::StageIdle);
    m_queue->pendingItems = 0;

    // A disabled node is asked nothing. Disabled in the middle of a round, the engine comes
    // to rest, and the first tick after it is enabled again starts a round.
    coder.Process();
    m_queue->inject(Status);
    EXPECT_EQ(sent(), (QList<QByteArray>{"\x0E", "\x80"}));
    coder.setDisabled(true);
    m_queue->inject(SetupList);
    coder.Process();
    coder.SetOrientation(1);
    EXPECT_TRUE(sent().isEmpty());
    coder.setDisabled(false);
    coder.Process();
    EXPECT_EQ(sent(), QList<QByteArray>{"\x0E"});
}

} // namespace
