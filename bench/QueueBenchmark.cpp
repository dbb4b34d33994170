// 1,000 simulated Avery printers served by vigil-sim over loopback, each asked for its status
// once a second, first by a bare epoll poller and then through the monitor's queues: the CPU
// this program spends per exchange on each path, the worst wait for a whole reply, and how
// the monitor's path compares with the bare one.

#include "EpollStatusPoller.h"
#include "drivers/clsAveryHandler.h"
#include "platform/lbx/LbxQueue.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QTemporaryDir>
#include <QTimer>
#include <algorithm>
#include <cstdio>
#include <memory>
#include <vector>

namespace {
constexpr int Printers = 1000;
constexpr int Rounds = 10;
constexpr int PeriodMs = 1000;
constexpr int ConnectTimeoutMs = 30000;
// What the Avery handler sends a printer at address 1 each tick, and the short status frame
// the simulated printer answers with.
const QByteArray StatusQuestion = QByteArrayLiteral("#!A1#!X0#!P1");
constexpr qsizetype StatusReplySize = clsAveryHandler::ShortFrame;
// The type number of an Avery printer of the short frame.
constexpr qint16 AveryPrinterNumber = 123;

void raiseFileLimit()
{
    rlimit limit{};
    if (getrlimit(RLIMIT_NOFILE, &limit) == 0) {
        limit.rlim_cur = limit.rlim_max;
        setrlimit(RLIMIT_NOFILE, &limit);
    }
}

// vigil-sim serving a scenario of Avery printers until it goes out of scope.
class SimulatedSite
{
public:
    ~SimulatedSite()
    {
        m_simulator.terminate();
        m_simulator.waitForFinished(5000);
    }

    // False with `error` set unless every printer is served.
    bool serve(int printers, QString& error)
    {
        QProcess maker;
        maker.start(QStringLiteral(VIGIL_SIM_PATH),
                    {"--make-scenario", QString::number(printers), "avery", "--knobs", "delay=0"});
        if (!maker.waitForFinished(30000) || maker.exitCode() != 0) {
            error = QStringLiteral("vigil-sim could not make a scenario");
            return false;
        }
        const QByteArray scenario = maker.readAllStandardOutput();
        const QString path = m_folder.filePath(QStringLiteral("scenario.json"));
        QFile file(path);
        if (!file.open(QIODevice::WriteOnly) || file.write(scenario) != scenario.size()) {
            error = QStringLiteral("the scenario could not be written");
            return false;
        }
        file.close();
        for (const QJsonValue printer :
             QJsonDocument::fromJson(scenario).object()["printers"].toArray())
            m_addresses.append(printer.toObject()["listen"].toString());

        m_simulator.start(QStringLiteral(VIGIL_SIM_PATH), {path});
        int serving = 0;
        QElapsedTimer waited;
        waited.start();
        while (serving < printers && m_simulator.state() != QProcess::NotRunning &&
               waited.elapsed() < 60000) {
            m_simulator.waitForReadyRead(1000);
            while (m_simulator.canReadLine())
                serving += m_simulator.readLine().startsWith("serving") ? 1 : 0;
        }
        if (serving < printers || m_addresses.size() != printers) {
            error = QStringLiteral("vigil-sim served %1 of %2 printers").arg(serving).arg(printers);
            return false;
        }
        return true;
    }

    // "HOST:PORT" of each printer.
    const QStringList& addresses() const { return m_addresses; }

private:
    QTemporaryDir m_folder;
    QProcess m_simulator;
    QStringList m_addresses;
};

// The monitor's path for the same exchange: an LbxQueue a printer, whose wire opens and stays
// up by itself; the question goes with SendData and the reply comes in DataReceived's
// fragments, on the Qt event loop.
class QueueStatusPoller
{
public:
    // False with `error` set unless every queue is connected within `timeoutMs`.
    bool connect(const QStringList& addresses, int timeoutMs, QString& error)
    {
        m_printers = std::vector<Printer>(addresses.size());
        for (qsizetype i = 0; i < addresses.size(); ++i) {
            Printer& printer = m_printers[i];
            printer.queue = std::make_unique<LbxQueue>(
                QueueRecord{QStringLiteral("P%1").arg(i), addresses[i], AveryPrinterNumber, {}});
            QObject::connect(printer.queue.get(), &Queue::DataReceived,
                             [this, &printer](const QByteArray& bytes) { gather(printer, bytes); });
        }
        QElapsedTimer waited;
        waited.start();
        while (!allConnected() && waited.elapsed() < timeoutMs)
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents, 50);
        if (!allConnected()) {
            error = QStringLiteral("not every queue connected");
            return false;
        }
        return true;
    }

