#include "sim/AveryEngine.h"

#include "sim/AveryCommandReader.h"
#include "sim/SimRegistry.h"

#include <QTimeZone>
#include <gtest/gtest.h>

namespace {
const QDateTime kOn(QDate(2007, 9, 5), QTime(14, 7, 30), QTimeZone::utc());

const QByteArray kStatus("#!A1#!X0#!P1");
const QByteArray kStart("#!A1#!SR#!P1");
const QByteArray kStop("#!A1#!SP#!P1");
const QByteArray kClear("#!A1#!CA#!P1");
const QList<QByteArray> kNothing;

std::unique_ptr<AveryEngine> engineOf(const QString& query = {})
{
    QString error;
    const std::optional<SimKnobs> knobs = SimKnobs::fromQuery(query, error);
    const std::optional<AverySettings> settings =
        knobs ? AverySettings::read(*knobs, error) : std::nullopt;
    EXPECT_TRUE(settings) << query.toStdString() << ": " << error.toStdString();
    return settings ? std::make_unique<AveryEngine>(*settings) : nullptr;
}

// Each test's printer is switched on at kOn; later calls say how many seconds on they are.
QList<QByteArray> send(AveryEngine& engine, const QByteArray& bytes, qint64 secondsOn = 0)
{
    return engine.receive(bytes, kOn.addSecs(secondsOn));
}

QString refusal(const QString& query)
{
    QString error;
    const std::optional<SimKnobs> knobs = SimKnobs::fromQuery(query, error);
    EXPECT_TRUE(knobs) << error.toStdString();
    EXPECT_FALSE(SimRegistry::create(QStringLiteral("avery"), *knobs, error))
        << query.toStdString();
    return error;
}

TEST(AveryStatusFrameTest, TheShortFrameHasItsFieldsZeroPaddedBetweenTheMarkers)
{
    const auto idle = engineOf();
    ASSERT_TRUE(idle);
    // The byte behind "A" is read by nobody.
    EXPECT_EQ(send(*idle, kStatus), QList<QByteArray>{"S00A100M00000F32768K12"});
    const auto worked = engineOf("labels=123&free=4096&format=1");
    ASSERT_TRUE(worked);
    EXPECT_EQ(send(*worked, kStatus), QList<QByteArray>{"S00A101M00123F04096K12"});
    const auto flagged = engineOf("code=7&flag=yes&version=3");
    ASSERT_TRUE(flagged);
    EXPECT_EQ(send(*flagged, kStatus), QList<QByteArray>{"S07A110M00000F32768K3 "});
}

TEST(AveryStatusFrameTest, TheHModelsSendTheLongFrameWithTheVersionPaddedByBlanks)
{
    const auto engine =
        engineOf("model=H&code=E1&flag=true&format=3&labels=123456&free=654321&version=V2.01");
    ASSERT_TRUE(engine);
    const QList<QByteArray> replies = send(*engine, kStatus);
    EXPECT_EQ(replies, QList<QByteArray>{"S00E1A113M123456F654321KV2.01           "});
    EXPECT_EQ(replies.value(0).size(), 40);
    const auto lower = engineOf("model=h");
    ASSERT_TRUE(lower);
    EXPECT_EQ(send(*lower, kStatus), QList<QByteArray>{"S0000A100M000000F032768KV1.23           "});
}

TEST(AveryStatusFrameTest, NumbersTooLargeForTheirFieldsAreSentAsTheLargestTheyHold)
{
    const auto shortFrame = engineOf("labels=1234567&free=100000");
    const auto longFrame = engineOf("labels=1234567&free=100000&model=H");
    ASSERT_TRUE(shortFrame && longFrame);
    EXPECT_EQ(send(*shortFrame, kStatus), QList<QByteArray>{"S00A100M99999F99999K12"});
    EXPECT_EQ(send(*longFrame, kStatus),
              QList<QByteArray>{"S0000A100M999999F100000KV1.23           "});
}

TEST(AveryStatusFrameTest, BadMarkerAndNonDigitSpoilTheFrameAsAReaderMustNotice)
{
    const auto marker = engineOf("badmarker=true&labels=123");
    ASSERT_TRUE(marker);
    EXPECT_EQ(send(*marker, kStatus), QList<QByteArray>{"S00A100m00123F32768K12"});
    const auto letters = engineOf("nondigit=true&labels=123");
    ASSERT_TRUE(letters);
    EXPECT_EQ(send(*letters, kStatus), QList<QByteArray>{"S00A100MAABCDF32768K12"});
    const auto longLetters = engineOf("nondigit=true&labels=908&model=H");
    ASSERT_TRUE(longLetters);
    EXPECT_EQ(send(*longLetters, kStatus),
              QList<QByteArray>{"S0000A100MAAAJAIF032768KV1.23           "});
}

TEST(AveryPrintingTest, StartStopAndClearAreUnansweredAndShowInTheNextStatus)
{
    const auto engine = engineOf("labels=100");
    ASSERT_TRUE(engine);
    EXPECT_EQ(send(*engine, kStatus), QList<QByteArray>{"S00A100M00100F32768K12"});
    EXPECT_EQ(send(*engine, kStart, 10), kNothing);
    // One label a second, whole seconds only.
    EXPECT_EQ(send(*engine, kStatus, 13), QList<QByteArray>{"S00A101M00097F32768K12"});
    EXPECT_EQ(engine->receive(kStatus, kOn.addMSecs(13'999)),
              QList<QByteArray>{"S00A101M00097F32768K12"});
    // Started again while it prints, it counts on as before.
    EXPECT_EQ(send(*engine, kStart, 15), kNothing);
    EXPECT_EQ(send(*engine, kStop, 20), kNothing);
    EXPECT_EQ(send(*engine, kStatus, 30), QList<QByteArray>{"S00A100M00090F32768K12"});
    EXPECT_EQ(send(*engine, kStart + kStatus, 40), QList<QByteArray>{"S00A101M00090F32768K12"});
    EXPECT_EQ(send(*engine, kClear + kStatus, 45), QList<QByteArray>{"S00A100M00000F32768K12"});
    // With nothing to print it counts no further than 0.
    EXPECT_EQ(send(*engine, kStart + kStatus, 50), QList<QByteArray>{"S00A101M00000F32768K12"});
    EXPECT_EQ(send(*engine, kStatus, 60), QList<QByteArray>{"S00A101M00000F32768K12"});
}

TEST(AveryPrintingTest, APrinterPrintingFromTheStartCountsFromItsFirstBytesToZeroAndPrintsOn)
{
    const auto engine = engineOf("printing=true&labels=5");
    ASSERT_TRUE(engine);
    EXPECT_EQ(send(*engine, kStatus, 100), QList<QByteArray>{"S00A101M00005F32768K12"});
    EXPECT_EQ(send(*engine, kStatus, 103), QList<QByteArray>{"S00A101M00002F32768K12"});
    EXPECT_EQ(send(*engine, kStatus, 200), QList<QByteArray>{"S00A101M00000F32768K12"});
    // A host clock set back doesn't print labels back.
    EXPECT_EQ(send(*engine, kStatus, 0), QList<QByteArray>{"S00A101M00005F32768K12"});
    // The format digit may be set apart from the printing state.
    const auto odd = engineOf("printing=true&format=7");
    ASSERT_TRUE(odd);
    EXPECT_EQ(send(*odd, kStatus), QList<QByteArray>{"S00A107M00000F32768K12"});
}

TEST(AveryInputTest, CommandsSplitAnyWayOrRunTogetherAreEachTakenOnce)
{
    const QByteArray commands = kStatus + kStart + kStatus + kStop + kStatus + kStatus;
    const auto whole = engineOf("labels=9");
    const auto byteByByte = engineOf("labels=9");
    ASSERT_TRUE(whole && byteByByte);
    const QList<QByteArray> expected = send(*whole, commands);
    EXPECT_EQ(expected, QList<QByteArray>({"S00A100M00009F32768K12", "S00A101M00009F32768K12",
                                           "S00A100M00009F32768K12", "S00A100M00009F32768K12"}));
    QList<QByteArray> replies;
    for (const char byte : commands)
        replies += send(*byteByByte, QByteArray(1, byte));
    EXPECT_EQ(replies, expected);
}

TEST(AveryInputTest, NoiseOtherAddressesUnknownCodesAndBrokenCommandsAreDropped)
{
    const auto engine = engineOf();
    ASSERT_TRUE(engine);
    const QList<QByteArray> one{"S00A100M00000F32768K12"};
    EXPECT_EQ(send(*engine, "#!A2#!X0#!P2#!A11#!X0#!P11#!A1#!X0#!P2#!A1#!ZZ#!P1"), kNothing);
    EXPECT_EQ(send(*engine, "noise#!A1#!X0#!P" + kStatus + "#!"), one);
    // The "#!" left over was the beginning of nothing.
    EXPECT_EQ(send(*engine, "A1#!X" + kStatus), one);
    // An unknown code doesn't hide what follows.
    EXPECT_EQ(send(*engine, "#!A1#!ZZ#!P1" + kStatus), one);
}

TEST(AveryInputTest, TheReaderHoldsNoMoreThanOneUnfinishedCommand)
{
    AveryCommandReader reader;
    EXPECT_TRUE(reader.read(QByteArray("#!A1#!").repeated(200'000)).isEmpty());
    EXPECT_LT(reader.buffered(), kStatus.size());
    EXPECT_TRUE(reader.read(QByteArray(1 << 20, '#')).isEmpty());
    EXPECT_EQ(reader.buffered(), 1);
    EXPECT_EQ(reader.read("!A1#!SP#!P1"), QList<AveryCommand>{AveryCommand::Stop});
    EXPECT_EQ(reader.buffered(), 0);
}

TEST(AveryKnobsTest, BadKnobsAreRefusedByName)
{
    const QList<std::pair<QString, QString>> cases{
        {"model=HH", "model"},          {"model=1", "model"},
        {"code=123", "code"},           {"code=", "code"},
        {"model=H&code=12345", "code"}, {"version=123", "version"},
        {"version=", "version"},        {"model=H&version=12345678901234567", "version"},
        {"format=10", "format"},        {"labels=-1", "labels"},
        {"free=1000000000", "free"},    {"flag=maybe", "flag"},
        {"printing=2", "printing"},     {"badmarker=x", "badmarker"},
        {"nondigit=x", "nondigit"},     {"code=a%0Db", "code"},
    };
    for (const auto& [query, name] : cases)
        EXPECT_TRUE(refusal(query).contains('"' + name + '"')) << query.toStdString();
}

TEST(AveryKnobsTest, EveryKnobIsReadAndNoneOfTheWire)
{
    QString error;
    const std::optional<SimKnobs> knobs =
        SimKnobs::fromQuery("model=H&code=1234&flag=1&format=2&labels=3&free=4&version=5&"
                            "printing=0&badmarker=0&nondigit=0&fragment=3&garbage=2&alarms=1",
                            error);
    ASSERT_TRUE(knobs);
    EXPECT_TRUE(SimRegistry::create(QStringLiteral("avery"), *knobs, error)) << error.toStdString();
    EXPECT_EQ(knobs->unreadNames(), QStringList({"alarms", "fragment", "garbage"}));
}
} // namespace
