// Printers of every kind simulated by vigil-sim, each in a state of its own, as vigilctl
// status sees them over loopback.

#include "integration/SimulatedSiteFixture.h"

#include <QFile>
#include <QMap>
#include <QRegularExpression>

namespace {
using SimulatedSiteStatusTest = SimulatedSiteFixture;

TEST_F(SimulatedSiteStatusTest, EachCoderStateShowsWithItsText)
{
    serve({{"Logging", {"c-series", 2100, R"("errors": 2)"}},
           {"Healthy", {"c-series", 2100, R"("file": "BATCH1", "count": 42)"}},
           {"Ink low", {"c-series", 2100, R"("ink": 2, "remaining": 500)"}},
           {"Refusing", {"c-series", 2100, R"("nak": 14)"}},
           {"Silent", {"c-series", 2100, R"("silent": true)"}}});
    // The tree as the desktop program saves it, with the error log asked for on one coder.
    const QByteArray tree = "[HKLM\\Software\\Orvane\\Vigil\\Printers\\IDLOG]\n"
                            "\"Name\"=\"Logging\"\n\"ObjPrinterNumber\"=dword:00000834\n"
                            "\"Ext.0.Name\"=\"GetErrorLog\"\n\"Ext.0.Value\"=\"True\"\n"
                            "\"ExtendedCount\"=dword:00000000\n";
    ASSERT_EQ(vigilctl({"store", "import", "-"}, tree).code, 0);
    const Outcome status = vigilctl({"status"});
    EXPECT_EQ(status.code, 2) << status.err.toStdString();
    for (const char* expected : {
             "  Healthy: 1 good, \"Healthy: BATCH1 (42)\"\n",
             "  Ink low: 3 fault, \"Ink low: ",
             "[Ink low: 500 prints remaining]\", alert \"Ink low: 500 prints remaining\"\n",
             "  Refusing: 2 warning, \"Refusing: (0) [The printer refused the last command "
             "(NAK).]\"",
             "  Silent: 0 no answer, \"Silent: (0)\"\n",
         })
        EXPECT_TRUE(status.out.contains(QString::fromUtf8(expected))) << expected << "\n"
                                                                      << status.out.toStdString();
    EXPECT_TRUE(QRegularExpression(QStringLiteral("  Logging: 2 warning, .*, alert \"(.+)\"\n"))
                    .match(status.out)
                    .hasMatch())
        << status.out.toStdString();

    // With a limit below what remains, low ink is only a warning.
    vigilctl({"store", "set", "HKLM/Software/Orvane/Vigil/Options", "PrintsRemainingInkLowLimit",
              "100", "--dword"});
    for (const char* name : {"Refusing", "Silent", "Logging"})
        vigilctl({"queue", "remove", name});
    const Outcome limited = vigilctl({"status"});
    EXPECT_EQ(limited.code, 1) << limited.out.toStdString();
    EXPECT_TRUE(limited.out.contains("  Ink low: 2 warning, ")) << limited.out.toStdString();
}
TEST_F(SimulatedSiteStatusTest, AFileListInTwoPiecesKeepsTheCoderHealthy)
{
    // Sixteen names of 8 bytes and a Cr each: the list's first piece ends 14 names, and the
    // rest comes 80 ms later, once the round has ended. In the second cycle a time-out walk
    // sees that piece more than a time-out later.
    QStringList names;
    for (int name = 1; name <= 16; ++name)
        names.append(QStringLiteral("MSG%1").arg(name, 5, 10, QLatin1Char('0')));
    serve({{"Split",
            {"c-series", 2100,
             QStringLiteral(R"("files": "%1", "fragment": 128, "gap": 80)")
                 .arg(names.join(QLatin1Char(',')))}},
           {"Silent", {"c-series", 2100, R"("silent": true)"}}});
    const Outcome status = vigilctl({"status", "--cycles", "2", "--trace"});
    EXPECT_TRUE(status.out.contains("  Split: 1 good, ")) << status.out.toStdString();
    EXPECT_TRUE(status.out.contains("  Silent: 0 no answer, ")) << status.out.toStdString();
    EXPECT_EQ(status.code, 2);
    // The trace: each question, and each piece of a reply as it came.
    static const QRegularExpression asked(
        QStringLiteral("^vigil\\.wire: \\d\\d:\\d\\d:\\d\\d\\.\\d{3} Split > 0e  \\|\\.\\|$"),
        QRegularExpression::MultilineOption);
    EXPECT_TRUE(asked.match(status.err).hasMatch()) << status.err.toStdString();
    EXPECT_GE(status.err.count(QStringLiteral(" Split < ")), 4);
    EXPECT_TRUE(status.err.contains(QStringLiteral(" Silent > 0e")));
    EXPECT_FALSE(status.err.contains(QStringLiteral(" Silent < ")));
}

TEST_F(SimulatedSiteStatusTest, AlarmsAndErrorCodesShowWithTheirText)
{
    serve({{"A good", {"a-series", 2011, ""}},
           {"A warning", {"a-series", 2011, R"("alarms": "3")"}},
           {"A fault", {"a-series", 2011, R"("alarms": "3,2")"}},
           {"A unknown", {"a-series", 2011, R"("alarms": "250")"}},
           {"A silent", {"a-series", 2011, R"("silent": true)"}},
           {"Avery good", {"avery", 123, R"("labels": 20)"}},
           {"Avery level 0", {"avery", 123, R"("code": "08", "flag": true)"}},
           {"Avery level 1", {"avery", 123, R"("code": "05", "flag": true)"}},
           {"Avery level 2", {"avery", 123, R"("code": "02", "flag": true)"}},
           {"Avery long", {"avery", 152, R"("model": "H", "code": "0001", "flag": true)"}},
           {"Avery silent", {"avery", 780, R"("silent": true)"}}});
    const Outcome status = vigilctl({"status"});
    EXPECT_EQ(status.code, 2) << status.err.toStdString();
    for (const char* expected : {
             "  A good: 1 good, \"A good: (0)\"\n",
             "  A warning: 2 warning, \"A warning: (0) [Solvent low]\", alert \"Solvent low\"\n",
             "  A fault: 3 fault, \"A fault: (0) [Ink empty]\", alert \"Ink empty\"\n",
             "  A unknown: 3 fault, \"A unknown: (0)\"\n",
             "  A silent: 0 no answer, \"A silent: (0)\"\n",
             "  Avery good: 1 good, \"Avery good: (20)\"\n",
             "  Avery level 0: 2 warning, \"Avery level 0: (0) [08 Ribbon low]\"",
             "  Avery level 1: 3 fault, \"Avery level 1: (0) [05 Buffer full]\"",
             "  Avery level 2: 3 fault, \"Avery level 2: (0) [02 Ribbon end, load a new ribbon]\"",
             "  Avery long: 3 fault, \"Avery long: (0) [0001 Material end, load new labels]\"",
             "  Avery silent: 0 no answer, \"Avery silent: (0)\"\n",
         })
        EXPECT_TRUE(status.out.contains(QString::fromUtf8(expected))) << expected << "\n"
                                                                      << status.out.toStdString();
}
} // namespace
