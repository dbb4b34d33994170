// C-series coders simulated by vigil-sim, each in a state of its own, as vigilctl status
// sees them over loopback.

#include "integration/VigilctlFixture.h"

#include <QFile>
#include <QMap>
#include <QRegularExpression>

namespace {
class CSeriesStatusTest : public VigilctlFixture
{
protected:
    void TearDown() override
    {
        m_simulator.terminate();
        m_simulator.waitForFinished(5000);
    }

    // Serves the printers, each "name": knobs, and adds a C-series queue for each.
    void serve(const QMap<QString, QString>& printers)
    {
        QByteArray scenario = "{\"printers\": [";
        for (auto it = printers.begin(); it != printers.end(); ++it)
            scenario += QStringLiteral(R"(%1{"name": "%2", "kind": "c-series", "listen": )"
                                       R"("127.0.0.1:0", "knobs": {%3}})")
                            .arg(it == printers.begin() ? "" : ",", it.key(), it.value())
                            .toUtf8();
        QFile file(m_dir.filePath("site.json"));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(scenario + "]}");
        file.close();
        m_simulator.start(QStringLiteral(VIGIL_SIM_PATH), {file.fileName()});
        static const QRegularExpression serving(QStringLiteral("^serving \\S+ \"(.*)\" at (.+)$"));
        int served = 0;
        while (served < printers.size() && m_simulator.waitForReadyRead(5000)) {
            while (m_simulator.canReadLine()) {
                const auto match =
                    serving.match(QString::fromUtf8(m_simulator.readLine()).trimmed());
                ASSERT_TRUE(match.hasMatch());
                ASSERT_EQ(vigilctl({"queue", "add", match.captured(1), "--port", match.captured(2),
                                    "--type", "2100"})
                              .code,
                          0);
                ++served;
            }
        }
        ASSERT_EQ(served, printers.size()) << m_simulator.readAllStandardError().toStdString();
        vigilctl({"store", "set", "HKLM/Software/Orvane/Vigil/Options", "PollInterval", "4000",
                  "--dword"});
    }

    QProcess m_simulator;
};

TEST_F(CSeriesStatusTest, EachStateShowsWithItsText)
{
    serve({{"Logging", R"("errors": 2)"},
           {"Healthy", R"("file": "BATCH1", "count": 42)"},
           {"Ink low", R"("ink": 2, "remaining": 500)"},
           {"Refusing", R"("nak": 14)"},
           {"Silent", R"("silent": true)"}});
    // The tree as the desktop program saves it, with the error log asked for on one coder.
    const QByteArray tree = "[HKLM\\Software\\Orvane\\Vigil\\Printers\\IDLOG]\n"
                            "\"Name\"=\"Logging\"\n\"ObjPrinterNumber\"=dword:00000834\n"
                            "\"Ext.0.Name\"=\"GetErrorLog\"\n\"Ext.0.Value\"=\"True\"\n"
                            "\"ExtendedCount\"=dword:00000000\n";
    ASSERT_EQ(vigilctl({"store", "import", "-"}, tree).code, 0);
    const Outcome status = vigilctl({"status"});
    EXPECT_EQ(status.code, 2) << status.err.toStdString();
    const QString lines = status.out;
    EXPECT_TRUE(lines.contains("  Healthy: 1 good, \"Healthy: BATCH1 (42)\"\n"))
        << lines.toStdString();
    EXPECT_TRUE(lines.contains("  Ink low: 3 fault, \"Ink low: ")) << lines.toStdString();
    EXPECT_TRUE(lines.contains("[Ink low: 500 prints remaining]\", alert \"Ink low: 500 prints "
                               "remaining\"\n"))
        << lines.toStdString();
    EXPECT_TRUE(
        lines.contains("  Refusing: 2 warning, \"Refusing: (0) [The printer refused the last "
                       "command (NAK).]\""))
        << lines.toStdString();
    EXPECT_TRUE(lines.contains("  Silent: 0 no answer, \"Silent: (0)\"\n")) << lines.toStdString();
    const QRegularExpression logged(QStringLiteral("  Logging: 2 warning, .*, alert \"(.+)\"\n"));
    EXPECT_TRUE(logged.match(lines).hasMatch()) << lines.toStdString();

    // With a limit below what remains, low ink is only a warning.
    vigilctl({"store", "set", "HKLM/Software/Orvane/Vigil/Options", "PrintsRemainingInkLowLimit",
              "100", "--dword"});
    vigilctl({"queue", "remove", "Refusing"});
    vigilctl({"queue", "remove", "Silent"});
    vigilctl({"queue", "remove", "Logging"});
    const Outcome limited = vigilctl({"status"});
    EXPECT_EQ(limited.code, 1) << limited.out.toStdString();
    EXPECT_TRUE(limited.out.contains("  Ink low: 2 warning, ")) << limited.out.toStdString();
}
} // namespace
