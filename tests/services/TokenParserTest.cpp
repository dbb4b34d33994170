#include "services/clsTokenParser.h"

#include <gtest/gtest.h>

namespace {
// Every token that GetNext hands out from the current position.
QStringList drain(clsTokenParser& parser)
{
    QStringList tokens;
    QString token;
    while (parser.GetNext(token))
        tokens << token;
    return tokens;
}
} // namespace

TEST(TokenParser, EmptyMiddleTokenCountsForBothWalks)
{
    clsTokenParser parser(QStringLiteral("a,b,,c"), QStringLiteral(","));
    EXPECT_EQ(parser.GetNumTokens(), 4);
    EXPECT_EQ(drain(parser), (QStringList{"a", "b", "", "c"}));

    QString token = QStringLiteral("unchanged");
    ASSERT_TRUE(parser.GetAt(3, token));
    EXPECT_EQ(token, QString());
    // GetAt leaves the position behind the token it gave.
    ASSERT_TRUE(parser.GetNext(token));
    EXPECT_EQ(token, QStringLiteral("c"));
}

TEST(TokenParser, TrailingSeparatorCountsButIsNotWalked)
{
    clsTokenParser parser(QStringLiteral("a,"), QStringLiteral(","));
    EXPECT_EQ(parser.GetNumTokens(), 2);
    EXPECT_EQ(drain(parser), QStringList{"a"});

    QString token;
    EXPECT_TRUE(parser.GetAt(1, token));
    EXPECT_EQ(token, QStringLiteral("a"));
    EXPECT_FALSE(parser.GetAt(2, token));
    EXPECT_FALSE(parser.GetAt(3, token));
}

TEST(TokenParser, MultiCharacterAndOverlappingSeparators)
{
    clsTokenParser parser(QStringLiteral("ab<>cd<>ef"), QStringLiteral("<>"));
    EXPECT_EQ(parser.GetNumTokens(), 3);
    EXPECT_EQ(drain(parser), (QStringList{"ab", "cd", "ef"}));
    QString token;
    ASSERT_TRUE(parser.GetAt(2, token));
    EXPECT_EQ(token, QStringLiteral("cd"));

    // The count compares at every character, so "--" is found twice in "---".
    clsTokenParser overlapping(QStringLiteral("a---b"), QStringLiteral("--"));
    EXPECT_EQ(overlapping.GetNumTokens(), 3);
    EXPECT_EQ(drain(overlapping), (QStringList{"a", "-b"}));
}

TEST(TokenParser, WalkIgnoresCaseWhileCountAndFindDoNot)
{
    clsTokenParser parser(QStringLiteral("aXbxc"), QStringLiteral("x"));
    EXPECT_EQ(parser.GetNumTokens(), 2);
    EXPECT_EQ(drain(parser), (QStringList{"a", "b", "c"}));

    clsTokenParser names(QStringLiteral("Alpha,beta,Gamma"), QStringLiteral(","));
    EXPECT_EQ(names.Find(QStringLiteral("beta")), 2);
    EXPECT_EQ(names.Find(QStringLiteral("Beta")), 0);
    EXPECT_EQ(names.Find(QStringLiteral("Gamma")), 3);
    // Find starts again from token 1 even after the walk has run out.
    drain(names);
    EXPECT_EQ(names.Find(QStringLiteral("Alpha")), 1);
}
