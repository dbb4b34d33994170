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
    const struct
    {
        const char* text;
        bool ok;
        std::array<qint32, 4> parts;
    } cases[] = {
        {"192.168.10.254", true, {192, 168, 10, 254}},
        {" 10 . 0 .0. 7 ", true, {10, 0, 0, 7}},
        {"1.2.3.4.junk", true, {1, 2, 3, 4}},
        // Stops at the first bad part; the parts before it are already stored.
        {"10.20.x.40", false, {10, 20, -1, -1}},
        {"10..30.40", false, {10, -1, -1, -1}},
        {"10.20.30", false, {10, 20, 30, -1}},
    };
    for (const auto& c : cases) {
        std::array<qint32, 4> parts{-1, -1, -1, -1};
        EXPECT_EQ(ParseDottedQuad(QLatin1String(c.text), parts), c.ok) << c.text;
        EXPECT_EQ(parts, c.parts) << c.text;
    }
}
