// What the history of printer states costs while polling: 2,000 Domino C-series coders, each
// answered by its simulator in this process, whose timed error comes and goes so that every
// printer changes state every cycle. The poll's CPU is measured with and without the history,
// by turns, and the history's CPU is printed as a share of the poll's own.

#include "GroupedSite.h"
#include "core/AddInControl.h"
#include "core/Globals.h"
#include "core/MemoryContextMenus.h"
#include "core/MemoryPagePane.h"
#include "core/MemoryTreeView.h"
#include "core/StateHistoryRecorder.h"
#include "core/clsComponents.h"
#include "printing/clsLBXHandler.h"
#include "services/ApplicationOptions.h"
#include "services/HeadlessDialogs.h"
#include "services/LocalTimeZone.h"
#include "services/SettingsStore.h"
#include "services/StateHistoryFile.h"
#include "sim/SimRegistry.h"
#include "support/EnginePump.h"
#include "support/FakeApplication.h"
#include "support/FakeTimer.h"

#include <QCoreApplication>
#include <QTemporaryDir>
#include <QTextStream>
#include <algorithm>
#include <ctime>
#include <vector>

namespace {
constexpr int Groups = 20;
constexpr int Printers = 2000;
constexpr int Cycles = 20;
constexpr qint16 CSeriesType = 2100;
constexpr int Pairs = 5;

double Median(std::vector<double> values)
{
    std::sort(values.begin(), values.end());
    return values[values.size() / 2];
}

double threadCpuMs()
{
    timespec now{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
    return double(now.tv_sec) * 1e3 + double(now.tv_nsec) / 1e6;
}

// The coders and their simulators. A coder's ink runs low a second after it was switched on;
// the simulators' clock goes back and forth over that second, so that each poll walk finds
// every printer in another state: good, then a fault.
class Site
{
public:
    explicit Site(FakeApplication& application)
    {
        const SimKnobs knobs({{QStringLiteral("inklowafter"), QStringLiteral("1")}});
        for (int n = 1; n <= Printers; ++n) {
            FakeQueue& queue = application.queues.add(
                QStringLiteral("Coder %1").arg(n, 4, 10, QLatin1Char('0')), CSeriesType);
            QString error;
            m_pumps.push_back(std::make_unique<EnginePump>(
                queue, SimRegistry::create(QStringLiteral("c-series"), knobs, error)));
        }
    }

    // CPU a cycle of poll walks and every exchange they lead to, with the loop's turn after.
    double pollCycles()
    {
        const double before = threadCpuMs();
        for (int cycle = 0; cycle < Cycles; ++cycle) {
            const QDateTime now = m_switchedOn.addSecs(m_cycles++ % 2);
            g_oComponents->Process();
            for (const auto& pump : m_pumps)
                pump->run(now);
            QCoreApplication::sendPostedEvents();
        }
        return (threadCpuMs() - before) / Cycles;
    }

private:
    std::vector<std::unique_ptr<EnginePump>> m_pumps;
    const QDateTime m_switchedOn = QDateTime::currentDateTime();
    int m_cycles = 0;
};

qsizetype changesWritten(const QString& path)
{
    StateHistoryFile file(path, StateHistoryFile::Mode::Read);
    QList<StateChange> changes;
    file.read(0, changes);
    return changes.size();
}
} // namespace

int main(int argc, char* argv[])
{
    // As the programs do: each change's time is a local time.
    ReadLocalTimeZoneOnce();
    QCoreApplication application(argc, argv);
    QTextStream out(stdout);

    QTemporaryDir folder;
    const QString storePath = folder.filePath(QStringLiteral("store.sqlite"));
    const QString historyPath = StateHistoryFile::pathBeside(storePath);
    SettingsStore::install(std::make_shared<SettingsStore>(storePath));
    IDialogs::install(std::make_shared<HeadlessDialogs>());
    LoadOptions();
    LibraryStart();
    auto printers = std::make_shared<FakeApplication>();
    printers->administrator = true;
    Site site(*printers);
    InstallApplicationFactory([printers] { return printers; });

    MemoryTreeView view;
    MemoryPagePane pages;
    MemoryContextMenus menus;
    FakeTimer timer1{200, false};
    FakeTimer timeout{0, false};
    AddInControl control(ControlPorts{view, pages, menus, timer1, timeout});
    control.UserControl_Initialize();
    SpreadPrintersOverGroups(Groups);
    site.pollCycles(); // every coder's first round

    // Runs without and with the history by turns; the middle of the differences stands, so
    // that a drift of the machine or a burst of other work doesn't decide.
    std::vector<double> polls;
    std::vector<double> costs;
    for (int pair = 0; pair < Pairs; ++pair) {
        const double without = site.pollCycles();
        StateHistoryRecorder recorder(historyPath);
        site.pollCycles(); // the states the printers come up in, and the file's first pages
        const double with = site.pollCycles();
        if (!recorder.isRecording())
            out << "the history stopped recording\n";
        polls.push_back(without);
        costs.push_back(with - without);
    }
    const double poll = Median(polls);
    const double history = Median(costs);
    out << Printers << " C-series coders changing state every cycle, " << Cycles
        << " cycles a run, " << Pairs << " runs without and with the history by turns; "
        << changesWritten(historyPath) << " changes written\n"
        << "poll walk, its exchanges and tree updates: " << QString::number(poll, 'f', 1)
        << " ms CPU a cycle (median)\n"
        << "history: " << QString::number(history, 'f', 2) << " ms CPU a cycle (median of the "
        << "differences), " << QString::number(100.0 * history / poll, 'f', 1)
        << "% of the poll's own CPU (target under 5%)\n";
    control.UserControl_Hide();
    return 0;
}
