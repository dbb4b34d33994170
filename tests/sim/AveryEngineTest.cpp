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

} // namespace
