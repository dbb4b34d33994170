#include "sim/ASeriesEngine.h"

#include "sim/ASeriesFrameReader.h"
#include "sim/SimRegistry.h"

#include <QTimeZone>
#include <gtest/gtest.h>

namespace {
// Wednesday 5 September 2007, 14:07:30, when each printer here first hears from anyone.
const QDateTime kOn(QDate(2007, 9, 5), QTime(14, 7, 30), QTimeZone::utc());

// Frames are written as the hex dumps a wire monitor shows.
QByteArray hex(const char* text)
{
    return QByteArray::fromHex(text);
}

const QByteArray kReadConfiguration = hex("02 00 00 00 00 02 00 61 20 85 00");
const QByteArray kReadRaster = hex("02 00 00 00 00 03 00 4A 20 00 6F 00");
const QByteArray kReadClock = hex("02 00 00 00 00 02 00 22 20 46 00");
const QByteArray kReadCounts = hex("02 00 00 00 00 02 00 40 20 64 00");
const QByteArray kReadAlarms = hex("02 00 00 00 00 02 00 E9 20 0D 01");
const QByteArray kReadCounters = hex("02 00 00 00 00 02 00 45 20 69 00");
// 5 September 2007, 14:07:30.
const QByteArray kClockReply = hex("02 00 00 00 00 09 00 22 40 14 07 09 05 0E 07 1E C9 00");
const QByteArray kNoAlarms = hex("02 00 00 00 00 03 00 E9 40 00 2E 01");
const QByteArray kWriteAccepted = hex("02 00 00 00 00 02 00 22 40 66 00");
const QByteArray kClockRefused = hex("02 00 00 00 00 02 00 22 80 A6 00");

std::unique_ptr<ASeriesEngine> engineOf(const QString& query = {})
{
    QString error;
    const std::optional<SimKnobs> knobs = SimKnobs::fromQuery(query, error);
    const std::optional<ASeriesSettings> settings =
        knobs ? ASeriesSettings::read(*knobs, error) : std::nullopt;
    EXPECT_TRUE(settings) << query.toStdString() << ": " << error.toStdString();
    return settings ? std::make_unique<ASeriesEngine>(*settings) : nullptr;
}

// Each test's printer is switched on at kOn; later calls say how many seconds on they are.
QList<QByteArray> send(ASeriesEngine& engine, const QByteArray& bytes, qint64 secondsOn = 0)
{
    return engine.receive(bytes, kOn.addSecs(secondsOn));
}

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

TEST(ASeriesRepliesTest, TheClockIsSevenBinaryBytesFromTheCentury)
{
    const auto engine = engineOf();
    ASSERT_TRUE(engine);
    EXPECT_EQ(send(*engine, kReadClock), QList<QByteArray>{kClockReply});
}

TEST(ASeriesRepliesTest, AlarmsAreACountThenNumberAndStatusPairs)
{
    const auto none = engineOf();
    ASSERT_TRUE(none);
    EXPECT_EQ(send(*none, kReadAlarms), QList<QByteArray>{kNoAlarms});
    // The status byte is 1 unless given.
    const auto two = engineOf("alarms=12,%2040:3");
    ASSERT_TRUE(two);
    EXPECT_EQ(send(*two, kReadAlarms),
              QList<QByteArray>{hex("02 00 00 00 00 07 00 E9 40 02 0C 01 28 03 6C 01")});
}

TEST(ASeriesClockWriteTest, TheClockWriteIsAcceptedAndTheClockRunsOnFromIt)
{
    const auto engine = engineOf();
    ASSERT_TRUE(engine);
    // Sunday 2 March 2025, 06:05:00.
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
    const QByteArray round =
        kReadConfiguration + kReadRaster + kReadClock + kReadCounts + kReadAlarms + kReadCounters;
    const auto whole = engineOf("alarms=3");
    const auto byteByByte = engineOf("alarms=3");
    ASSERT_TRUE(whole && byteByByte);
    const QList<QByteArray> expected = send(*whole, round);
    ASSERT_EQ(expected.size(), 6);
    EXPECT_EQ(expected.at(2), kClockReply);
    QList<QByteArray> replies;
    for (const char byte : round)
        replies += send(*byteByByte, QByteArray(1, byte));
    EXPECT_EQ(replies, expected);
}

} // namespace
