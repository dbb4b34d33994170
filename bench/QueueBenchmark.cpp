// 1,000 echo printers served by vigil-sim over loopback, each sent one 16-byte command a
// second through the queue layer: the CPU this program spends per exchange, and how late
// its events come (the second's tick, and a reply after its command).

#include "platform/lbx/LbxQueue.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QTemporaryDir>
#include <QTimer>
#include <cstdio>
#include <memory>
#include <sys/resource.h>
#include <vector>

namespace {
constexpr int Printers = 1000;
constexpr int Rounds = 10;
const QByteArray Command = QByteArrayLiteral("^0?SM0123456789\r");

double cpuSeconds()
{
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    return double(usage.ru_utime.tv_sec + usage.ru_stime.tv_sec) +
           double(usage.ru_utime.tv_usec + usage.ru_stime.tv_usec) / 1e6;
}

void raiseFileLimit()
{
    rlimit limit{};
    if (getrlimit(RLIMIT_NOFILE, &limit) == 0) {
        limit.rlim_cur = limit.rlim_max;
        setrlimit(RLIMIT_NOFILE, &limit);
    }
}

// One printer's side of the exchange: when its command went, and the reply so far.
struct Exchange
{
    std::unique_ptr<LbxQueue> queue;
    qint64 sentAt = -1;
    QByteArray reply;
};

int fail(const char* what)
{
    std::fprintf(stderr, "bench_queues: %s\n", what);
    return 1;
}
} // namespace

int main(int argc, char* argv[])
{
    QCoreApplication application(argc, argv);
    raiseFileLimit();
    QTemporaryDir folder;
    QProcess maker;
    maker.start(QStringLiteral(VIGIL_SIM_PATH),
                {"--make-scenario", QString::number(Printers), "echo", "--knobs", "delay=0"});
    if (!maker.waitForFinished(30000) || maker.exitCode() != 0)
        return fail("vigil-sim could not make a scenario");
    const QByteArray scenario = maker.readAllStandardOutput();
    const QString scenarioPath = folder.filePath(QStringLiteral("scenario.json"));
    QFile file(scenarioPath);
    if (!file.open(QIODevice::WriteOnly) || file.write(scenario) != scenario.size())
        return fail("the scenario could not be written");
    file.close();

    QProcess simulator;
    simulator.start(QStringLiteral(VIGIL_SIM_PATH), {scenarioPath});
    int serving = 0;
    QElapsedTimer waited;
    waited.start();
    while (serving < Printers && waited.elapsed() < 60000) {
        simulator.waitForReadyRead(1000);
        while (simulator.canReadLine())
            serving += simulator.readLine().startsWith("serving") ? 1 : 0;
    }
    if (serving < Printers)
        return fail("vigil-sim did not serve every printer");

    QElapsedTimer clock;
    clock.start();
    std::vector<Exchange> exchanges(Printers);
    const QJsonArray printers = QJsonDocument::fromJson(scenario).object()["printers"].toArray();
    qint64 worstReplyMs = 0;
    qint64 replies = 0;
    for (int i = 0; i < Printers; ++i) {
        Exchange& exchange = exchanges[i];
        exchange.queue = std::make_unique<LbxQueue>(QueueRecord{
            QStringLiteral("P%1").arg(i), printers[i].toObject()["listen"].toString(), 2100, {}});
        QObject::connect(exchange.queue.get(), &Queue::DataReceived,
                         [&exchange, &clock, &worstReplyMs, &replies](const QByteArray& bytes) {
                             exchange.reply += bytes;
                             if (exchange.reply.size() < Command.size())
                                 return;
                             worstReplyMs =
                                 std::max(worstReplyMs, clock.elapsed() - exchange.sentAt);
                             exchange.reply.clear();
                             ++replies;
                         });
    }
    const auto allConnected = [&exchanges] {
        for (const Exchange& exchange : exchanges)
            if (exchange.queue->transport().state() != Transport::State::Connected)
                return false;
        return true;
    };
    waited.restart();
    while (!allConnected() && waited.elapsed() < 30000)
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents, 50);
    if (!allConnected())
        return fail("not every queue connected");

    int round = 0;
    qint64 worstTickLateMs = 0;
    qint64 nextTickAt = clock.elapsed() + 1000;
    const double cpuBefore = cpuSeconds();
    QTimer tick;
    tick.setTimerType(Qt::PreciseTimer);
    QObject::connect(&tick, &QTimer::timeout, [&] {
        worstTickLateMs = std::max(worstTickLateMs, clock.elapsed() - nextTickAt);
        nextTickAt += 1000;
        // A second after the last round its replies are in.
        if (round++ == Rounds) {
            application.quit();
            return;
        }
        for (Exchange& exchange : exchanges) {
            exchange.sentAt = clock.elapsed();
            exchange.queue->SendData(Command);
        }
    });
    tick.start(1000);
    application.exec();
    const double cpu = cpuSeconds() - cpuBefore;
    simulator.terminate();
    simulator.waitForFinished(5000);

    const qint64 expected = qint64(Printers) * Rounds;
    std::printf("printers %d, rounds %d, replies %lld of %lld\n", Printers, Rounds,
                static_cast<long long>(replies), static_cast<long long>(expected));
    std::printf("CPU per exchange: %.1f us (target under 30)\n",
                replies ? cpu * 1e6 / double(replies) : 0.0);
    std::printf("worst lateness of the second's tick: %lld ms, worst reply after its command: "
                "%lld ms (target under 50)\n",
                static_cast<long long>(worstTickLateMs), static_cast<long long>(worstReplyMs));
    return replies >= expected ? 0 : 1;
}
