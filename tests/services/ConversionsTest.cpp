#include "services/Conversions.h"

#include "services/VigilError.h"

#include <gtest/gtest.h>
#include <limits>

namespace {
// The error number ToLong raises for `value`, or 0 when it returns.
qint32 errorOf(const QVariant& value)
{
    try {
        ToLong(value);
    } catch (const VigilError& error) {
        return error.number();
    }
    return 0;
}
} // namespace

TEST(Conversions, IsNumericAndNumericValue)
{
    for (const char* text : {"12", " 12 ", "-3.5", "+.5", "1e3", "2.", "&H1F", "&o17"})
        EXPECT_TRUE(IsNumeric(QString::fromLatin1(text))) << text;
    for (const char* text : {"", " ", "abc", "12a", "1.2.3", "-", "&H", "1 2"})
        EXPECT_FALSE(IsNumeric(QString::fromLatin1(text))) << text;

    EXPECT_EQ(NumericValue(QStringLiteral(" -2.5 ")), -2.5);
    EXPECT_EQ(NumericValue(QStringLiteral("1e3")), 1000.0);
    EXPECT_EQ(NumericValue(QStringLiteral("&H1F")), 31.0);
    EXPECT_EQ(NumericValue(QStringLiteral("&O17")), 15.0);
    EXPECT_FALSE(NumericValue(QStringLiteral("x")).has_value());
}

TEST(Conversions, ToLongRoundsHalfToEvenAndRaisesTypeMismatchAndOverflow)
{
    constexpr qint32 max = std::numeric_limits<qint32>::max();
    constexpr qint32 min = std::numeric_limits<qint32>::min();
    // Rounds to the even neighbour first: -2147483648.5 stays in range, 2147483647.5 doesn't.
    const std::pair<QVariant, qint32> values[] = {
        {0.5, 0},
        {1.5, 2},
        {2.5, 2},
        {3.5, 4},
        {-2.5, -2},
        {2.6, 3},
        {"2.5", 2},
        {" 17 ", 17},
        {42, 42},
        {double(max), max},
        {double(min), min},
        {"-2147483648", min},
        {-2147483648.5, min},
    };
    for (const auto& [value, expected] : values)
        EXPECT_EQ(ToLong(value), expected) << value.toString().toStdString();

    EXPECT_EQ(errorOf(QStringLiteral("abc")), VigilError::TypeMismatch);
    EXPECT_EQ(errorOf(QString()), VigilError::TypeMismatch);
    for (const QVariant& value :
         {QVariant(2147483647.5), QVariant(2147483648.0), QVariant(-2147483649.0),
          QVariant("2147483648"), QVariant(qint64(1) << 32)})
        EXPECT_EQ(errorOf(value), VigilError::Overflow) << value.toString().toStdString();
}
