// The C-series driver's own costs: reading one status report, and one whole poll round
// against the simulated coder in this process, with no wire in between.

#include "core/clsComponent.h"
#include "drivers/DominoCReplies.h"
#include "drivers/clsDominoHandlerC.h"
#include "drivers/clsResponseStitcher.h"
#include "printing/clsLBXHandler.h"
#include "services/IDialogs.h"
#include "services/SettingsStore.h"
#include "sim/SimRegistry.h"
#include "support/EnginePump.h"
#include "support/FakeApplication.h"
#include "support/RecordingDialogs.h"

#include <QFile>
#include <QTemporaryDir>
#include <benchmark/benchmark.h>

namespace {
const QByteArray Status = QByteArrayLiteral(
    "Date : 22/11/2026\rTime : 06:30:15\rLanguage : 1\rShaft encoder : 0\rPhotocell : 1\r"
    "Fpga status : 0\rInk status : 0\rAvailable drivespace : 512\rHead 1 : 105\r"
    "Merlin version : A1234\rApprentice version : 2.10\rFPGA version : = 7.3\r\xFE");

void BM_StitchAndParseStatusReport(benchmark::State& state)
{
    clsResponseStitcher stitcher;
    stitcher.SetErrorStrings({"\x15", "\x01"});
    stitcher.SetTerminiatingSequences({"\xFE"});
    DominoCValues values;
    const QByteArray first = Status.left(60);
    const QByteArray rest = Status.mid(60);
    for (auto _ : state) {
        stitcher.StitchResponse(first, 0);
        stitcher.StitchResponse(rest, 0);
        benchmark::DoNotOptimize(
            DominoCReplies::parseStatusReport(stitcher.GetCompleteResponse(true), values, false));
    }
    state.SetItemsProcessed(state.iterations());
}
BENCHMARK(BM_StitchAndParseStatusReport);

// A coder on a fake queue whose bytes go straight to the simulator's engine.
class SimulatedCoder
{
public:
    SimulatedCoder()
    {
        qputenv("VIGIL_HOME", QFile::encodeName(m_dir.path()));
        SettingsStore::install(std::make_shared<SettingsStore>(m_dir.filePath("bench.sqlite")));
        IDialogs::install(std::make_shared<RecordingDialogs>());
        InstallApplicationFactory([this] { return m_application; });
        m_queue = &m_application->queues.add(QStringLiteral("Coder"), 2100);
        QString error;
        if (auto engine = SimRegistry::create(QStringLiteral("c-series"), SimKnobs(), error))
            m_pump = std::make_unique<EnginePump>(*m_queue, std::move(engine));
        m_node->m_sID = QStringLiteral("ID1");
        m_node->m_sName = QStringLiteral("Coder");
        m_node->m_lRemoteObjectPrinterNumber = 2100;
        m_handler = qobject_cast<clsDominoHandlerC*>(m_node->GetComponent());
    }
    ~SimulatedCoder()
    {
        m_node.reset();
        ReleaseGlobalLBX();
        InstallApplicationFactory(nullptr);
        IDialogs::install(nullptr);
        SettingsStore::install(nullptr);
    }

    bool ready() const { return m_pump && m_handler; }

    // One tick and every exchange it leads to; false if the round didn't end.
    bool round()
    {
        m_handler->Process();
        m_pump->run(m_now);
        return m_handler->currentStage() == clsDominoHandlerC::StageIdle;
    }

private:
    QTemporaryDir m_dir;
    std::shared_ptr<FakeApplication> m_application = std::make_shared<FakeApplication>();
    FakeQueue* m_queue = nullptr;
    std::unique_ptr<EnginePump> m_pump;
    const QDateTime m_now = QDateTime::currentDateTime();
    std::shared_ptr<clsComponent> m_node = std::make_shared<clsComponent>();
    clsDominoHandlerC* m_handler = nullptr;
};

void BM_PollRoundAgainstTheSimulator(benchmark::State& state)
{
    SimulatedCoder coder;
    if (!coder.ready() || !coder.round()) {
        state.SkipWithError("the simulated coder didn't finish a round");
        return;
    }
    for (auto _ : state)
        benchmark::DoNotOptimize(coder.round());
}
BENCHMARK(BM_PollRoundAgainstTheSimulator);
} // namespace

BENCHMARK_MAIN();
