// vigilctl as an administrator uses it: a real process on a store of its own.

#include "integration/VigilctlFixture.h"

#include <QFile>
#include <QList>
#include <algorithm>

namespace {
using VigilctlTest = VigilctlFixture;

const QString Options = QStringLiteral("HKLM\\Software\\Orvane\\Vigil\\Options");

TEST_F(VigilctlTest, SetGetListAndDelete)
{
    EXPECT_EQ(vigilctl({"store", "set", Options, "PollInterval", "0x4e20", "--dword"}).code, 0);
    EXPECT_EQ(
        vigilctl({"store", "set", "HKLM/Software/Orvane/Common/Settings", "Language", "de"}).code,
        0);
    EXPECT_EQ(vigilctl({"store", "set", Options, "Limit", "-1", "--dword"}).code, 0);

    Outcome got =
        vigilctl({"store", "get", "hklm\\software\\orvane\\vigil\\options", "pollinterval"});
    EXPECT_EQ(got.code, 0);
    EXPECT_EQ(got.out, QStringLiteral("20000\n"));
    EXPECT_EQ(vigilctl({"store", "get", Options, "Limit"}).out, QStringLiteral("-1\n"));

    got = vigilctl({"store", "get", Options, "Missing"});
    EXPECT_EQ(got.code, 1);
    EXPECT_TRUE(got.out.isEmpty());

    EXPECT_EQ(vigilctl({"store", "list", "HKLM\\Software\\Orvane"}).out,
              QStringLiteral("Common\nVigil\n"));
    EXPECT_EQ(vigilctl({"store", "list", "HKLM\\Software\\Nothing"}).code, 1);

    EXPECT_EQ(vigilctl({"store", "delete", Options, "Limit"}).code, 0);
    EXPECT_EQ(vigilctl({"store", "delete", Options, "Limit"}).code, 1);
    EXPECT_EQ(vigilctl({"store", "delete", "HKLM\\Software\\Orvane\\Common"}).code, 0);
    EXPECT_EQ(vigilctl({"store", "list", "HKLM\\Software\\Orvane"}).out, QStringLiteral("Vigil\n"));
}

TEST_F(VigilctlTest, BadCommandLinesSayWhyInOneLine)
{
    const QList<QStringList> bad = {
        {},
        {"frobnicate"},
        {"store"},
        {"store", "get", Options},
        {"store", "get", "Software\\X", "Name"},
        {"store", "set", Options, "N", "twelve", "--dword"},
        {"store", "list", Options, "--dword"},
        {"store", "list", Options, "--colour"},
        {"message"},
        {"message", "abc"},
    };
    for (const QStringList& args : bad) {
        const Outcome run = vigilctl(args);
        EXPECT_EQ(run.code, 2) << args.join(' ').toStdString();
        EXPECT_TRUE(run.err.startsWith(QStringLiteral("vigilctl: ")) || args.isEmpty())
            << args.join(' ').toStdString() << ": " << run.err.toStdString();
    }
    for (const QStringList& args :
         QList<QStringList>{{"--help"}, {"store", "--help"}, {"message", "-h"}}) {
        const Outcome run = vigilctl(args);
        EXPECT_EQ(run.code, 0);
        EXPECT_TRUE(run.out.startsWith(QStringLiteral("Usage: vigilctl"))) << run.out.toStdString();
    }
}

TEST_F(VigilctlTest, MessagesFollowTheLanguageChain)
{
    const Outcome english = vigilctl({"message", "30", "4", "65000"});
    EXPECT_EQ(english.code, 0);
    EXPECT_TRUE(english.out.contains(QStringLiteral("4")) &&
                english.out.contains(QStringLiteral("65000")))
        << english.out.toStdString();
    EXPECT_TRUE(english.err.isEmpty()) << english.err.toStdString();

    const Outcome german = vigilctl({"message", "30", "4", "65000"}, {}, {"LANGUAGE=de_DE"});
    EXPECT_EQ(german.code, 0);
    EXPECT_NE(german.out, english.out);

    // The stored language outranks the user's.
    ASSERT_EQ(
        vigilctl({"store", "set", "HKLM\\SOFTWARE\\Orvane\\Common\\Settings", "Language", "en"})
            .code,
        0);
    EXPECT_EQ(vigilctl({"message", "30", "4", "65000"}, {}, {"LANGUAGE=de_DE"}).out, english.out);

    // Brand words reach the printed text.
    QFile catalogue(QStringLiteral(VIGIL_BIN_DIR "/MSGen/Vigil.msg"));
    ASSERT_TRUE(catalogue.open(QIODevice::ReadOnly));
    const QList<QByteArray> lines = catalogue.readAll().split('\n');
    const auto branded = std::find_if(lines.begin(), lines.end(), [](const QByteArray& line) {
        return line.contains("Korvex Vigil") && !line.contains('%');
    });
    ASSERT_NE(branded, lines.end());
    const QString brandedId = QString::number(branded - lines.begin() + 1);
    ASSERT_EQ(vigilctl({"store", "set", "HKLM\\SOFTWARE\\Orvane\\Common\\Branding", "Korvex Vigil",
                        "Acme Vision"})
                  .code,
              0);
    const Outcome rebranded = vigilctl({"message", brandedId});
    EXPECT_TRUE(rebranded.out.contains(QStringLiteral("Acme Vision")))
        << rebranded.out.toStdString();
    EXPECT_FALSE(rebranded.out.contains(QStringLiteral("Korvex Vigil")));

    ASSERT_EQ(
        vigilctl({"store", "set", "HKLM\\SOFTWARE\\Orvane\\Common\\Settings", "Language", "xx"})
            .code,
        0);
    const Outcome blank = vigilctl({"message", "15"});
    EXPECT_EQ(blank.code, 0);
    EXPECT_EQ(blank.out, QStringLiteral("\n"));
    EXPECT_TRUE(blank.err.contains(QStringLiteral("MSGxx/Vigil.msg"))) << blank.err.toStdString();
}
} // namespace