    // A round every `periodMs`, the first a period from now; the CPU counted runs until a
    // period after the last round, when its replies are long in.
    ExchangeFigures run(int rounds, int periodMs)
    {
        m_figures = {};
        m_clock.start();
        QEventLoop loop;
        QTimer tick;
        tick.setTimerType(Qt::PreciseTimer);
        int round = 0;
        QObject::connect(&tick, &QTimer::timeout, [&] {
            if (round++ == rounds) {
                loop.quit();
                return;
            }
            for (Printer& printer : m_printers) {
                printer.reply.clear();
                printer.askedAtNs = m_clock.nsecsElapsed();
                printer.queue->SendData(StatusQuestion);
            }
        });
        const double cpuBefore = ProcessCpuSeconds();
        tick.start(periodMs);
        loop.exec();
        m_figures.cpuSeconds = ProcessCpuSeconds() - cpuBefore;
        return m_figures;
    }

private:
    struct Printer
    {
        std::unique_ptr<LbxQueue> queue;
        QByteArray reply;
        qint64 askedAtNs = -1;
    };

    void gather(Printer& printer, const QByteArray& bytes)
    {
        const bool wasShort = printer.reply.size() < StatusReplySize;
        printer.reply += bytes;
        if (!wasShort || printer.reply.size() < StatusReplySize)
            return;
        ++m_figures.exchanges;
        m_figures.worstReplyMs = std::max(m_figures.worstReplyMs,
                                          double(m_clock.nsecsElapsed() - printer.askedAtNs) / 1e6);
    }

    bool allConnected() const
    {
        return std::all_of(m_printers.begin(), m_printers.end(), [](const Printer& printer) {
            return printer.queue->transport().state() == Transport::State::Connected;
        });
    }

    std::vector<Printer> m_printers;
    QElapsedTimer m_clock;
    ExchangeFigures m_figures;
};

void print(const char* path, const ExchangeFigures& figures)
{
    std::printf("%-24s %lld of %d replies whole, CPU %.1f us an exchange, worst reply %.1f ms\n",
                path, figures.exchanges, Printers * Rounds, figures.cpuPerExchangeUs(),
                figures.worstReplyMs);
}

int fail(const QString& what)
{
    std::fprintf(stderr, "bench_queues: %s\n", qPrintable(what));
    return 1;
}
} // namespace

int main(int argc, char* argv[])
{
    QCoreApplication application(argc, argv);
    raiseFileLimit();
    SimulatedSite site;
    QString error;
    if (!site.serve(Printers, error))
        return fail(error);

    ExchangeFigures bare;
    {
        EpollStatusPoller poller(StatusQuestion.toStdString(), StatusReplySize);
        std::vector<std::string> addresses;
        for (const QString& address : site.addresses())
            addresses.push_back(address.toStdString());
        std::string bareError;
        if (!poller.connect(addresses, ConnectTimeoutMs, bareError))
            return fail(QString::fromStdString(bareError));
        bare = poller.run(Rounds, PeriodMs);
    }
    QueueStatusPoller queues;
    if (!queues.connect(site.addresses(), ConnectTimeoutMs, error))
        return fail(error);
    const ExchangeFigures monitor = queues.run(Rounds, PeriodMs);

    std::printf("Avery status exchange over loopback: %d printers, %d rounds %d ms apart\n",
                Printers, Rounds, PeriodMs);
    print("(a) bare epoll poller:", bare);
    print("(b) the monitor's queues:", monitor);
    if (bare.cpuPerExchangeUs() > 0)
        std::printf("(b)/(a): %.1fx CPU an exchange (target within 3x)\n",
                    monitor.cpuPerExchangeUs() / bare.cpuPerExchangeUs());
    const long long expected = qint64(Printers) * Rounds;
    return bare.exchanges == expected && monitor.exchanges == expected ? 0 : 1;
}
