#include "services/TextUtilities.h"

#include <gtest/gtest.h>

TEST(TextUtilities, FileNameAndSafePath)
{
    EXPECT_EQ(GetFileName(QStringLiteral("/opt/vigil/labels/box.lbx")), QStringLiteral("box.lbx"));
    EXPECT_EQ(GetFileName(QStringLiteral("box.lbx")), QStringLiteral("box.lbx"));
    EXPECT_EQ(GetFileName(QStringLiteral("/opt/vigil/")), QString());

    EXPECT_EQ(GetSafePath(QString()), QString());
    EXPECT_EQ(GetSafePath(QStringLiteral("/opt")), QStringLiteral("/opt/"));
    EXPECT_EQ(GetSafePath(QStringLiteral("/opt/")), QStringLiteral("/opt/"));
}

TEST(TextUtilities, ReplaceTokensIgnoresCaseAndDoesNotReplaceAgain)
{
    QString text = QStringLiteral("aXa");
    ReplaceTokens(text, QStringLiteral("x"), QStringLiteral("xx"));
    EXPECT_EQ(text, QStringLiteral("axxa"));

    text = QStringLiteral("[Name] and [NAME] and [name]");
    ReplaceTokens(text, QStringLiteral("[name]"), QStringLiteral("Line 1"));
    EXPECT_EQ(text, QStringLiteral("Line 1 and Line 1 and Line 1"));

    // Removing: the search resumes where the removed text stood.
    text = QStringLiteral("xxXx-");
    ReplaceTokens(text, QStringLiteral("x"), QString());
    EXPECT_EQ(text, QStringLiteral("-"));
}

TEST(TextUtilities, PadLeftAddsPadOncePerMissingCharacter)
{
    EXPECT_EQ(PadLeft(QStringLiteral("7"), QStringLiteral("0"), 3), QStringLiteral("007"));
    EXPECT_EQ(PadLeft(QStringLiteral("7"), QStringLiteral("ab"), 3), QStringLiteral("abab7"));
    EXPECT_EQ(PadLeft(QStringLiteral("123"), QStringLiteral("0"), 3), QStringLiteral("123"));
    EXPECT_EQ(PadLeft(QStringLiteral("12345"), QStringLiteral("0"), 3), QStringLiteral("12345"));
    EXPECT_EQ(PadLeft(QString(), QStringLiteral(" "), 2), QStringLiteral("  "));
}

TEST(TextUtilities, MidRange)
{
    const QString text = QStringLiteral("abcdef");
    EXPECT_EQ(MidRange(text, 2, 4, false), QStringLiteral("bc"));
    EXPECT_EQ(MidRange(text, 2, 4, true), QStringLiteral("bcd"));
    EXPECT_EQ(MidRange(text, 1, 1, true), QStringLiteral("a"));
    EXPECT_EQ(MidRange(text, 3, 3, false), QString());
}

TEST(TextUtilities, TrimsWorkOnTheEndsOnly)
{
    const QChar nul(0);
    EXPECT_EQ(TrimCrLf(QStringLiteral("\r\n\nab\r\ncd\n\r")), QStringLiteral("ab\r\ncd"));
    EXPECT_EQ(TrimCrLf(QString(nul) + "ab"), QString(nul) + "ab");
    EXPECT_EQ(TrimCrLf(QStringLiteral(" ab ")), QStringLiteral(" ab "));

    EXPECT_EQ(TrimNul(QString(nul) + nul + "a" + nul + "b" + nul), QString("a") + nul + "b");
    EXPECT_EQ(TrimNul(QStringLiteral("\nab")), QStringLiteral("\nab"));

    // Layers of CR/LF and NUL need more than one round.
    const QString layered = QString("\r\n") + nul + "\n" + nul + "ok" + nul + "\r" + nul;
    EXPECT_EQ(TrimControl(layered), QStringLiteral("ok"));
    EXPECT_EQ(TrimControl(QString(nul) + "\r\n" + nul), QString());
}

TEST(TextUtilities, FindFormatName)
{
    EXPECT_EQ(FindFormatName(QStringLiteral("JOB=4\nFMT=Carton.lbx\nQTY=10\n")),
              QStringLiteral("Carton.lbx"));
    EXPECT_EQ(FindFormatName(QStringLiteral("FMT=Carton.lbx\n")), QStringLiteral("Carton.lbx"));
    // The format line must be ended by its LF.
    EXPECT_EQ(FindFormatName(QStringLiteral("JOB=4\nFMT=Carton.lbx")), QString());
    // A line with nothing after the key is passed over; the first usable one wins.
    EXPECT_EQ(FindFormatName(QStringLiteral("FMT=\nFMT=A\nFMT=B\n")), QStringLiteral("A"));
    // The key counts only at the start of a line.
    EXPECT_EQ(FindFormatName(QStringLiteral("OLDFMT=A\n")), QString());
    EXPECT_EQ(FindFormatName(QStringLiteral("JOB=4\n")), QString());
    EXPECT_EQ(FindFormatName(QString()), QString());
}

TEST(TextUtilities, ParseDottedQuad)
{
    std::array<qint32, 4> parts{-1, -1, -1, -1};
    ASSERT_TRUE(ParseDottedQuad(QStringLiteral("192.168.10.254"), parts));
    EXPECT_EQ(parts, (std::array<qint32, 4>{192, 168, 10, 254}));

    parts.fill(-1);
    EXPECT_TRUE(ParseDottedQuad(QStringLiteral(" 10 . 0 .0. 7 "), parts));
    EXPECT_EQ(parts, (std::array<qint32, 4>{10, 0, 0, 7}));

    parts.fill(-1);
    EXPECT_TRUE(ParseDottedQuad(QStringLiteral("1.2.3.4.junk"), parts));
    EXPECT_EQ(parts, (std::array<qint32, 4>{1, 2, 3, 4}));

    // Stops at the first bad part; the parts before it are already stored.
    parts.fill(-1);
    EXPECT_FALSE(ParseDottedQuad(QStringLiteral("10.20.x.40"), parts));
    EXPECT_EQ(parts, (std::array<qint32, 4>{10, 20, -1, -1}));

    parts.fill(-1);
    EXPECT_FALSE(ParseDottedQuad(QStringLiteral("10..30.40"), parts));
    EXPECT_EQ(parts, (std::array<qint32, 4>{10, -1, -1, -1}));

    parts.fill(-1);
    EXPECT_FALSE(ParseDottedQuad(QStringLiteral("10.20.30"), parts));
    EXPECT_EQ(parts, (std::array<qint32, 4>{10, 20, 30, -1}));
}

TEST(TextUtilities, IdPrefixes)
{
    EXPECT_TRUE(IsGroupId(QStringLiteral("GP0001")));
    EXPECT_FALSE(IsGroupId(QStringLiteral("ID0001")));
    EXPECT_FALSE(IsGroupId(QStringLiteral("XGP1")));
    EXPECT_FALSE(IsGroupId(QString()));

    EXPECT_TRUE(IsPrinterId(QStringLiteral("ID0001")));
    EXPECT_FALSE(IsPrinterId(QStringLiteral("GP0001")));
}
