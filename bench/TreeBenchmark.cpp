// The monitor core with a large site: 2,000 local printers on fake queues under 20 groups.

#include "GroupedSite.h"
#include "core/AddInControl.h"
#include "core/Globals.h"
#include "core/MemoryContextMenus.h"
#include "core/MemoryPagePane.h"
#include "core/MemoryTreeView.h"
#include "core/SiteTally.h"
#include "core/clsComponent.h"
#include "core/clsComponents.h"
#include "printing/clsLBXHandler.h"
#include "services/IDialogs.h"
#include "services/SettingsStore.h"
#include "support/FakeApplication.h"
#include "support/FakeTimer.h"
#include "support/RecordingDialogs.h"

#include <QFile>
#include <QTemporaryDir>
#include <benchmark/benchmark.h>

namespace {
constexpr int Groups = 20;
constexpr int PrintersPerGroup = 100;

class Site
{
public:
    explicit Site(int newQueues = 0)
    {
        qputenv("VIGIL_HOME", QFile::encodeName(m_dir.path()));
        SettingsStore::install(std::make_shared<SettingsStore>(m_dir.filePath("bench.sqlite")));
        IDialogs::install(std::make_shared<RecordingDialogs>());
        m_application->administrator = true;
        InstallApplicationFactory([this] { return m_application; });
        for (int q = 0; q < newQueues; ++q)
            m_application->queues.add(QStringLiteral("New %1").arg(q), 900);
    }
    ~Site()
    {
        control.UserControl_Hide();
        ReleaseGlobalLBX();
        InstallApplicationFactory(nullptr);
        IDialogs::install(nullptr);
        SettingsStore::install(nullptr);
        g_bExiting = false;
    }

    // Starts the control on the queues, then spreads the printers over the groups.
    void startInGroups()
    {
        control.UserControl_Initialize();
        SpreadPrintersOverGroups(Groups);
    }

    MemoryTreeView view;
    MemoryPagePane pages;
    MemoryContextMenus menus;
    FakeTimer timer1{200, false};
    FakeTimer timeout{0, false};
    AddInControl control{ControlPorts{view, pages, menus, timer1, timeout}};

private:
    QTemporaryDir m_dir;
    std::shared_ptr<FakeApplication> m_application = std::make_shared<FakeApplication>();
};

// A site saved, then started: the tree loaded, reconciled and built.
void BM_PollWalk(benchmark::State& state)
{
    Site site(Groups * PrintersPerGroup);
    site.startInGroups();
    for (auto _ : state)
        g_oComponents->Process();
}
BENCHMARK(BM_PollWalk)->Unit(benchmark::kMicrosecond);

void BM_SaveTree(benchmark::State& state)
{
    Site site(Groups * PrintersPerGroup);
    site.startInGroups();
    for (auto _ : state)
        site.control.Save();
}
BENCHMARK(BM_SaveTree)->Unit(benchmark::kMillisecond);

void BM_LoadTree(benchmark::State& state)
{
    Site site(Groups * PrintersPerGroup);
    site.startInGroups();
    site.control.Save();
    for (auto _ : state) {
        auto root = std::make_shared<clsComponents>();
        root->m_sID = QStringLiteral("GPRoot");
        SettingsStore::Transaction snapshot(SettingsStore::process());
        root->LoadState(QStringLiteral("Printers"));
        snapshot.commit();
        benchmark::DoNotOptimize(root);
    }
}
BENCHMARK(BM_LoadTree)->Unit(benchmark::kMillisecond);

void BM_StartUpWithThousandNewQueues(benchmark::State& state)
{
    for (auto _ : state) {
        Site site(1000);
        site.control.UserControl_Initialize();
        if (g_oComponents->Count() != 1000)
            state.SkipWithError("not every queue got a node");
    }
}
BENCHMARK(BM_StartUpWithThousandNewQueues)->Unit(benchmark::kMillisecond)->Iterations(3);

void BM_UpdateStatus(benchmark::State& state)
{
    Site site(2000);
    site.control.UserControl_Initialize();
    auto* printer = g_oComponents->FindPrinter(QStringLiteral("New 1999"));
    for (auto _ : state)
        printer->GetComponent()->RaiseStatusChanged(false);
}
BENCHMARK(BM_UpdateStatus)->Unit(benchmark::kMicrosecond);

// The walk that follows printers coming or going: once per turn of the event loop at most.
void BM_RecountSite(benchmark::State& state)
{
    Site site(Groups * PrintersPerGroup);
    site.startInGroups();
    SiteTally tally([] { return g_oComponents.get(); });
    for (auto _ : state)
        tally.recount();
    if (tally.counts().printers() != Groups * PrintersPerGroup)
        state.SkipWithError("not every printer counted");
}
BENCHMARK(BM_RecountSite)->Unit(benchmark::kMicrosecond);

// One printer changing state with the site's counts following it: no walk.
void BM_StateChangeCounted(benchmark::State& state)
{
    Site site(Groups * PrintersPerGroup);
    site.startInGroups();
    SiteTally tally([] { return g_oComponents.get(); });
    tally.recount();
    auto* printer = g_oComponents->FindPrinter(QStringLiteral("New 1999"));
    bool disabled = false;
    for (auto _ : state) {
        disabled = !disabled;
        printer->setDisabled(disabled);
    }
    if (tally.counts().count(StateDisabled) != (disabled ? 1 : 0))
        state.SkipWithError("the change was not counted");
}
BENCHMARK(BM_StateChangeCounted)->Unit(benchmark::kMicrosecond);
} // namespace

BENCHMARK_MAIN();
