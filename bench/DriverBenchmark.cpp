// The drivers' own costs: reading a C-series status report, building and reading A-series
// frames, and one whole poll round of each kind against its simulator in this process, with
// no wire in between.

#include "core/clsComponent.h"
#include "drivers/DominoCReplies.h"
#include "drivers/clsASeriesMessage.h"
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

void BM_BuildASeriesFrame(benchmark::State& state)
{
    const QByteArray clock = QByteArray::fromHex("14070905"
                                                 "0E071E");
    for (auto _ : state)
        benchmark::DoNotOptimize(clsASeriesMessage().BuildCommandWithData(34, 0, clock, false));
    state.SetItemsProcessed(state.iterations());
}
BENCHMARK(BM_BuildASeriesFrame);

void BM_ParseASeriesFrame(benchmark::State& state)
{
    const QByteArray frame = clsASeriesMessage().BuildCommandWithData(
        64, 2, QByteArray::fromHex("0A00000039300000"), false);
    for (auto _ : state) {
        clsASeriesMessage message;
        benchmark::DoNotOptimize(message.ParseMessage(frame, 64));
    }
    state.SetItemsProcessed(state.iterations());
}
BENCHMARK(BM_ParseASeriesFrame);

// A printer on a fake queue whose bytes go straight to the simulator's engine.
class SimulatedPrinter
{
public:
    SimulatedPrinter(const QString& kind, qint16 printerNumber)
    {
        qputenv("VIGIL_HOME", QFile::encodeName(m_dir.path()));
        SettingsStore::install(std::make_shared<SettingsStore>(m_dir.filePath("bench.sqlite")));
        IDialogs::install(std::make_shared<RecordingDialogs>());
        InstallApplicationFactory([this] { return m_application; });
        m_queue = &m_application->queues.add(QStringLiteral("Printer"), printerNumber);
        QString error;
        if (auto engine = SimRegistry::create(kind, SimKnobs(), error))
            m_pump = std::make_unique<EnginePump>(*m_queue, std::move(engine));
        m_node->m_sID = QStringLiteral("ID1");
        m_node->m_sName = QStringLiteral("Printer");
        m_node->m_lRemoteObjectPrinterNumber = printerNumber;
        m_handler = m_node->GetComponent();
    }
    ~SimulatedPrinter()
    {
        m_node.reset();
        ReleaseGlobalLBX();
        InstallApplicationFactory(nullptr);
        IDialogs::install(nullptr);
        SettingsStore::install(nullptr);
    }

    bool ready() const { return m_pump && m_handler; }

    // One tick and every exchange it leads to; false if the printer didn't end up healthy.
    bool round()
    {
        m_handler->Process();
        m_pump->run(m_now);
        return !m_queue->replyWanted && m_handler->GetErrorState() == 1;
    }

private:
    QTemporaryDir m_dir;
    std::shared_ptr<FakeApplication> m_application = std::make_shared<FakeApplication>();
    FakeQueue* m_queue = nullptr;
    std::unique_ptr<EnginePump> m_pump;
    const QDateTime m_now = QDateTime::currentDateTime();
    std::shared_ptr<clsComponent> m_node = std::make_shared<clsComponent>();
    ComponentHandler* m_handler = nullptr;
};

void pollRounds(benchmark::State& state, const QString& kind, qint16 printerNumber)
{
    SimulatedPrinter printer(kind, printerNumber);
    if (!printer.ready() || !printer.round()) {
        state.SkipWithError("the simulated printer didn't finish a round");
        return;
    }
    for (auto _ : state)
        benchmark::DoNotOptimize(printer.round());
}

void BM_CSeriesRound(benchmark::State& state)
{
    pollRounds(state, QStringLiteral("c-series"), 2100);
}
BENCHMARK(BM_CSeriesRound);

void BM_ASeriesRound(benchmark::State& state)
{
    pollRounds(state, QStringLiteral("a-series"), 2011);
}
BENCHMARK(BM_ASeriesRound);

void BM_AveryExchange(benchmark::State& state)
{
    pollRounds(state, QStringLiteral("avery"), 123);
}
BENCHMARK(BM_AveryExchange);
} // namespace

BENCHMARK_MAIN();
