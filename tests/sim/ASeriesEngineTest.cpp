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

QString refusal(const QString& query)
{
    QString error;
    const std::optional<SimKnobs> knobs = SimKnobs::fromQuery(query, error);
    EXPECT_TRUE(knobs) << error.toStdString();
    EXPECT_FALSE(SimRegistry::create(QStringLiteral("a-series"), *knobs, error))
        << query.toStdString();
    return error;
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

TEST(ASeriesRepliesTest, TheRasterFollowsAnEmptyStringAndTheMessageNamePaddedWithBlanks)
{
    const auto engine = engineOf();
    ASSERT_TRUE(engine);
    const QByteArray data("\0BESTBY\0"
                          "7 High          \0",
                          25);
    EXPECT_EQ(send(*engine, kReadRaster),
              QList<QByteArray>{hex("02 00 00 00 00 1B 00 4A 40") + data + hex("87 05")});

    const auto full = engineOf("raster=16%20High%202%20Line");
    ASSERT_TRUE(full);
    const QByteArray fullData("\0BESTBY\0"
                              "16 High 2 Line  \0",
                              25);
    EXPECT_EQ(send(*full, kReadRaster),
              QList<QByteArray>{hex("02 00 00 00 00 1B 00 4A 40") + fullData + hex("B1 06")});
}

TEST(ASeriesRepliesTest, TheClockIsSevenBinaryBytesFromTheCentury)
{
    const auto engine = engineOf();
    ASSERT_TRUE(engine);
    EXPECT_EQ(send(*engine, kReadClock), QList<QByteArray>{kClockReply});
}

TEST(ASeriesRepliesTest, CountsAndCountersAreLittleEndian32BitNumbers)
{
    const auto engine = engineOf("detected=67305985&count=305419896");
    ASSERT_TRUE(engine);
    EXPECT_EQ(send(*engine, kReadCounts),
              QList<QByteArray>{hex("02 00 00 00 00 0A 00 40 40 01 02 03 04 78 56 34 12 AA 01")});
    EXPECT_EQ(send(*engine, kReadCounters),
              QList<QByteArray>{hex("02 00 00 00 00 0E 00 45 40 "
                                    "45 23 01 00 78 56 34 12 07 00 00 00 19 02")});
    const auto none = engineOf();
    ASSERT_TRUE(none);
    EXPECT_EQ(send(*none, kReadCounts),
              QList<QByteArray>{hex("02 00 00 00 00 0A 00 40 40 00 00 00 00 00 00 00 00 8C 00")});
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

TEST(ASeriesRepliesTest, ATimedAlarmStandsFromAlarmAfterForAlarmForSecondsBehindTheOthers)
{
    const auto engine = engineOf("alarms=12,40:3&timedalarm=50:2&alarmafter=10&alarmfor=5");
    ASSERT_TRUE(engine);
    const QByteArray two = hex("02 00 00 00 00 07 00 E9 40 02 0C 01 28 03 6C 01");
    const QByteArray three = hex("02 00 00 00 00 09 00 E9 40 03 0C 01 28 03 32 02 A3 01");
    EXPECT_EQ(send(*engine, kReadAlarms), QList<QByteArray>{two});
    EXPECT_EQ(send(*engine, kReadAlarms, 9), QList<QByteArray>{two});
    EXPECT_EQ(send(*engine, kReadAlarms, 10), QList<QByteArray>{three});
    EXPECT_EQ(send(*engine, kReadAlarms, 14), QList<QByteArray>{three});
    EXPECT_EQ(send(*engine, kReadAlarms, 15), QList<QByteArray>{two});

    // Without alarmfor it stays; time counts from the first bytes, not from when it was made.
    const auto stays = engineOf("timedalarm=12&alarmafter=60");
    ASSERT_TRUE(stays);
    const QByteArray one = hex("02 00 00 00 00 05 00 E9 40 01 0C 01 3E 01");
    EXPECT_EQ(stays->receive(kReadAlarms, kOn.addDays(1)), QList<QByteArray>{kNoAlarms});
    EXPECT_EQ(stays->receive(kReadAlarms, kOn.addDays(1).addSecs(60)), QList<QByteArray>{one});
    EXPECT_EQ(stays->receive(kReadAlarms, kOn.addDays(30)), QList<QByteArray>{one});
}

TEST(ASeriesRepliesTest, AReadAnswersWhateverDataAndLowTypeBitsItCarries)
{
    const auto engine = engineOf();
    ASSERT_TRUE(engine);
    // The console may add data to any read; a 34 with data is still a read.
    EXPECT_EQ(send(*engine, hex("02 00 00 00 00 03 00 22 20 01 48 00")),
              QList<QByteArray>{kClockReply});
    EXPECT_EQ(send(*engine, hex("02 00 00 00 00 02 00 4A 20 6E 00")), send(*engine, kReadRaster));
    // Only the top three bits of the type byte are the type: 0x21 is a read.
    EXPECT_EQ(send(*engine, hex("02 00 00 00 00 02 00 61 21 86 00")),
              send(*engine, kReadConfiguration));
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

TEST(ASeriesClockWriteTest, AClockWriteOfNoSuchTimeIsRefusedWithType4AndChangesNothing)
{
    const auto engine = engineOf();
    ASSERT_TRUE(engine);
    const QList<QByteArray> writes{
        hex("02 00 00 00 00 09 00 22 00 14 19 02 1E 06 05 00 85 00"), // 30 February
        hex("02 00 00 00 00 09 00 22 00 14 19 03 02 18 05 00 7C 00"), // hour 24
        hex("02 00 00 00 00 09 00 22 00 64 00 01 01 00 00 00 93 00"), // century 100
        hex("02 00 00 00 00 08 00 22 00 14 19 03 02 06 05 69 00"),    // six bytes
    };
    for (const QByteArray& write : writes)
        EXPECT_EQ(send(*engine, write), QList<QByteArray>{kClockRefused})
            << write.toHex(' ').toStdString();
    EXPECT_EQ(send(*engine, kReadClock), QList<QByteArray>{kClockReply});
}

TEST(ASeriesErrorRepliesTest, UnknownIdsOtherWritesAndOtherTypesGetType4WithoutData)
{
    const auto engine = engineOf();
    ASSERT_TRUE(engine);
    EXPECT_EQ(send(*engine, hex("02 00 00 00 00 02 00 10 20 34 00")),
              QList<QByteArray>{hex("02 00 00 00 00 02 00 10 80 94 00")});
    // The clock is all that can be written.
    EXPECT_EQ(send(*engine, hex("02 00 00 00 00 06 00 40 00 00 00 00 00 48 00")),
              QList<QByteArray>{hex("02 00 00 00 00 02 00 40 80 C4 00")});
    // A frame of type 3, or a reply, is nothing a printer takes.
    const QByteArray refused = hex("02 00 00 00 00 02 00 61 80 E5 00");
    EXPECT_EQ(send(*engine, hex("02 00 00 00 00 02 00 61 60 C5 00")), QList<QByteArray>{refused});
    EXPECT_EQ(send(*engine, hex("02 00 00 00 00 02 00 61 40 A5 00")), QList<QByteArray>{refused});
}

TEST(ASeriesErrorRepliesTest, TheErrorKnobRefusesThatIdOnlyAndItsWriteDoesNothing)
{
    const auto alarms = engineOf("error=233&alarms=5");
    ASSERT_TRUE(alarms);
    EXPECT_EQ(send(*alarms, kReadAlarms + kReadClock),
              QList<QByteArray>({hex("02 00 00 00 00 02 00 E9 80 6D 01"), kClockReply}));

    const auto clock = engineOf("error=34");
    ASSERT_TRUE(clock);
    EXPECT_EQ(send(*clock, hex("02 00 00 00 00 09 00 22 00 14 19 03 02 06 05 00 6A 00")),
              QList<QByteArray>{kClockRefused});
    const auto healthy = engineOf();
    ASSERT_TRUE(healthy);
    EXPECT_EQ(send(*clock, kReadClock), QList<QByteArray>{kClockRefused});
    EXPECT_EQ(send(*clock, kReadConfiguration), send(*healthy, kReadConfiguration));
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

TEST(ASeriesInputTest, NoiseAndFramesWithBadChecksumsAreIgnoredButDoNotHideGoodFrames)
{
    const auto engine = engineOf();
    ASSERT_TRUE(engine);
    const QByteArray badChecksum = hex("02 00 00 00 00 02 00 22 20 47 00");
    const QByteArray notZero = hex("02 00 00 01 00 02 00 22 20 47 00");
    const QByteArray shortLength = hex("02 00 00 00 00 01 00 21 20 44 00");
    EXPECT_TRUE(send(*engine, badChecksum + notZero + shortLength).isEmpty());
    EXPECT_EQ(send(*engine, "noise\x02\x02" + badChecksum + kReadClock + "\x02"),
              QList<QByteArray>{kClockReply});
    // The lone start byte behind it was the beginning of nothing.
    EXPECT_EQ(send(*engine, QByteArray(3, '\0') + kReadClock), QList<QByteArray>{kClockReply});
}

TEST(ASeriesInputTest, AGarbledLengthSwallowsFramesOnlyUntilTwoSecondsOfQuiet)
{
    const auto engine = engineOf();
    ASSERT_TRUE(engine);
    // 1023 bytes are to come, so the read behind it is taken for part of this frame.
    EXPECT_TRUE(send(*engine, hex("02 00 00 00 00 FF 03") + kReadAlarms, 10).isEmpty());
    EXPECT_TRUE(send(*engine, kReadAlarms, 12).isEmpty());
    EXPECT_EQ(send(*engine, kReadAlarms, 15), QList<QByteArray>{kNoAlarms});

    // Once the frame is whole and its checksum wrong, the frames it held are found in it.
    const auto recovering = engineOf();
    ASSERT_TRUE(recovering);
    const QByteArray garbled = hex("02 00 00 00 00 10 00") + kReadClock + kReadCounters;
    EXPECT_EQ(send(*recovering, garbled),
              QList<QByteArray>({kClockReply, hex("02 00 00 00 00 0E 00 45 40 45 23 01 00 "
                                                  "78 56 34 12 07 00 00 00 19 02")}));
}

TEST(ASeriesInputTest, TheLongestFrameIsTakenWithItsChecksumWrappedAndNothingLonger)
{
    const auto engine = engineOf();
    ASSERT_TRUE(engine);
    const QByteArray longest =
        hex("02 00 00 00 00 FF 03 61 20") + QByteArray(1021, '\xFF') + hex("88 FA");
    EXPECT_EQ(send(*engine, longest), send(*engine, kReadConfiguration));
    // A length of 1024 begins no frame.
    EXPECT_TRUE(
        send(*engine, hex("02 00 00 00 00 00 04 61 20") + QByteArray(1022, '\xFF') + hex("8A FA"))
            .isEmpty());
}

TEST(ASeriesInputTest, TheReaderKeepsUnderFourKilobytesWhateverComes)
{
    ASeriesFrameReader reader;
    // Frame beginnings that each wait for 1023 bytes, a megabyte of them.
    const QByteArray beginning = hex("02 00 00 00 00 FF 03");
    EXPECT_TRUE(reader.read(beginning.repeated(150'000), kOn).isEmpty());
    EXPECT_LT(reader.buffered(), 4096);
    EXPECT_TRUE(reader.read(QByteArray(1 << 20, '\x02'), kOn).isEmpty());
    EXPECT_LT(reader.buffered(), 4096);
}

TEST(ASeriesInputTest, AFloodOfRequestsIsAnsweredAsFarAs64KiB)
{
    QStringList all;
    for (int number = 0; number < 255; ++number)
        all.append(QString::number(number));
    const auto engine = engineOf(QStringLiteral("alarms=") + all.join(QLatin1Char(',')));
    ASSERT_TRUE(engine);
    const QList<QByteArray> replies = send(*engine, kReadAlarms.repeated(200));
    // Each reply is 11 bytes and 255 pairs: 125 of them fit.
    ASSERT_EQ(replies.size(), 125);
    EXPECT_EQ(replies.first().size(), 11 + 1 + 2 * 255);
    EXPECT_EQ(replies.first().mid(9, 3), hex("FF 00 01"));
    // The next lot is answered afresh.
    EXPECT_EQ(send(*engine, kReadClock), QList<QByteArray>{kClockReply});
}

TEST(ASeriesKnobsTest, BadKnobsAreRefusedByName)
{
    const QList<std::pair<QString, QString>> cases{
        {"alarms=5,5", "alarms"},
        {"alarms=256", "alarms"},
        {"alarms=1:2:3", "alarms"},
        {"alarms=1,x", "alarms"},
        {"timedalarm=5", "timedalarm"},
        {"alarmafter=5", "timedalarm"},
        {"alarmfor=5", "alarmfor"},
        {"timedalarm=5&alarmafter=1&alarms=5", "timedalarm"},
        {"timedalarm=5:300&alarmafter=1", "timedalarm"},
        {"alarmafter=-1&timedalarm=5", "alarmafter"},
        {"error=16", "error"},
        {"error=256", "error"},
        {"raster=12345678901234567", "raster"},
        {"machine=A%01B", "machine"},
        {"count=-1", "count"},
        {"detected=4294967296", "detected"},
    };
    for (const auto& [query, name] : cases)
        EXPECT_TRUE(refusal(query).contains('"' + name + '"')) << query.toStdString();

    // The reply counts them in one byte.
    QStringList numbers;
    for (int number = 0; number < 256; ++number)
        numbers.append(QString::number(number));
    EXPECT_TRUE(refusal("alarms=" + numbers.join(',')).contains("\"alarms\""));
    numbers.removeLast();
    EXPECT_TRUE(refusal("timedalarm=255&alarmafter=1&alarms=" + numbers.join(','))
                    .contains("\"timedalarm\""));
}

TEST(ASeriesKnobsTest, EveryKnobIsReadAndNoneOfTheWire)
{
    QString error;
    const std::optional<SimKnobs> knobs = SimKnobs::fromQuery(
        "machine=A&ink=B&nozzle=C&raster=D&count=1&detected=2&alarms=3:4&timedalarm=5&"
        "alarmafter=6&alarmfor=7&error=97&silent=true&delay=0&printing=true",
        error);
    ASSERT_TRUE(knobs);
    EXPECT_TRUE(SimRegistry::create(QStringLiteral("a-series"), *knobs, error))
        << error.toStdString();
    EXPECT_EQ(knobs->unreadNames(), QStringList({"delay", "printing", "silent"}));
}
} // namespace
