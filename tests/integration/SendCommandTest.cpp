// vigilctl send: assignments made and sent as the window makes them, to printers that
// vigil-sim simulates over loopback.

#include "integration/SimulatedSiteFixture.h"

#include <QDir>

namespace {
using SendCommandTest = SimulatedSiteFixture;

TEST_F(SendCommandTest, AnAssignedFormatReachesItsPrinterAndASendTheTreeRefusesSendsNothing)
{
    serve({{"Labeller", {"label", 1, {}}}, {"Coder", {"c-series", 2100, {}}}});
    // The label folder lies beside the store when the store names none.
    ASSERT_TRUE(QDir(m_dir.path()).mkpath(QStringLiteral("labels/case")));
    QFile format(m_dir.filePath(QStringLiteral("labels/case/Case.FMT")));
    ASSERT_TRUE(format.open(QIODevice::WriteOnly));
    format.write("[Format]\nPrinterType=1\n[Prompt Lot]\nValue=L0001\nMaxLength=5\n"
                 "[Data]\n^XA^FO40,40^FD{Lot}^FS^XZ\\r\\n\n");
    format.close();

    // The coder has no file: the whole site can't be sent.
    const Outcome unassigned = vigilctl({"send", "--assign", "Labeller=case/Case.FMT"});
    EXPECT_EQ(unassigned.code, 1);
    EXPECT_TRUE(unassigned.err.contains("Not every enabled printer has a label file"))
        << unassigned.err.toStdString();
    // A format for another printer type isn't assigned; a value nobody asks for is refused.
    const Outcome coder = vigilctl({"send", "Coder", "--assign", "Coder=case/Case.FMT"});
    EXPECT_EQ(coder.code, 1);
    EXPECT_TRUE(coder.err.contains("was made for another printer type")) << coder.err.toStdString();
    EXPECT_EQ(
        vigilctl({"send", "Labeller", "--assign", "Labeller=case/Case.FMT", "--set", "Batch=7"})
            .code,
        2);
    EXPECT_EQ(vigilctl({"send", "Nobody"}).code, 1);

    const Outcome sent = vigilctl(
        {"send", "Labeller", "--assign", "Labeller=" + format.fileName(), "--set", "lot=L0042"});
    EXPECT_EQ(sent.code, 0) << sent.err.toStdString();
    EXPECT_EQ(sent.out, QStringLiteral("sent case/Case.FMT to Labeller\n"));
    QStringList labels;
    while (labels.isEmpty() && m_simulator.waitForReadyRead(5000))
        while (m_simulator.canReadLine())
            labels.append(QString::fromUtf8(m_simulator.readLine()).trimmed());
    // Only the send's label: the refused sends gave the printer nothing.
    EXPECT_EQ(labels, QStringList{"Labeller: label 1: L0042"})
        << labels.join(QLatin1Char('\n')).toStdString();
}
} // namespace
