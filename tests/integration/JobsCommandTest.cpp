// vigilctl jobs on the spool beside its store, filled as a printing program leaves it.

#include "integration/VigilctlFixture.h"
#include "platform/lbx/PrintSpool.h"

namespace {
using JobsCommandTest = VigilctlFixture;

TEST_F(JobsCommandTest, KeptJobsAreListedAndOneIsCancelledByItsId)
{
    ASSERT_EQ(vigilctl({"store", "set", "HKLM\\Software\\Orvane", "Site", "plant"}).code, 0);
    EXPECT_EQ(vigilctl({"jobs"}).out, QStringLiteral("ID  QUEUE  FORMAT  STATE  RELEASED\n"));
    EXPECT_FALSE(QFile::exists(m_dir.filePath("spool.sqlite"))); // a listing makes no spool

    PrintSpool spool(m_dir.filePath("spool.sqlite"));
    const qint64 first = spool.add("Line 1", "CASE.FMT", "^XA^XZ", 3);
    spool.copySent(first);
    const qint64 second = spool.add("Line 2", "PALLET.FMT", "^XA^XZ", 1);

    const Outcome listed = vigilctl({"jobs"});
    EXPECT_EQ(listed.code, 0);
    const QStringList lines = listed.out.split('\n', Qt::SkipEmptyParts);
    ASSERT_EQ(lines.size(), 3) << listed.out.toStdString();
    EXPECT_TRUE(lines.at(1).startsWith(
        QStringLiteral("%1   Line 1  CASE.FMT    sending (1 of 3 sent)  ").arg(first)))
        << lines.at(1).toStdString();
    EXPECT_TRUE(lines.at(2).contains("PALLET.FMT  waiting  "));

    EXPECT_EQ(vigilctl({"jobs", "cancel", QString::number(first)}).code, 0);
    const Outcome again = vigilctl({"jobs", "cancel", QString::number(first)});
    EXPECT_EQ(again.code, 1);
    EXPECT_EQ(again.err.trimmed(),
              QStringLiteral("vigilctl: jobs cancel: there is no job %1").arg(first));
    EXPECT_EQ(vigilctl({"jobs", "cancel", "first"}).code, 2);
    EXPECT_EQ(vigilctl({"jobs", "drop", "1"}).code, 2);
    ASSERT_EQ(spool.list().size(), 1);
    EXPECT_EQ(spool.list().first().id, second);
}
} // namespace
