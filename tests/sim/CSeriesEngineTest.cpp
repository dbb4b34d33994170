#include "sim/CSeriesEngine.h"

#include "EngineTestSupport.h"

namespace {
const QByteArray kNak("\x15");

std::unique_ptr<CSeriesEngine> engineOf(const QString& query = {})
{
    return makeEngine<CSeriesEngine, CSeriesSettings>(query);
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

TEST(CSeriesRepliesTest, TheErrorLogListsLinesWithTheirDatesAndFallsBackAtTheWrap)
{
    const auto empty = engineOf();
    const auto plain = engineOf("errors=3");
    ASSERT_TRUE(empty && plain);
    EXPECT_EQ(send(*empty, "\x1D"), QList<QByteArray>{kNak});
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
    EXPECT_TRUE(send(*engine, QByteArray("\x14") + "7030220250605", 10).isEmpty());
    EXPECT_EQ(send(*engine, "\x0E", 10),
              QList<QByteArray>{statusWith("02/03/2025", "06:05:00", "099")});
    EXPECT_EQ(send(*engine, "\x0E", 100),
              QList<QByteArray>{statusWith("02/03/2025", "06:06:30", "099")});
    // The error log's dates are on the printer's clock too.
    const auto logged = engineOf("errors=1");
    ASSERT_TRUE(logged);
    send(*logged, QByteArray("\x14") + "3090520071507");
    EXPECT_EQ(send(*logged, "\x1D"),
              QList<QByteArray>{"Ink pressure low 05/09/2007 08:19:47\n\xFE"});
}

TEST(CSeriesFaultKnobsTest, NakAndSohReplaceAReplyAndTheCommandDoesNothing)
{
    const auto engine = engineOf("nak=128&soh=21");
    ASSERT_TRUE(engine);
    EXPECT_EQ(send(*engine, "\x80\x15\x10"), QList<QByteArray>({kNak, "\x01", "\xCCINE1\r"}));

    const auto refusing = engineOf("nak=9&soh=20");
    ASSERT_TRUE(refusing);
    EXPECT_EQ(send(*refusing, QByteArray("\x09") + "BESTBY\r\x10"),
              QList<QByteArray>({kNak, "\xCCINE1\r"}));
    // A command that is otherwise answered by nothing is answered by SOH.
    EXPECT_EQ(send(*refusing, QByteArray("\x14") + "7030220250605\x0E"),
              QList<QByteArray>({"\x01", statusWith("05/09/2007", "14:07:30", "099")}));
}

TEST(CSeriesInputTest, ACommandSplitAcrossFragmentsIsAnsweredOnceWhole)
{
    const QByteArray actions = QByteArray("\x14") + "3090520071407" +
                               QByteArray("\x11\x00\x07\x15\x09", 5) + "BATCH07\r" + "\x13" +
                               "A06:00B14:00C22:00D23:00" + "\x0E\x80\x1D\x18\x10\x15\x19";
    const auto whole = engineOf("errors=2");
    const auto byteByByte = engineOf("errors=2");
    ASSERT_TRUE(whole && byteByByte);
    const QList<QByteArray> replies = sentWholeAndByteByByte(*whole, *byteByByte, actions);
    // The count read back, the ACK, then the seven replies of a round.
    ASSERT_EQ(replies.size(), 2 + 7);
    EXPECT_EQ(replies.at(0), QByteArray("\x07\x00", 2));
    EXPECT_EQ(replies.at(1), QByteArray("\x06"));
    EXPECT_EQ(replies.at(6), QByteArray("\xC2") + "ATCH07\r");
    EXPECT_EQ(byteByByte->state().shifts, whole->state().shifts);
}
} // namespace
