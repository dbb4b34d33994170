// vigilctl as an administrator uses it: a real process on a store of its own.

#include "integration/VigilctlFixture.h"

#include <QFile>

namespace {
using VigilctlTest = VigilctlFixture;

const QString Options = QStringLiteral("HKLM\\Software\\Orvane\\Vigil\\Options");
const QString Common = QStringLiteral("HKLM\\SOFTWARE\\Orvane\\Common");

TEST_F(VigilctlTest, SetGetListAndDelete)
{
    EXPECT_EQ(vigilctl({"store", "set", Options, "PollInterval", "0x4e20", "--dword"}).code, 0);
    EXPECT_EQ(
        vigilctl({"store", "set", "HKLM/Software/Orvane/Common/Settings", "Language", "de"}).code,
        0);
    EXPECT_EQ(vigilctl({"store", "set", Options, "Limit", "-1", "--dword"}).code, 0);

    const Outcome got =
        vigilctl({"store", "get", "hklm\\software\\orvane\\vigil\\options", "pollinterval"});
    EXPECT_EQ(got.code, 0);
    EXPECT_EQ(got.out, QStringLiteral("20000\n"));
    EXPECT_EQ(vigilctl({"store", "get", Options, "Limit"}).out, QStringLiteral("-1\n"));
    const Outcome missing = vigilctl({"store", "get", Options, "Missing"});
    EXPECT_EQ(missing.code, 1);
    EXPECT_TRUE(missing.out.isEmpty());

    EXPECT_EQ(vigilctl({"store", "list", "HKLM\\Software\\Orvane"}).out, "Common\nVigil\n");
    EXPECT_EQ(vigilctl({"store", "list", "HKLM\\Software\\Nothing"}).code, 1);
    EXPECT_EQ(vigilctl({"store", "delete", Options, "Limit"}).code, 0);
    EXPECT_EQ(vigilctl({"store", "delete", Options, "Limit"}).code, 1);
    EXPECT_EQ(vigilctl({"store", "delete", Common}).code, 0);
    EXPECT_EQ(vigilctl({"store", "list", "HKLM\\Software\\Orvane"}).out, "Vigil\n");
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

TEST_F(VigilctlTest, MessagesFollowTheLanguageAndTheBrand)
{
    const Outcome english = vigilctl({"message", "30", "4", "65000"});
    EXPECT_EQ(english.code, 0);
    EXPECT_TRUE(english.out.contains("4") && english.out.contains("65000"))
        << english.out.toStdString();
    EXPECT_TRUE(english.err.isEmpty()) << english.err.toStdString();
    const Outcome german = vigilctl({"message", "30", "4", "65000"}, {}, {"LANGUAGE=de_DE"});
    EXPECT_EQ(german.code, 0);
    EXPECT_NE(german.out, english.out);

    // Brand words reach the printed text.
    QFile catalogue(QStringLiteral(VIGIL_BIN_DIR "/MSGen/Vigil.msg"));
    ASSERT_TRUE(catalogue.open(QIODevice::ReadOnly));
    const QList<QByteArray> lines = catalogue.readAll().split('\n');
    qsizetype branded = 0;
    while (branded < lines.size() &&
           !(lines[branded].contains("Korvex Vigil") && !lines[branded].contains('%')))
        ++branded;
    ASSERT_LT(branded, lines.size());
    ASSERT_EQ(vigilctl({"store", "set", Common + "\\Branding", "Korvex Vigil", "Acme Vision"}).code,
              0);
    const Outcome rebranded = vigilctl({"message", QString::number(branded + 1)});
    EXPECT_TRUE(rebranded.out.contains("Acme Vision") && !rebranded.out.contains("Korvex Vigil"))
        << rebranded.out.toStdString();

    // A stored language without a message file: blank text and a warning.
    ASSERT_EQ(vigilctl({"store", "set", Common + "\\Settings", "Language", "xx"}).code, 0);
    const Outcome blank = vigilctl({"message", "15"});
    EXPECT_EQ(blank.code, 0);
    EXPECT_EQ(blank.out, QStringLiteral("\n"));
    EXPECT_TRUE(blank.err.contains("MSGxx/Vigil.msg")) << blank.err.toStdString();
}
} // namespace
