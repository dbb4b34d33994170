#include "drivers/PrintJob.h"

#include "platform/lbx/LbxApplication.h"
#include "platform/lbx/LbxQueue.h"
#include "platform/lbx/PrintSpool.h"
#include "platform/lbx/QueueStore.h"
#include "services/SettingsAccess.h"
#include "services/VigilError.h"
#include "support/EventLoop.h"
#include "support/ServicesFixture.h"

#include <QSignalSpy>

namespace {
class PrintJobTest : public ServicesFixture
{
protected:
    void SetUp() override
    {
        ServicesFixture::SetUp();
        EnsureApplication();
        m_spool = std::make_shared<PrintSpool>(m_home.filePath(QStringLiteral("spool.sqlite")));
        WriteValue(HKEY_LOCAL_MACHINE, LbxApplication::SettingsKey, "LabelRootFolder", REG_SZ,
                   m_home.filePath(QStringLiteral("labels")));
    }

    // A stored queue on an echoing printer: what comes back is what was printed.
    struct EchoQueue
    {
        EchoQueue(const QString& name, std::shared_ptr<PrintSpool> spool)
            : queue({name, QStringLiteral("sim:echo"), 900, name}, std::move(spool))
        {
            QString problem;
            QueueStore::add(queue.record(), problem);
            QObject::connect(&queue, &Queue::DataReceived,
                             [this](const QByteArray& bytes) { printed += bytes; });
        }

        LbxQueue queue;
        QByteArray printed;
        QSignalSpy progress{&queue, &Queue::PrintItemStatusChanged};
        QSignalSpy errors{&queue, &Queue::Error};
    };

    QString label(const QString& relativePath, const QByteArray& text) const
    {
        writeFile(QStringLiteral("labels/") + relativePath, text);
        return m_home.filePath(QStringLiteral("labels/") + relativePath);
    }

    static QByteArray format(const QByteArray& data)
    {
        return "[Format]\nPrinterType=900\n[Prompt Lot]\nPrompt=Lot number\nValue=L0001\n"
               "[Data]\n" +
               data + "\n";
    }

    static void idle(int ms)
    {
        WaitUntil([] { return false; }, ms);
    }

    std::shared_ptr<PrintSpool> m_spool;
};

TEST_F(PrintJobTest, AReleasedJobPrintsItsValuesQuantityTimesAndACancelledOneNothing)
{
    EchoQueue line1("Line 1", m_spool);
    const QString path = label("LOT.FMT", format("^XA^FD{lot}^FS^XZ"));

    std::shared_ptr<PrintJob> job = line1.queue.CreateJob(path, 2, false);
    EXPECT_EQ(job->PrinterType(), 900);
    EXPECT_TRUE(job->LabelSetElements().isEmpty());
    ASSERT_EQ(job->PromptedValues().size(), 1);
    job->PromptedValues()[0].Value = QStringLiteral("L0042");
    idle(50);
    EXPECT_EQ(line1.printed, QByteArray()); // nothing goes while the job is held
    job.reset();
    ASSERT_TRUE(WaitUntil([&] { return line1.printed == "^XA^FDL0042^FS^XZ^XA^FDL0042^FS^XZ"; }));
    EXPECT_TRUE(line1.progress.first().at(2).toString().contains("\nFMT=LOT.FMT\n"));

    job = line1.queue.CreateJob(path, 1, false);
    job->Cancel();
    job.reset();
    idle(50);
    EXPECT_EQ(line1.printed.count("^XA"), 2);
    EXPECT_TRUE(m_spool->list().isEmpty());

    const QString broken = label("BROKEN.FMT", "[Data]\nno format section\n");
    try {
        line1.queue.CreateJob(broken, 1, false);
        ADD_FAILURE() << "a format without [Format] made a job";
    } catch (const VigilError& error) {
        EXPECT_EQ(error.number(), VigilError::BadFileFormat);
        EXPECT_TRUE(error.description().contains("BROKEN.FMT"));
    }
    EXPECT_THROW(line1.queue.CreateJob(path, 0, false), VigilError);
    EXPECT_THROW(line1.queue.CreateJob(path + ".gone", 1, false), VigilError);
    idle(50);
    EXPECT_EQ(line1.printed.count("^XA"), 2);
    EXPECT_TRUE(m_spool->list().isEmpty());
}

TEST_F(PrintJobTest, ALabelSetSendsEachElementToTheQueueItsIdentifierMeans)
{
    EchoQueue line1("Line 1", m_spool);
    EchoQueue line2("Line 2", m_spool);
    label("sets/case.fmt", format("case {Lot};"));
    label("sets/pallet.fmt", format("pallet {Lot};"));
    const QString set =
        label("sets/LINE.LBS", "[LabelSet]\nDescription=Line\n[Elements]\n"
                               "CASE=case.fmt\nPALLET=pallet.fmt\nSPARE=case.fmt\n");

    std::shared_ptr<PrintJob> job = line1.queue.CreateJob(set, 1, false);
    ASSERT_EQ(job->PromptedValues().size(), 1); // the value both formats use is asked once
    const auto elements = [&job] {
        QStringList list;
        for (const LabelSetElement& element : job->LabelSetElements())
            list << element.identifier + "=" + element.format;
        return list;
    };
    EXPECT_EQ(elements(),
              (QStringList{"CASE=sets/case.fmt", "PALLET=sets/pallet.fmt", "SPARE=sets/case.fmt"}));
    job->SetGroupIdentifier("CASE", "Line 2");
    job->SetGroupIdentifier("PALLET", "Line 1");
    job->SetGroupIdentifier("SPARE", "Line 9");
    job->SetGroupIdentifier("CASE", "Line 1");
    EXPECT_EQ(elements(), (QStringList{"Line 1=sets/case.fmt", "Line 1=sets/pallet.fmt",
                                       "Line 9=sets/case.fmt"}));
    job->SetGroupIdentifier("PALLET", "Line 2");

    job->PromptedValues()[0].Value = QStringLiteral("L7");
    job.reset();
    ASSERT_TRUE(
        WaitUntil([&] { return line1.printed == "case L7;" && line2.printed == "pallet L7;"; }));
    ASSERT_EQ(line1.errors.count(), 1); // the element for a queue that isn't there
    EXPECT_TRUE(line1.errors.at(0).at(1).toString().contains("\"Line 9\""))
        << line1.errors.at(0).at(1).toString().toStdString();
    EXPECT_TRUE(line2.progress.first().at(2).toString().contains("\nFMT=pallet.fmt\n"));
}
} // namespace
