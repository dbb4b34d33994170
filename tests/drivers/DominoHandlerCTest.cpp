// The C-series handler against replies written out by hand, byte for byte.

#include "core/ErrorColours.h"
#include "core/PresentTime.h"
#include "core/clsComponent.h"
#include "drivers/clsDominoHandlerC.h"
#include "printing/clsLBXHandler.h"
#include "services/ApplicationOptions.h"
#include "services/SettingsAccess.h"
#include "sim/SimRegistry.h"
#include "support/EnginePump.h"
#include "support/FakeApplication.h"
#include "support/FakeClock.h"
#include "support/ServicesFixture.h"

#include <QMap>

namespace {
const QByteArray Status = QByteArrayLiteral(
    "Date : 22/11/2026\rTime : 06:30:15\rLanguage : 1\rShaft encoder : 0\rPhotocell : 1\r"
    "Fpga status : 0\rInk status : 0\rAvailable drivespace : 512\rHead 1 : 105\r"
    "Merlin version : A1234\rApprentice version : 2.10\rFPGA version : = 7.3\r\xFE");
// Token 8 packs 1, 23, 4, 5: direction 4, orientation 5.
const QByteArray SetupList = QByteArrayLiteral("a,b,c,300,12,x,4,12345\xFE");
const QByteArray Logos = QByteArrayLiteral("LOGO1\rLOGO2\r");
const QByteArray CurrentFile = QByteArrayLiteral("\xC1"
                                                 "BC\r");
const QByteArray Count = QByteArrayLiteral("\x15\x01");
const QByteArray Files = QByteArrayLiteral("\xC1"
                                           "BC\rDEF\r");

class DominoHandlerCTest : public ServicesFixture
{
protected:
    void SetUp() override
    {
        ServicesFixture::SetUp();
        const QMap<int, QByteArray> messages{
            {9, "no answer to stage %1 sent at %2"},
            {115, "comms error %1"},
            {169, "ink low: %1 prints left"},
            {171, "the printer refused a command"},
        };
        QByteArray catalogue;
        for (int line = 1; line <= 260; ++line)
            catalogue += messages.value(line) + '\n';
        writeMessageFile(QStringLiteral("en"), catalogue);
        qputenv("LC_TIME", "en_GB.UTF-8");
        m_clock->setNow(QDateTime(QDate(2026, 11, 22), QTime(6, 30)));
        InstallClock(m_clock);
        InstallApplicationFactory([this] { return m_application; });
        m_queue = &m_application->queues.add(QStringLiteral("Coder"), 2100);
    }

    void TearDown() override
    {
        m_node.reset();
        ReleaseGlobalLBX();
        InstallApplicationFactory(nullptr);
        InstallClock(nullptr);
        ServicesFixture::TearDown();
    }

    clsDominoHandlerC& handler(bool checkErrorLog = false)
    {
        m_node = std::make_shared<clsComponent>();
        m_node->m_sID = QStringLiteral("ID1");
        m_node->m_sName = QStringLiteral("Coder");
        m_node->m_lRemoteObjectPrinterNumber = 2100;
        if (checkErrorLog)
            m_node->AddStoredSetting(QStringLiteral("GetErrorLog"), QStringLiteral("True"));
        auto* made = qobject_cast<clsDominoHandlerC*>(m_node->GetComponent());
        EXPECT_NE(made, nullptr);
        return *made;
    }

    // Answers the rest of a round from the logo list on.
    void finishRound()
    {
        for (const QByteArray& reply : {Logos, CurrentFile, Count, Files})
            m_queue->inject(reply);
    }

    // What went out since the last look.
    QList<QByteArray> sent() { return std::exchange(m_queue->sent, {}); }

    void later(int seconds) { m_clock->setNow(m_clock->now().addSecs(seconds)); }

    static void useInkLimit(int limit)
    {
        WriteValue(HKEY_LOCAL_MACHINE, OptionsKey, QStringLiteral("PrintsRemainingInkLowLimit"),
                   REG_DWORD, limit);
        ApplicationOptions::process() = ApplicationOptions();
    }

    std::shared_ptr<FakeClock> m_clock = std::make_shared<FakeClock>();
    std::shared_ptr<FakeApplication> m_application = std::make_shared<FakeApplication>();
    FakeQueue* m_queue = nullptr;
    std::shared_ptr<clsComponent> m_node;
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
    m_queue->inject(SetupList);
    EXPECT_EQ(sent(), QList<QByteArray>{"\x18"}); // no error log unless asked for
    m_queue->inject(Logos);
    EXPECT_EQ(sent(), QList<QByteArray>{"\x10"});
    m_queue->inject(CurrentFile);
    EXPECT_EQ(sent(), QList<QByteArray>{"\x15"});
    m_queue->inject(Count);
    EXPECT_EQ(sent(), QList<QByteArray>{"\x19"});
    m_queue->inject(Files);
    EXPECT_TRUE(sent().isEmpty());
    EXPECT_EQ(coder.currentStage(), clsDominoHandlerC::StageIdle);
    EXPECT_FALSE(m_queue->replyWanted);

