// Queues of the print application on printers that vigil-sim serves over loopback: bytes go
// both ways, and a simulator that is killed and started again is found again.

#include "platform/lbx/LbxQueue.h"
#include "support/EventLoop.h"

#include <QProcess>
#include <QTemporaryDir>
#include <gtest/gtest.h>
#include <unistd.h>

namespace {
class SimQueuesTest : public ::testing::Test
{
protected:
    void SetUp() override
    {
        EnsureApplication();
        ASSERT_TRUE(m_dir.isValid());
        // An address of this run's own, so that runs side by side don't meet.
        m_address =
            QStringLiteral("127.0.%1.%2").arg((getpid() >> 8) % 250 + 1).arg(getpid() % 250 + 2);
        QFile scenario(m_dir.filePath("site.json"));
        ASSERT_TRUE(scenario.open(QIODevice::WriteOnly));
        scenario.write(QStringLiteral(R"({"printers": [
            {"name": "Coder", "kind": "echo", "listen": "%1:9100", "knobs": {"fragment": 2}},
            {"name": "Labeller", "kind": "echo", "listen": "%1:9101"}]})")
                           .arg(m_address)
                           .toUtf8());
    }

    void TearDown() override { stopSimulator(); }

    void startSimulator()
    {
        m_simulator.start(QStringLiteral(VIGIL_SIM_PATH), {m_dir.filePath("site.json")});
        int serving = 0;
        ASSERT_TRUE(WaitUntil([&] {
            while (m_simulator.canReadLine())
                serving += m_simulator.readLine().startsWith("serving") ? 1 : 0;
            return serving == 2;
        }));
    }

    void stopSimulator()
    {
        if (m_simulator.state() == QProcess::NotRunning)
            return;
        m_simulator.kill();
        m_simulator.waitForFinished(5000);
    }

    QString port(int number) const { return QStringLiteral("%1:%2").arg(m_address).arg(number); }

    QTemporaryDir m_dir;
    QString m_address;
    QProcess m_simulator;
};

TEST_F(SimQueuesTest, BytesRoundTripAndAKilledSimulatorIsFoundAgain)
{
    startSimulator();
    LbxQueue coder({"Coder", port(9100), 2100, {}});
    LbxQueue labeller({"Labeller", port(9101), 780, {}});
    QByteArray heardByCoder;
    QByteArray heardByLabeller;
    QObject::connect(&coder, &Queue::DataReceived,
                     [&](const QByteArray& bytes) { heardByCoder += bytes; });
    QObject::connect(&labeller, &Queue::DataReceived,
                     [&](const QByteArray& bytes) { heardByLabeller += bytes; });
    ASSERT_TRUE(WaitUntil([&] {
        return coder.reachability() == "connected" && labeller.reachability() == "connected";
    }));
    coder.SendData("\x1b"
                   "OS\r");
    labeller.SendData("\x05"
                      "A");
    EXPECT_TRUE(WaitUntil([&] {
        return heardByCoder == "\x1b"
                               "OS\r";
    }));
    EXPECT_TRUE(WaitUntil([&] {
        return heardByLabeller == "\x05"
                                  "A";
    }));

    stopSimulator();
    ASSERT_TRUE(WaitUntil([&] { return coder.transport().state() == Transport::State::Closed; }));
    coder.SendData("lost"); // the wire is down: dropped
    startSimulator();
    ASSERT_TRUE(WaitUntil([&] { return coder.reachability() == "connected"; }, 10000));
    heardByCoder.clear();
    coder.SendData("back");
    EXPECT_TRUE(WaitUntil([&] { return heardByCoder == "back"; }));
}
} // namespace
