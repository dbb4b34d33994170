// Print jobs a second through the spool: a format filled with a value, released, written to
// spool.sqlite and sent to a local label printer (simulated in this process), one copy each.

#include "drivers/PrintJob.h"
#include "platform/lbx/LbxQueue.h"
#include "platform/lbx/PrintSpool.h"
#include "services/EventLoopWait.h"
#include "services/SettingsStore.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QTemporaryDir>
#include <cstdio>

namespace {
constexpr int Jobs = 500;
constexpr int DeadlineMs = 120000;
}

int main(int argc, char* argv[])
{
    QCoreApplication application(argc, argv);
    QTemporaryDir dir;
    SettingsStore::install(std::make_shared<SettingsStore>(dir.filePath("store.sqlite")));
    QFile format(dir.filePath("case.fmt"));
    if (!format.open(QIODevice::WriteOnly))
        return 1;
    format.write("[Format]\nPrinterType=1\n[Prompt Lot]\nValue=L0001\n"
                 "[Data]\n^XA^FO40,40^FD{Lot}^FS^FO40,90^FDBest before 31/12/2026^FS^XZ\n");
    format.close();

    const auto spool = std::make_shared<PrintSpool>(dir.filePath("spool.sqlite"));
    LbxQueue queue({"Bench", "sim:label", 1, {}}, spool);
    TurnEventLoopUntil([&queue] { return queue.reachability() == "connected"; }, 5000);

    QElapsedTimer clock;
    clock.start();
    for (int job = 0; job < Jobs; ++job) {
        std::shared_ptr<PrintJob> printJob = queue.CreateJob(format.fileName(), 1, false);
        printJob->PromptedValues().first().Value = QStringLiteral("L%1").arg(job, 4, 10, QChar('0'));
    }
    const qint64 releasedMs = clock.elapsed();
    const bool sent = TurnEventLoopUntil([&queue] { return queue.PendingItems() == 0; }, DeadlineMs);
    const qint64 totalMs = clock.elapsed();
    std::printf("spool: %d jobs released in %lld ms (%.0f jobs/s written down), all sent in %lld ms: "
                "%.0f jobs/s through the spool%s\n",
                Jobs, qint64(releasedMs), Jobs * 1000.0 / std::max<qint64>(releasedMs, 1),
                qint64(totalMs), Jobs * 1000.0 / std::max<qint64>(totalMs, 1),
                sent ? "" : " (NOT all sent before the deadline)");
    return sent ? 0 : 1;
}
