#include "sim/AveryEngine.h"

#include "EngineTestSupport.h"

namespace {
const QByteArray kStatus("#!A1#!X0#!P1");
const QByteArray kStart("#!A1#!SR#!P1");
const QByteArray kStop("#!A1#!SP#!P1");
const QByteArray kClear("#!A1#!CA#!P1");
const QList<QByteArray> kNothing;

std::unique_ptr<AveryEngine> engineOf(const QString& query = {})
{
    return makeEngine<AveryEngine, AverySettings>(query);
}

TEST(AveryStatusFrameTest, ShortAndHModelLongFramesHaveTheirFieldsPadded)
{
    // The byte behind "A" is read by nobody.
    const std::pair<QString, QByteArray> cases[] = {
        {"", "S00A100M00000F32768K12"},
        {"labels=123&free=4096&format=1", "S00A101M00123F04096K12"},
        {"code=7&flag=yes&version=3", "S07A110M00000F32768K3 "},
        {"model=H&code=E1&flag=true&format=3&labels=123456&free=654321&version=V2.01",
         "S00E1A113M123456F654321KV2.01           "},
        {"model=h", "S0000A100M000000F032768KV1.23           "},
    };
    for (const auto& [query, frame] : cases) {
        const auto engine = engineOf(query);
        ASSERT_TRUE(engine);
        EXPECT_EQ(send(*engine, kStatus), QList<QByteArray>{frame}) << query.toStdString();
    }
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
    const auto whole = engineOf("labels=9");
    const auto byteByByte = engineOf("labels=9");
    ASSERT_TRUE(whole && byteByByte);
    EXPECT_EQ(sentWholeAndByteByByte(*whole, *byteByByte,
                                     kStatus + kStart + kStatus + kStop + kStatus + kStatus),
              QList<QByteArray>({"S00A100M00009F32768K12", "S00A101M00009F32768K12",
                                 "S00A100M00009F32768K12", "S00A100M00009F32768K12"}));
}
TEST(AveryInputTest, TheLabelsOfAJobAreKeptBesideItsCommands)
{
    const auto engine = engineOf("labels=9");
    ASSERT_TRUE(engine);
    // A label in ZPL, with a status request in the middle of it, as a job between polls.
    EXPECT_EQ(send(*engine, "^XA^FO40,40^FDL0042^FS" + kStatus + "^FDJuice^FS^XZ"),
              QList<QByteArray>{"S00A100M00009F32768K12"});
    EXPECT_EQ(engine->printed().count(), 1);
    EXPECT_EQ(engine->printed().lastFields(), (QStringList{"L0042", "Juice"}));
    EXPECT_EQ(engine->takeNotices(), QStringList{"label 1: L0042 | Juice"});
}
} // namespace
