#include "sim/ASeriesEngine.h"

#include "EngineTestSupport.h"

namespace {
// Frames are written as the hex dumps a wire monitor shows.
QByteArray hex(const char* text)
{
    return QByteArray::fromHex(text);
}

std::unique_ptr<ASeriesEngine> engineOf(const QString& query = {})
{
    return makeEngine<ASeriesEngine, ASeriesSettings>(query);
}

const QByteArray kReadConfiguration = hex("02 00 00 00 00 02 00 61 20 85 00");
const QByteArray kReadClock = hex("02 00 00 00 00 02 00 22 20 46 00");
const QByteArray kReadAlarms = hex("02 00 00 00 00 02 00 E9 20 0D 01");
// 5 September 2007, 14:07:30.
const QByteArray kClockReply = hex("02 00 00 00 00 09 00 22 40 14 07 09 05 0E 07 1E C9 00");
const QByteArray kWriteAccepted = hex("02 00 00 00 00 02 00 22 40 66 00");

TEST(ASeriesRepliesTest, TheConfigurationHasItsSixStringsBehindFourBytesAndOneMore)
{
    const auto engine = engineOf();
    ASSERT_TRUE(engine);
    // Model 2010 and revision 3 in front; machine type, ink system and nozzle type are strings
    // 3, 4 and 5.
    const QByteArray data("\xDA\x07\x03\x00"
                          "Domino\0A-Series\0SN070905\0A320i\0MEK Black\0"
                          "75 micron\0Head 1\0",
                          4 + 58);
    EXPECT_EQ(send(*engine, kReadConfiguration),
              QList<QByteArray>{hex("02 00 00 00 00 40 00 61 40") + data + hex("CC 11")});

    // An empty nozzle type is still a string of its own.
    const auto set = engineOf("machine=A200&ink=Solvent&nozzle=");
    ASSERT_TRUE(set);
    const QByteArray setData("\xDA\x07\x03\x00"
                             "Domino\0A-Series\0SN070905\0A200\0Solvent\0\0Head 1\0",
                             4 + 46);
    EXPECT_EQ(send(*set, kReadConfiguration),
              QList<QByteArray>{hex("02 00 00 00 00 34 00 61 40") + setData + hex("51 0E")});
}

TEST(ASeriesRepliesTest, AlarmsAreACountThenNumberAndStatusPairs)
{
    const auto none = engineOf();
    const auto two = engineOf("alarms=12,%2040:3"); // the status byte is 1 unless given
    ASSERT_TRUE(none && two);
    EXPECT_EQ(send(*none, kReadAlarms),
              QList<QByteArray>{hex("02 00 00 00 00 03 00 E9 40 00 2E 01")});
    EXPECT_EQ(send(*two, kReadAlarms),
              QList<QByteArray>{hex("02 00 00 00 00 07 00 E9 40 02 0C 01 28 03 6C 01")});
}

TEST(ASeriesClockWriteTest, TheClockWriteIsAcceptedAndTheClockRunsOnFromIt)
{
    const auto engine = engineOf();
    ASSERT_TRUE(engine);
    // The clock is seven binary bytes from the century: Sunday 2 March 2025, 06:05:00.
    EXPECT_EQ(send(*engine, hex("02 00 00 00 00 09 00 22 00 14 19 03 02 06 05 00 6A 00"), 10),
              QList<QByteArray>{kWriteAccepted});
    EXPECT_EQ(send(*engine, kReadClock, 110),
              QList<QByteArray>{hex("02 00 00 00 00 09 00 22 40 14 19 03 02 06 06 28 D3 00")});
    // Written back to the host's time, it reads as the host's time.
    EXPECT_EQ(send(*engine, hex("02 00 00 00 00 09 00 22 00 14 07 09 05 0E 07 1E 89 00")),
              QList<QByteArray>{kWriteAccepted});
    EXPECT_EQ(send(*engine, kReadClock), QList<QByteArray>{kClockReply});
}

TEST(ASeriesInputTest, ARoundSplitAnyWayIsAnsweredOnceWholeInOrder)
{
    const auto whole = engineOf("alarms=3");
    const auto byteByByte = engineOf("alarms=3");
    ASSERT_TRUE(whole && byteByByte);
    const QList<QByteArray> replies =
        sentWholeAndByteByByte(*whole, *byteByByte,
                               kReadConfiguration + hex("02 00 00 00 00 03 00 4A 20 00 6F 00") +
                                   kReadClock + hex("02 00 00 00 00 02 00 40 20 64 00") +
                                   kReadAlarms + hex("02 00 00 00 00 02 00 45 20 69 00"));
    ASSERT_EQ(replies.size(), 6);
    EXPECT_EQ(replies.at(2), kClockReply);
}
} // namespace
