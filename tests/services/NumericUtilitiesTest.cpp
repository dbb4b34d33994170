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

TEST(NumericUtilities, BytesToLongIsLittleEndianWithoutSignExtendingShortInput)
{
    EXPECT_EQ(BytesToLong(QByteArray("\x01\x02", 2)), 513);
    EXPECT_EQ(BytesToLong(QByteArray("\x78\x56\x34\x12", 4)), 0x12345678);
    EXPECT_EQ(BytesToLong(QByteArray("\xFF", 1)), 255);
    EXPECT_EQ(BytesToLong(QByteArray("\xFF\x80", 2)), 0x80FF);
    EXPECT_EQ(BytesToLong(QByteArray("\xFF\xFF\xFF\xFF", 4)), -1);
    EXPECT_EQ(BytesToLong(QByteArray("\x00\x00\x00\x80", 4)), std::numeric_limits<qint32>::min());
    EXPECT_EQ(BytesToLong(QByteArray()), 0);
}

TEST(NumericUtilities, CombineDateTimeTakesDayFromFirstAndTimeFromSecond)
{
    const QDateTime combined = CombineDateTime(QDateTime(QDate(2024, 2, 29), QTime(23, 59, 58)),
                                               QDateTime(QDate(1999, 12, 31), QTime(6, 7, 8, 900)));
    EXPECT_EQ(combined.date(), QDate(2024, 2, 29));
    EXPECT_EQ(combined.time(), QTime(6, 7, 8));
}
