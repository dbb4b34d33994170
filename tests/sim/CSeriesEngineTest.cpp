#include "sim/CSeriesEngine.h"

#include "sim/SimPrinter.h"

#include <QTimeZone>
#include <gtest/gtest.h>

namespace {
// Wednesday 5 September 2007, when each printer here first hears from anyone.
const QDateTime kOn(QDate(2007, 9, 5), QTime(14, 7, 30), QTimeZone::utc());

const QByteArray kNak("\x15");
const QByteArray kAck("\x06");
const QByteArray kEnd("\xFE");

std::unique_ptr<CSeriesEngine> engineOf(const QString& query = {})
{
    QString error;
    const std::optional<SimKnobs> knobs = SimKnobs::fromQuery(query, error);
    const std::optional<CSeriesSettings> settings =
        knobs ? CSeriesSettings::read(*knobs, error) : std::nullopt;
    EXPECT_TRUE(settings) << query.toStdString() << ": " << error.toStdString();
    return settings ? std::make_unique<CSeriesEngine>(*settings) : nullptr;
}

// Each test's printer is switched on at kOn; later calls say how many seconds on they are.
QList<QByteArray> send(CSeriesEngine& engine, const QByteArray& bytes, qint64 secondsOn = 0)
{
    return engine.receive(bytes, kOn.addSecs(secondsOn));
}

QByteArray statusWith(const QByteArray& date, const QByteArray& time, const QByteArray& ink)
{
    return "Date : " + date + "\rTime : " + time +
           "\rLanguage : 1\rShaft encoder : 0\rPhotocell : 0\rFpga status : 0\r"
           "Ink status : " +
           ink +
           "\rAvailable drivespace : 2048\r"
           "Head 1 : 111\rHead 2 : 122\rHead 3 : 133\rHead 4 : 144\rHead 5 : 155\rHead 6 : 166\r"
           "Merlin version : A1.234\rApprentice version : 2.05\rFPGA version : = 1.10\r\xFE";
}

TEST(CSeriesRepliesTest, TheStatusReportHasEveryKeyEndedBy13AndThen254)
{
    const auto engine = engineOf();
    ASSERT_TRUE(engine);
    EXPECT_EQ(send(*engine, "\x0E"),
              QList<QByteArray>{statusWith("05/09/2007", "14:07:30", "099")});

    const auto twoHeads = engineOf("heads=2&ink=2&remaining=7&version=B12.045&app=3.1&fpga=FX9&"
                                   "dateformat=mdy&dateseparator=-");
    ASSERT_TRUE(twoHeads);
    EXPECT_EQ(send(*twoHeads, "\x0E", 61),
              QList<QByteArray>{"Date : 09-05-2007\rTime : 14:08:31\rLanguage : 1\r"
                                "Shaft encoder : 0\rPhotocell : 0\rFpga status : 0\r"
                                "Ink status : 27\rAvailable drivespace : 2048\r"
                                "Head 1 : 111\rHead 2 : 122\r"
                                "Merlin version : B12.045\rApprentice version : 3.1\r"
                                "FPGA version : = FX9\r\xFE"});
}

TEST(CSeriesRepliesTest, TheSetupListPacksDirectionAndOrientationIntoToken8OrNot)
{
    const auto packed = engineOf();
    const auto unpacked = engineOf("packed=false");
    ASSERT_TRUE(packed && unpacked);
    EXPECT_EQ(send(*packed, "\x80"), QList<QByteArray>{"1,0,0,150,100,0,16,10700\xFE"});
    EXPECT_EQ(send(*unpacked, "\x80"), QList<QByteArray>{"1,0,0,150,100,0,16,1,7,0,0\xFE"});
}

TEST(CSeriesRepliesTest, TheErrorLogListsLinesWithTheirDatesAndFallsBackAtTheWrap)
{
    const auto empty = engineOf();
    ASSERT_TRUE(empty);
    EXPECT_EQ(send(*empty, "\x1D"), QList<QByteArray>{kNak});

    const auto plain = engineOf("errors=3");
    ASSERT_TRUE(plain);
    EXPECT_EQ(send(*plain, "\x1D"), QList<QByteArray>{"Ink pressure low 04/09/2007 17:45:51\n"
                                                      "Solvent level low 05/09/2007 00:33:04\n"
                                                      "Ink level low 05/09/2007 07:20:17\n"
                                                      "\xFE"});

    // The two newest first; the dates fall back on line 3.
    const auto wrapped = engineOf("errors=5&wrap=3");
    ASSERT_TRUE(wrapped);
    EXPECT_EQ(send(*wrapped, "\x1D"), QList<QByteArray>{"Phase detect failed 05/09/2007 00:33:04\n"
                                                        "Charge fault 05/09/2007 07:20:17\n"
                                                        "Ink pressure low 04/09/2007 04:11:25\n"
                                                        "Solvent level low 04/09/2007 10:58:38\n"
                                                        "Ink level low 04/09/2007 17:45:51\n"
                                                        "\xFE"});
    // A wrap on line 1 is no wrap.
    const auto atTheTop = engineOf("errors=3&wrap=1");
    ASSERT_TRUE(atTheTop);
    EXPECT_EQ(send(*atTheTop, "\x1D"), send(*plain, "\x1D"));
}

TEST(CSeriesRepliesTest, ListsEndEachNameWith13AndFileNamesHaveTheirTopBitSet)
{
    const auto engine = engineOf();
    ASSERT_TRUE(engine);
    EXPECT_EQ(send(*engine, "\x18"), QList<QByteArray>{"DOMINO\rRECYCLE\r"});
    EXPECT_EQ(send(*engine, "\x19"), QList<QByteArray>{"\xCCINE1\r\xC2"
                                                       "ESTBY\r\xC2"
                                                       "ATCH07\r\xC5XPIRY01\r"});
    EXPECT_EQ(send(*engine, "\x10"), QList<QByteArray>{"\xCCINE1\r"});

    const auto plain = engineOf("highbit=no&files=a1,B2&file=B2&logos=");
    ASSERT_TRUE(plain);
    EXPECT_EQ(send(*plain, "\x19"), QList<QByteArray>{"a1\rB2\r"});
    EXPECT_EQ(send(*plain, "\x10"), QList<QByteArray>{"B2\r"});
    // The reader waits for a 13 even when there is nothing to list.
    EXPECT_EQ(send(*plain, "\x18"), QList<QByteArray>{"\r"});
    const auto noFiles = engineOf("files=");
    ASSERT_TRUE(noFiles);
    EXPECT_EQ(send(*noFiles, "\x19\x10"), QList<QByteArray>({"\r", "\r"}));
}

TEST(CSeriesRepliesTest, ACurrentFileFromNoListJoinsTheListAndMaySelectNothing)
{
    const auto joined = engineOf("files=A,B&file=C1");
    ASSERT_TRUE(joined);
    EXPECT_EQ(send(*joined, "\x19\x10"), QList<QByteArray>({"\xC1\r\xC2\r\xC3"
                                                            "1\r",
                                                            "\xC3"
                                                            "1\r"}));
    const auto none = engineOf("file=");
    ASSERT_TRUE(none);
    EXPECT_EQ(send(*none, "\x10"), QList<QByteArray>{"\r"});
}

TEST(CSeriesRepliesTest, ManyPrintsRemainingMakeALongerInkStatus)
{
    const auto engine = engineOf("ink=2&remaining=500");
    ASSERT_TRUE(engine);
    EXPECT_EQ(send(*engine, "\x0E"),
              QList<QByteArray>{statusWith("05/09/2007", "14:07:30", "2500")});
}

TEST(CSeriesRepliesTest, ThePrintCountIsTwoBytesLowFirstWhateverTheyAre)
{
    const QList<std::pair<QString, QByteArray>> cases{
        {"count=1234", QByteArray("\xD2\x04")},
        {"count=277", QByteArray("\x15\x01")}, // NAK and SOH, yet a count
        {"count=65535", QByteArray("\xFF\xFF")},
        {"", QByteArray(2, '\0')},
    };
    for (const auto& [query, expected] : cases) {
        const auto engine = engineOf(query);
        ASSERT_TRUE(engine);
        EXPECT_EQ(send(*engine, "\x15"), QList<QByteArray>{expected}) << query.toStdString();
    }
}

TEST(CSeriesActionsTest, SetClockMovesTheClockTheStatusShowsWhichThenRunsOn)
{
    const auto engine = engineOf();
    ASSERT_TRUE(engine);
    // Sunday 2 March 2025, 06:05: nothing comes back.
    EXPECT_TRUE(send(*engine,
                     "\x14"
                     "7030220250605",
                     10)
                    .isEmpty());
    EXPECT_EQ(send(*engine, "\x0E", 10),
              QList<QByteArray>{statusWith("02/03/2025", "06:05:00", "099")});
    EXPECT_EQ(send(*engine, "\x0E", 100),
              QList<QByteArray>{statusWith("02/03/2025", "06:06:30", "099")});
    // The error log's dates are on the printer's clock too.
    const auto logged = engineOf("errors=1");
    ASSERT_TRUE(logged);
    send(*logged, "\x14"
                  "3090520071507");
    EXPECT_EQ(send(*logged, "\x1D"),
              QList<QByteArray>{"Ink pressure low 05/09/2007 08:19:47\n\xFE"});
}

TEST(CSeriesActionsTest, SetClockWithAWrongWeekdayOrNoSuchDateIsRefusedAndChangesNothing)
{
    const auto engine = engineOf();
    ASSERT_TRUE(engine);
    for (const QByteArray& clock : {QByteArray("1030220250605"),  // 2 March 2025 is a Sunday
                                    QByteArray("0030220250605"),  // no weekday 0
                                    QByteArray("3023020250605"),  // 30 February
                                    QByteArray("3090520072407"),  // hour 24
                                    QByteArray("30905200714x7")}) // not a digit
        EXPECT_EQ(send(*engine, "\x14" + clock), QList<QByteArray>{kNak}) << clock.toStdString();
    EXPECT_EQ(send(*engine, "\x0E"),
              QList<QByteArray>{statusWith("05/09/2007", "14:07:30", "099")});
}

TEST(CSeriesActionsTest, SelectMessageTakesANameFromTheListWithOrWithoutItsTopBit)
{
    const auto engine = engineOf();
    ASSERT_TRUE(engine);
    EXPECT_EQ(send(*engine, "\x09"
                            "BESTBY\r"),
              QList<QByteArray>{kAck});
    EXPECT_EQ(send(*engine, "\x10"), QList<QByteArray>{"\xC2"
                                                       "ESTBY\r"});
    // Eight characters need no 13; the name may come as the file list sent it.
    EXPECT_EQ(send(*engine, "\x09\xC5XPIRY01"), QList<QByteArray>{kAck});
    EXPECT_EQ(send(*engine, "\x10"), QList<QByteArray>{"\xC5XPIRY01\r"});
    // A 13 behind eight characters is a command of its own, which the printer doesn't know.
    EXPECT_EQ(send(*engine, "\x09"
                            "EXPIRY01\r"),
              QList<QByteArray>({kAck, kNak}));
}

TEST(CSeriesActionsTest, SelectMessageOfANameNotInTheListIsRefusedAndChangesNothing)
{
    const auto engine = engineOf();
    ASSERT_TRUE(engine);
    for (const QByteArray& name :
         {QByteArray("NOPE\r"), QByteArray("\r"), QByteArray("bestby\r"), QByteArray("EXPIRY02")})
        EXPECT_EQ(send(*engine, "\x09" + name), QList<QByteArray>{kNak}) << name.toStdString();
    EXPECT_EQ(send(*engine, "\x10"), QList<QByteArray>{"\xCCINE1\r"});
}

TEST(CSeriesActionsTest, SetCountsResetsTheCountReadBackAtOnce)
{
    const auto engine = engineOf("count=1234");
    ASSERT_TRUE(engine);
    EXPECT_EQ(send(*engine, QByteArray("\x11\x00\x00\x15", 4)),
              QList<QByteArray>{QByteArray(2, 0)});
    const QByteArray count254("\xFE\x00", 2);
    EXPECT_EQ(send(*engine, QByteArray("\x11\x00\xFE\x15", 4)), QList<QByteArray>{count254});
    // The printer keeps no counter 1.
    EXPECT_EQ(send(*engine, "\x11\x01\x05\x15"), QList<QByteArray>({kNak, count254}));
}

TEST(CSeriesActionsTest, DirectionAndOrientationAreAnsweredBy254AndShowInTheSetupList)
{
    const auto engine = engineOf();
    ASSERT_TRUE(engine);
    EXPECT_EQ(send(*engine, "\x04"
                            "2"),
              QList<QByteArray>{kEnd});
    EXPECT_EQ(send(*engine, "\x0F"
                            "3\x80"),
              QList<QByteArray>({kEnd, "1,0,0,150,100,0,16,10723\xFE"}));
    const auto unpacked = engineOf("packed=0");
    ASSERT_TRUE(unpacked);
    EXPECT_EQ(send(*unpacked, "\x04"
                              "1\x0F"
                              "0\x80"),
              QList<QByteArray>({kEnd, kEnd, "1,0,0,150,100,0,16,1,7,1,0\xFE"}));
}

TEST(CSeriesActionsTest, ADirectionThatIsNotOneDigitIsRefusedAndChangesNothing)
{
    const auto engine = engineOf();
    ASSERT_TRUE(engine);
    EXPECT_EQ(send(*engine, "\x04"
                            "12"),
              QList<QByteArray>{kNak});
    // No digit at all: the next byte is the next command.
    EXPECT_EQ(send(*engine, "\x0F\x80"), QList<QByteArray>({kNak, "1,0,0,150,100,0,16,10700\xFE"}));
    // At most three digits are one number; the fourth is a command the printer doesn't know.
    EXPECT_EQ(send(*engine, "\x04"
                            "1000"),
              QList<QByteArray>({kNak, kNak}));
}

TEST(CSeriesActionsTest, SetShiftsKeepsFourIdsWithTheirTimesAndRefusesImpossibleTimes)
{
    const auto engine = engineOf();
    ASSERT_TRUE(engine);
    // An id may hold digits: "222:00" is id "2" at 22:00.
    EXPECT_TRUE(send(*engine, "\x13"
                              "A06:00Early14:00222:00X23:59")
                    .isEmpty());
    const QList<CSeriesShift> kept{{"A", 6, 0}, {"Early", 14, 0}, {"2", 22, 0}, {"X", 23, 59}};
    EXPECT_EQ(engine->state().shifts, kept);

    EXPECT_EQ(send(*engine, "\x13"
                            "A06:00B24:00C00:00D12:00"),
              QList<QByteArray>{kNak});
    EXPECT_EQ(send(*engine, "\x13"
                            "A06:00B12:60C00:00D12:00"),
              QList<QByteArray>{kNak});
    EXPECT_EQ(engine->state().shifts, kept);
    // Empty ids are ids all the same.
    EXPECT_TRUE(send(*engine, "\x13"
                              "01:0002:0003:0004:00")
                    .isEmpty());
    EXPECT_EQ(engine->state().shifts,
              QList<CSeriesShift>({{"", 1, 0}, {"", 2, 0}, {"", 3, 0}, {"", 4, 0}}));
}

TEST(CSeriesFaultKnobsTest, NakAndSohReplaceAReplyAndTheCommandDoesNothing)
{
    const auto engine = engineOf("nak=128&soh=21");
    ASSERT_TRUE(engine);
    EXPECT_EQ(send(*engine, "\x80\x15\x10"), QList<QByteArray>({kNak, "\x01", "\xCCINE1\r"}));

    const auto refusing = engineOf("nak=9&soh=20");
    ASSERT_TRUE(refusing);
    EXPECT_EQ(send(*refusing, "\x09"
                              "BESTBY\r\x10"),
              QList<QByteArray>({kNak, "\xCCINE1\r"}));
    // A command that is otherwise answered by nothing is answered by SOH.
    EXPECT_EQ(send(*refusing, "\x14"
                              "7030220250605\x0E"),
              QList<QByteArray>({"\x01", statusWith("05/09/2007", "14:07:30", "099")}));
}

TEST(CSeriesFaultKnobsTest, GarblePutsLettersInANumberField)
{
    const auto status = engineOf("garble=14&heads=1");
    ASSERT_TRUE(status);
    EXPECT_EQ(send(*status, "\x0E"),
              QList<QByteArray>{"Date : 05/09/2007\rTime : 14:07:30\rLanguage : abc\r"
                                "Shaft encoder : 0\rPhotocell : 0\rFpga status : 0\r"
                                "Ink status : 099\rAvailable drivespace : 2048\rHead 1 : 111\r"
                                "Merlin version : A1.234\rApprentice version : 2.05\r"
                                "FPGA version : = 1.10\r\xFE"});
    const auto setup = engineOf("garble=128");
    ASSERT_TRUE(setup);
    EXPECT_EQ(send(*setup, "\x80"), QList<QByteArray>{"1,0,0,abc,100,0,16,10700\xFE"});
    // Only the first line's date.
    const auto log = engineOf("garble=29&errors=2");
    ASSERT_TRUE(log);
    EXPECT_EQ(send(*log, "\x1D"), QList<QByteArray>{"Ink pressure low abc 00:33:04\n"
                                                    "Solvent level low 05/09/2007 07:20:17\n\xFE"});
    // The other replies stay whole.
    EXPECT_EQ(send(*log, "\x80"), QList<QByteArray>{"1,0,0,150,100,0,16,10700\xFE"});
}

TEST(CSeriesInputTest, ACommandSplitAcrossFragmentsIsAnsweredOnceWhole)
{
    const QByteArray round("\x0E\x80\x1D\x18\x10\x15\x19");
    const QByteArray actions = "\x14"
                               "3090520071407" +
                               QByteArray("\x11\x00\x07\x15", 4) +
                               "\x09"
                               "BATCH07\r"
                               "\x13"
                               "A06:00B14:00C22:00D23:00" +
                               round;
    const auto whole = engineOf("errors=2");
    const auto byteByByte = engineOf("errors=2");
    ASSERT_TRUE(whole && byteByByte);
    const QList<QByteArray> expected = send(*whole, actions);
    // The count read back, the ACK, then the seven replies of a round.
    ASSERT_EQ(expected.size(), 2 + 7);
    EXPECT_EQ(expected.at(0), QByteArray("\x07\x00", 2));
    EXPECT_EQ(expected.at(1), kAck);
    EXPECT_EQ(expected.at(6), QByteArray("\xC2"
                                         "ATCH07\r"));
    QList<QByteArray> replies;
    for (const char byte : actions)
        replies += send(*byteByByte, QByteArray(1, byte));
    EXPECT_EQ(replies, expected);
    EXPECT_EQ(byteByByte->state().shifts, whole->state().shifts);
}

TEST(CSeriesInputTest, ADirectionWaitsForItsDigitButEndsWithTheFragmentOnceItCame)
{
    const auto engine = engineOf();
    ASSERT_TRUE(engine);
    EXPECT_TRUE(send(*engine, "\x04").isEmpty());
    EXPECT_EQ(send(*engine, "5"), QList<QByteArray>{kEnd});
    EXPECT_EQ(send(*engine, "\x80"), QList<QByteArray>{"1,0,0,150,100,0,16,10750\xFE"});
}

TEST(CSeriesInputTest, AnUnknownByteIsAnsweredByOneNakAndTheRestOfItsFragmentDropped)
{
    const auto engine = engineOf();
    ASSERT_TRUE(engine);
    EXPECT_EQ(send(*engine, "\xFF\x0E\x0E"), QList<QByteArray>{kNak});
    EXPECT_EQ(send(*engine, QByteArray(1, '\0')), QList<QByteArray>{kNak});
    // The console's commands have no reply of their own here.
    for (const char code : {26, 23, 27, 22, 18, 10, 1})
        EXPECT_EQ(send(*engine, QByteArray(1, code) + "data"), QList<QByteArray>{kNak})
            << int(code);
    EXPECT_EQ(send(*engine, "\x10"), QList<QByteArray>{"\xCCINE1\r"});
}

TEST(CSeriesInputTest, AnUnfinishedCommandIsForgottenAfterTwoSecondsOfQuiet)
{
    const auto engine = engineOf();
    ASSERT_TRUE(engine);
    EXPECT_TRUE(send(*engine,
                     "\x09"
                     "BES",
                     10)
                    .isEmpty());
    EXPECT_EQ(send(*engine, "TBY\r", 12), QList<QByteArray>{kAck});
    EXPECT_TRUE(send(*engine,
                     "\x09"
                     "LIN",
                     20)
                    .isEmpty());
    // Without the timeout "\x10" would be the fourth letter of the name.
    EXPECT_EQ(send(*engine, "\x10", 23), QList<QByteArray>{"\xC2"
                                                           "ESTBY\r"});
}

TEST(CSeriesInputTest, ShiftsThatNeverEndAreRefusedAt4KiBAndTheInputStartsAfresh)
{
    const auto engine = engineOf();
    ASSERT_TRUE(engine);
    const QByteArray noTimes(CSeriesCommandReader::kLongestArgument - 1, 'x');
    // Sent in pieces, as a wire brings it.
    EXPECT_TRUE(send(*engine, "\x13" + noTimes.left(1000)).isEmpty());
    EXPECT_TRUE(send(*engine, noTimes.mid(1000)).isEmpty());
    EXPECT_EQ(send(*engine, "y\x10"), QList<QByteArray>({kNak, "\xCCINE1\r"}));
}

TEST(CSeriesInputTest, AFloodOfRequestsIsAnsweredOnlyAsFarAsTheOutputBufferHolds)
{
    const auto engine = engineOf();
    ASSERT_TRUE(engine);
    const QByteArray status = send(*engine, "\x0E").value(0);
    const QList<QByteArray> replies = send(*engine, QByteArray(1000, '\x0E') + "\x10");
    EXPECT_EQ(replies.size(), CSeriesEngine::kOutputBuffer / status.size());
    EXPECT_EQ(replies.last(), status);
    EXPECT_EQ(replies.size() * status.size(), replies.join().size());
    // What doesn't fit is lost, not kept for later.
    EXPECT_EQ(send(*engine, "\x10"), QList<QByteArray>{"\xCCINE1\r"});
}

TEST(CSeriesKnobsTest, EveryKnobIsReadSoABareOrAFullyKnobbedPrinterIsMade)
{
    QString error;
    EXPECT_TRUE(SimPrinter::fromAddress(QStringLiteral("c-series"), error)) << error.toStdString();
    const QString full = QStringLiteral(
        "c-series?ink=1&remaining=50&errors=4&wrap=2&file=B&files=A,B&logos=L&count=9&heads=3&"
        "version=C9.001&app=x&fpga=y&nak=14&soh=16&garble=128&inklowafter=5&errorafter=6&"
        "errorfor=7&highbit=false&packed=true&dateformat=MDY&dateseparator=.&delay=0");
    EXPECT_TRUE(SimPrinter::fromAddress(full, error)) << error.toStdString();
    EXPECT_TRUE(error.isEmpty()) << error.toStdString();
}

TEST(CSeriesKnobsTest, ABadValueIsRefusedByName)
{
    const QList<std::pair<QString, QString>> refused{
        {"ink=4", "ink"},
        {"remaining=65536", "remaining"},
        {"errors=21", "errors"},
        {"errors=3&wrap=4", "wrap"},
        {"count=65536", "count"},
        {"heads=0", "heads"},
        {"heads=7", "heads"},
        {"version=A12", "version"},
        {"version=A1.2x4", "version"},
        {"app=", "app"},
        {"fpga=1%0D2", "fpga"},
        {"nak=99", "nak"},
        {"nak=14&soh=14", "soh"},
        {"garble=21", "garble"},
        {"garble=300", "garble"},
        {"files=A,A", "files"},
        {"files=NINECHARS", "files"},
        {"files=A,,B", "files"},
        {"file=NINECHARS", "file"},
        {"file=A%01", "file"},
        {"logos=%FE", "logos"},
        {"dateformat=ymd", "dateformat"},
        {"dateseparator=%20", "dateseparator"},
        {"highbit=maybe", "highbit"},
        {"inklowafter=-1", "inklowafter"},
        {"errorfor=soon", "errorfor"},
    };
    for (const auto& [query, named] : refused) {
        QString error;
        const std::optional<SimKnobs> knobs = SimKnobs::fromQuery(query, error);
        ASSERT_TRUE(knobs) << query.toStdString();
        EXPECT_FALSE(CSeriesEngine::create(*knobs, error)) << query.toStdString();
        EXPECT_TRUE(error.contains(QStringLiteral("\"%1\"").arg(named)))
            << query.toStdString() << ": " << error.toStdString();
    }
}

TEST(CSeriesTimelineTest, InkRunsLowThenOutAsTheSecondsPass)
{
    const auto engine = engineOf("heads=1&remaining=5&inklowafter=10");
    ASSERT_TRUE(engine);
    const auto inkAt = [&](qint64 secondsOn) {
        const QByteArray status = send(*engine, "\x0E", secondsOn).value(0);
        const qsizetype at = status.indexOf("Ink status : ");
        return status.mid(at + 13, status.indexOf('\r', at) - at - 13);
    };
    EXPECT_EQ(inkAt(0), "05");
    EXPECT_EQ(inkAt(9), "05");
    EXPECT_EQ(inkAt(10), "15");
    EXPECT_EQ(inkAt(12), "13");
    EXPECT_EQ(inkAt(15), "30");
    EXPECT_EQ(inkAt(1000), "30");
}

TEST(CSeriesTimelineTest, ATimedErrorComesUpOnTheLogAndClearsAgain)
{
    const auto engine = engineOf("errorafter=60&errorfor=30");
    ASSERT_TRUE(engine);
    EXPECT_EQ(send(*engine, "\x1D", 0), QList<QByteArray>{kNak});
    EXPECT_EQ(send(*engine, "\x1D", 59), QList<QByteArray>{kNak});
    const QList<QByteArray> standing{"Head not ready 05/09/2007 14:08:30\n\xFE"};
    EXPECT_EQ(send(*engine, "\x1D", 60), standing);
    EXPECT_EQ(send(*engine, "\x1D", 89), standing);
    EXPECT_EQ(send(*engine, "\x1D", 90), QList<QByteArray>{kNak});

    // Without errorfor it stays.
    const auto staying = engineOf("errorafter=0");
    ASSERT_TRUE(staying);
    send(*staying, "\x0E");
    EXPECT_EQ(send(*staying, "\x1D", 100000),
              QList<QByteArray>{"Head not ready 05/09/2007 14:07:30\n\xFE"});
}

TEST(CSeriesTimelineTest, ATimedErrorIsWrittenBehindTheNewestEntryOfAWrappedLog)
{
    const auto engine = engineOf("errors=2&wrap=2&errorafter=5");
    ASSERT_TRUE(engine);
    EXPECT_EQ(send(*engine, "\x1D", 0), QList<QByteArray>{"Solvent level low 05/09/2007 07:20:17\n"
                                                          "Ink pressure low 05/09/2007 00:33:04\n"
                                                          "\xFE"});
    EXPECT_EQ(send(*engine, "\x1D", 5), QList<QByteArray>{"Solvent level low 05/09/2007 07:20:17\n"
                                                          "Head not ready 05/09/2007 14:07:35\n"
                                                          "Ink pressure low 05/09/2007 00:33:04\n"
                                                          "\xFE"});
    // A full log loses its oldest entry to it.
    const auto full = engineOf("errors=20&errorafter=0");
    ASSERT_TRUE(full);
    const QList<QByteArray> lines = send(*full, "\x1D").value(0).split('\n');
    ASSERT_EQ(lines.size(), 21);
    EXPECT_TRUE(lines.first().startsWith("Solvent level low ")) << lines.first().toStdString();
    EXPECT_TRUE(lines.at(19).startsWith("Head not ready ")) << lines.at(19).toStdString();
    EXPECT_EQ(lines.last(), kEnd);
}
} // namespace
