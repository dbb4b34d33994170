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

TEST(TokenParser, EmptyTextHasNoTokens)
{
    clsTokenParser parser(QString(), QStringLiteral(","));
    QString token;
    EXPECT_EQ(parser.GetNumTokens(), 0);
    EXPECT_FALSE(parser.GetNext(token));
    EXPECT_FALSE(parser.GetAt(1, token));
    EXPECT_EQ(parser.Find(QString()), 0);
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

TEST(TokenParser, AppendBuildsTextAndRecounts)
{
    clsTokenParser parser(QString(), QStringLiteral(";"));
    parser.AppendToken(QStringLiteral("one"));
    EXPECT_EQ(parser.GetString(), QStringLiteral("one"));
    EXPECT_EQ(parser.GetNumTokens(), 1);
    parser.AppendToken(QStringLiteral("two"));
    EXPECT_EQ(parser.GetString(), QStringLiteral("one;two"));
    EXPECT_EQ(parser.GetNumTokens(), 2);
    QString token;
    ASSERT_TRUE(parser.GetAt(2, token));
    EXPECT_EQ(token, QStringLiteral("two"));
}

TEST(TokenParser, InsertAt)
{
    clsTokenParser parser(QStringLiteral("a,b"), QStringLiteral(","));
    parser.InsertAt(2, QStringLiteral("x"));
    EXPECT_EQ(parser.GetString(), QStringLiteral("a,x,b"));
    EXPECT_EQ(parser.GetNumTokens(), 3);
    parser.InsertAt(1, QStringLiteral("y"));
    EXPECT_EQ(parser.GetString(), QStringLiteral("y,a,x,b"));

    clsTokenParser beyond(QStringLiteral("a,b"), QStringLiteral(","));
    beyond.InsertAt(5, QStringLiteral("x"));
    EXPECT_EQ(beyond.GetString(), QStringLiteral("a,b, , ,x"));
    QString token;
    ASSERT_TRUE(beyond.GetAt(5, token));
    EXPECT_EQ(token, QStringLiteral("x"));

    clsTokenParser empty(QString(), QStringLiteral(","));
    empty.InsertAt(3, QStringLiteral("x"));
    EXPECT_EQ(empty.GetString(), QStringLiteral(" , ,x"));
}

TEST(TokenParser, ReplaceToken)
{
    clsTokenParser parser(QStringLiteral("a,b,c"), QStringLiteral(","));
    parser.ReplaceToken(2, QStringLiteral("x"));
    EXPECT_EQ(parser.GetString(), QStringLiteral("a,x,c"));

    // Empty tokens, the final one after the trailing separator included, are kept.
    clsTokenParser emptyTokens(QStringLiteral("a,,c,"), QStringLiteral(","));
    emptyTokens.ReplaceToken(1, QStringLiteral("z"));
    EXPECT_EQ(emptyTokens.GetString(), QStringLiteral("z,,c,"));

    clsTokenParser beyond(QStringLiteral("a,b"), QStringLiteral(","));
    beyond.ReplaceToken(4, QStringLiteral("x"));
    EXPECT_EQ(beyond.GetString(), QStringLiteral("a,b, ,x"));
}
