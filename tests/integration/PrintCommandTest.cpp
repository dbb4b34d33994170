// vigilctl print through the spool to a label printer that vigil-sim simulates over loopback.

#include "integration/SimulatedSiteFixture.h"

namespace {
using PrintCommandTest = SimulatedSiteFixture;

TEST_F(PrintCommandTest, AFormatReachesTheLabelPrinterWithItsValuesAndBadRequestsSendNothing)
{
    serve({{"Labeller", {"label", 1, {}}}, {"Coder", {"c-series", 2100, {}}}});
    QFile format(m_dir.filePath(QStringLiteral("case.fmt")));
    ASSERT_TRUE(format.open(QIODevice::WriteOnly));
    format.write("[Format]\nPrinterType=1\n[Prompt Lot]\nPrompt=Lot\nValue=L0001\nMaxLength=5\n"
                 "[Data]\n^XA^FO40,40^FD{Lot}^FS\n^FO40,90^FDBest before^FS^XZ\\r\\n\n");
    format.close();

    // Refused before anything is sent: another printer type, an unknown value, one too long.
    const Outcome coder = vigilctl({"print", format.fileName(), "--queue", "Coder"});
    EXPECT_EQ(coder.code, 1);
    EXPECT_TRUE(coder.err.contains("was made for another printer type")) << coder.err.toStdString();
    EXPECT_EQ(
        vigilctl({"print", format.fileName(), "--queue", "Labeller", "--set", "Batch=1"}).code, 2);
    EXPECT_EQ(
        vigilctl({"print", format.fileName(), "--queue", "Labeller", "--set", "Lot=L000001"}).code,
        2);

    const Outcome printed = vigilctl({"print", format.fileName(), "--queue", "Labeller", "--set",
                                      "lot=L0042", "--quantity", "2"});
    EXPECT_EQ(printed.code, 0) << printed.err.toStdString();
    QStringList labels;
    while (labels.size() < 2 && m_simulator.waitForReadyRead(5000))
        while (m_simulator.canReadLine())
            labels.append(QString::fromUtf8(m_simulator.readLine()).trimmed());
    EXPECT_EQ(labels, (QStringList{"Labeller: label 1: L0042 | Best before",
                                   "Labeller: label 2: L0042 | Best before"}))
        << labels.join(QLatin1Char('\n')).toStdString();
    EXPECT_EQ(vigilctl({"jobs"}).out.count('\n'), 1); // the heading: nothing is left
}
} // namespace