    EXPECT_EQ(coder.DateTime(), QDateTime(QDate(2026, 11, 22), QTime(6, 30, 15)));
    EXPECT_EQ(coder.Photocell(), 1);
    EXPECT_EQ(coder.Drivespace(), 512);
    EXPECT_EQ(coder.GetHead(1), QStringLiteral("105"));
    EXPECT_EQ(coder.PritnerVersion(), QStringLiteral("A.234"));
    EXPECT_EQ(coder.FirmwareVersion(), QStringLiteral("7.3"));
    EXPECT_EQ(coder.DPI(), 300);
    EXPECT_EQ(coder.PrintDirection(), 4);
    EXPECT_EQ(coder.PrintOrientation(), 5);
    EXPECT_EQ(coder.GetLogoList(2), QStringLiteral("LOGO2"));
    EXPECT_EQ(coder.GetLogoList(1000), QString());
    EXPECT_EQ(coder.CurrentFile(), QStringLiteral("ABC"));
    EXPECT_EQ(coder.PrintCount(), 277); // 21 and 1 are a count here, not an error
    EXPECT_EQ(coder.CommsErrors(), 0);
    EXPECT_EQ(coder.GetFileList(1), QStringLiteral("ABC"));
    EXPECT_EQ(coder.GetDominoFileList(0), QString::fromLatin1("\xC1"
                                                              "BC"));
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
    coder.Process();
    m_queue->inject(Status);
    m_queue->inject(SetupList);
    EXPECT_EQ(sent(), (QList<QByteArray>{"\x0E", "\x80", "\x1D"}));
    m_queue->inject(QByteArrayLiteral("E2 ink 21/11/2026 10:00:00\nE3 head 21/11/2026 11:00:00\n"
                                      "E0 old 20/11/2026 09:00:00\nE1 old 20/11/2026 09:30:00\n"
                                      "\xFE"));
    EXPECT_EQ(coder.GetErrorLog(1), QStringLiteral("E3 head 21/11/2026 11:00:00"));
    EXPECT_EQ(coder.GetErrorLog(2), QStringLiteral("E2 ink 21/11/2026 10:00:00"));
    EXPECT_EQ(coder.GetErrorLog(3), QStringLiteral("E1 old 20/11/2026 09:30:00"));
    EXPECT_EQ(coder.GetErrorLog(4), QStringLiteral("E0 old 20/11/2026 09:00:00"));
    EXPECT_EQ(coder.GetErrorLog(5), QString());
    EXPECT_EQ(coder.GetErrorState(), StateWarning);
    EXPECT_EQ(coder.HighestAlert(), QStringLiteral("E3 head 21/11/2026 11:00:00"));

    // Dealt with: healthy again until another entry comes first.
    coder.IgnoreCurrentErrorLog();
    EXPECT_EQ(coder.GetErrorState(), StateGood);

    // A lone NAK to the log question is an empty log, not a refusal.
    finishRound();
    coder.Process();
    m_queue->inject(Status);
    m_queue->inject(SetupList);
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
    QByteArray inkLow = Status;
    inkLow.replace("Ink status : 0", "Ink status : 2500");
    coder.Process();
    m_queue->inject(inkLow);
    EXPECT_EQ(coder.InkStatus(), 2);
    EXPECT_EQ(coder.PrintsRemaining(), 500);
    EXPECT_EQ(coder.GetErrorState(), StateFault);
    EXPECT_EQ(coder.HighestAlert(), QStringLiteral("ink low: 500 prints left"));
    useInkLimit(100);
    EXPECT_EQ(coder.GetErrorState(), StateWarning);
    useInkLimit(500); // not strictly more than the limit
    EXPECT_EQ(coder.GetErrorState(), StateFault);
    useInkLimit(0);
    EXPECT_EQ(coder.GetErrorState(), StateWarning);

