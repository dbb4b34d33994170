#include "services/NumericUtilities.h"

#include <gtest/gtest.h>
#include <limits>

TEST(NumericUtilities, BoundsAndRaiseToMax)
{
    EXPECT_EQ(MaxLong(-3, 2), 2);
    EXPECT_EQ(MinLong(-3, 2), -3);
    EXPECT_FLOAT_EQ(MaxSingle(1.5f, -2.5f), 1.5f);
    EXPECT_FLOAT_EQ(MinSingle(1.5f, -2.5f), -2.5f);

    qint32 level = 5;
    RaiseToMax(level, 3);
    EXPECT_EQ(level, 5);
    RaiseToMax(level, 8);
    EXPECT_EQ(level, 8);
}

TEST(NumericUtilities, BytesToLongIsLittleEndian)
{
    EXPECT_EQ(BytesToLong(QByteArray("\x01\x02", 2)), 513);
    EXPECT_EQ(BytesToLong(QByteArray("\x78\x56\x34\x12", 4)), 0x12345678);
    // A high byte on its own is not sign-extended.
    EXPECT_EQ(BytesToLong(QByteArray("\xFF", 1)), 255);
    EXPECT_EQ(BytesToLong(QByteArray("\xFF\x80", 2)), 0x80FF);
    EXPECT_EQ(BytesToLong(QByteArray("\xFF\xFF\xFF\xFF", 4)), -1);
    EXPECT_EQ(BytesToLong(QByteArray("\x00\x00\x00\x80", 4)), std::numeric_limits<qint32>::min());
    EXPECT_EQ(BytesToLong(QByteArray()), 0);
}

TEST(NumericUtilities, StringAndBytes)
{
    const QString text = QStringLiteral("A\x01z") + QChar(0xE9) + QChar(0);
    const QByteArray bytes = StringToBytes(text);
    EXPECT_EQ(bytes, QByteArray("A\x01z\xE9\x00", 5));
    EXPECT_EQ(BytesToString(bytes), text);
    EXPECT_EQ(BytesToString(QByteArray()), QString());
    EXPECT_TRUE(StringToBytes(QString()).isEmpty());
}

TEST(NumericUtilities, CombineDateTimeTakesDayFromFirstAndTimeFromSecond)
{
    const QDateTime day(QDate(2024, 2, 29), QTime(23, 59, 58));
    const QDateTime clock(QDate(1999, 12, 31), QTime(6, 7, 8, 900));
    const QDateTime combined = CombineDateTime(day, clock);
    EXPECT_EQ(combined.date(), QDate(2024, 2, 29));
    EXPECT_EQ(combined.time(), QTime(6, 7, 8));
}

TEST(NumericUtilities, ModesIconsAndOsVersion)
{
    EXPECT_EQ(NextMode(0), 1);
    EXPECT_EQ(NextMode(1), 2);
    EXPECT_EQ(NextMode(2), 3);
    EXPECT_EQ(NextMode(3), 1);
    EXPECT_EQ(NextMode(-1), 1);
    EXPECT_EQ(NextMode(42), 1);

    const std::array<qint32, 2> pair{7, 9};
    EXPECT_EQ(IconIndex(pair, 0), 7);
    EXPECT_EQ(IconIndex(pair, 3), 9);
    EXPECT_EQ(IconIndex(pair, 1), 0);
    EXPECT_EQ(IconIndex(pair, 2), 0);

    EXPECT_EQ(GetOSVersion(true), 11);
    EXPECT_EQ(GetOSVersion(false), 11);
}