    coder.setPortBusy(true);
    EXPECT_EQ(coder.GetErrorState(), StatePortBusy);
    coder.setDisabled(true);
    EXPECT_EQ(coder.GetErrorState(), StateDisabled);
}

TEST_F(DominoHandlerCTest, ALostReplyTimesOutAndAStuckStageEndsAfterTheTimeOut)
{
    clsDominoHandlerC& coder = handler();
    coder.Process();
    sent();
    later(4);
    coder.ProcessTimeout(5);
    EXPECT_EQ(coder.GetErrorState(), StateGood);
    later(1);
    coder.ProcessTimeout(5);
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
    later(5);
    coder.ProcessTimeout(5);
    EXPECT_EQ(coder.currentStage(), clsDominoHandlerC::StageIdle);
    coder.Process();
    EXPECT_EQ(sent(), QList<QByteArray>{"\x0E"});
    EXPECT_EQ(m_dialogs->boxes().size(), 1);

    // A printer that only ever sends pieces of a report counts as not answering.
    m_queue->inject("Language : 1\r");
    EXPECT_EQ(coder.GetErrorState(), StateGood);
    later(5);
    coder.ProcessTimeout(5);
    EXPECT_EQ(coder.GetErrorState(), StateNoAnswer);
    EXPECT_EQ(coder.currentStage(), clsDominoHandlerC::StageIdle);

    // A refusal of the status request stays on show: the next tick asks again.
    coder.Process();
    m_queue->inject("\x15");
    later(5);
    coder.ProcessTimeout(5);
    EXPECT_EQ(coder.GetErrorState(), StateWarning);
    EXPECT_EQ(coder.currentStage(), clsDominoHandlerC::StageStatus);
}

TEST_F(DominoHandlerCTest, ActionsGoOutAtOnceAndNeverTwiceInARow)
{
    clsDominoHandlerC& coder = handler();
    coder.SetDirection(2);
    coder.SetDirection(2);
    EXPECT_EQ(sent(), QList<QByteArray>{QByteArray("\x04"
                                                   "2")});
    m_queue->inject("\xFE");
    EXPECT_EQ(coder.currentStage(), clsDominoHandlerC::StageStatus);

    coder.SetCounts(0);
    EXPECT_EQ(sent(), (QList<QByteArray>{QByteArray("\x11\0\0", 3), "\x15"}));
    m_queue->inject(QByteArray("\x07\0", 2));
    EXPECT_EQ(coder.PrintCount(), 7);
    EXPECT_EQ(sent(), QList<QByteArray>{"\x19"}); // the round goes on from the file list

    // Sunday 22 November 2026, 14:07: the clock, then at once the status request.
    coder.SyncTime(QDateTime(QDate(2026, 11, 22), QTime(14, 7)));
    EXPECT_EQ(sent(), (QList<QByteArray>{"\x14"
                                         "7112220261407",
                                         "\x0E"}));

    coder.SelectMessage(QStringLiteral("SEVEN77"));
    coder.SelectMessage(QStringLiteral("SEVEN77"));
    EXPECT_EQ(sent(), QList<QByteArray>{"\x09SEVEN77\r"});
    m_queue->inject("\x06");
    coder.SelectMessage(QStringLiteral("EIGHT888")); // no other command went between
    EXPECT_TRUE(sent().isEmpty());
    coder.SetDirection(1);
    coder.SelectMessage(QStringLiteral("EIGHT888"));
    EXPECT_EQ(sent(), (QList<QByteArray>{"\x04"
                                         "1",
                                         "\x09"
                                         "EIGHT888"}));

    clsShift shifts;
    shifts.SetID(QStringLiteral("A"), 0);
    shifts.SetHour(6, 0);
    shifts.SetID(QStringLiteral("B"), 1);
    shifts.SetHour(14, 1);
    shifts.SetMinute(30, 1);
    coder.SetShifts(shifts);
    EXPECT_EQ(sent(), QList<QByteArray>{"\x13"
                                        "A06:00B14:3000:0000:00"});

    // Print work waiting: nothing goes out, and the engine idles.
    m_queue->pendingItems = 1;
    coder.SyncTime(QDateTime(QDate(2026, 11, 23), QTime(6, 0)));
    coder.Process();
    EXPECT_TRUE(sent().isEmpty());
    EXPECT_EQ(coder.currentStage(), clsDominoHandlerC::StageIdle);
    m_queue->pendingItems = 0;

    // A disabled node is asked nothing.
    coder.setDisabled(true);
    coder.Process();
    coder.SetOrientation(1);
    EXPECT_TRUE(sent().isEmpty());
}

// Against the simulated coder: what the actions set is what the next round reads back.
TEST_F(DominoHandlerCTest, ActionsChangeTheSimulatedCoder)
{
    QString error;
    auto engine = SimRegistry::create(
        QStringLiteral("c-series"),
        *SimKnobs::fromQuery(QStringLiteral("files=ALPHA,BETA&file=ALPHA&count=40"), error), error);
    ASSERT_TRUE(engine) << error.toStdString();
    EnginePump printer(*m_queue, std::move(engine));
    clsDominoHandlerC& coder = handler();
    const QDateTime now = m_clock->now();
    coder.Process();
    printer.run(now);
    ASSERT_EQ(coder.currentStage(), clsDominoHandlerC::StageIdle);
    EXPECT_EQ(coder.CurrentFile(), QStringLiteral("ALPHA"));
    EXPECT_EQ(coder.PrintCount(), 40);

    coder.SyncTime(QDateTime(QDate(2030, 1, 2), QTime(3, 4)));
    printer.run(now);
    coder.SelectMessage(coder.GetDominoFileList(1));
    printer.run(now);
    coder.SetCounts(0);
    printer.run(now);
    coder.Process();
    printer.run(now);
    EXPECT_EQ(coder.DateTime().date(), QDate(2030, 1, 2));
    EXPECT_EQ(coder.DateTime().time().hour(), 3);
    EXPECT_EQ(coder.CurrentFile(), QStringLiteral("BETA"));
    EXPECT_EQ(coder.PrintCount(), 0);
    EXPECT_EQ(coder.GetErrorState(), StateGood);
}
} // namespace
