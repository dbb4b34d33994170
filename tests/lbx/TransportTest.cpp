#include "platform/lbx/LbxQueue.h"
#include "platform/lbx/TcpTransport.h"
#include "services/VigilError.h"
#include "support/EventLoop.h"

#include <QPointer>
#include <QSignalSpy>
#include <QTcpServer>
#include <QTcpSocket>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <pty.h>
#include <unistd.h>

namespace {
// A printer on loopback that the test can talk through, cut off and bring back.
class LoopbackPrinter
{
public:
    LoopbackPrinter() { listen(0); }

    void listen(quint16 port)
    {
        EnsureApplication();
        ASSERT_TRUE(m_server.listen(QHostAddress::LocalHost, port));
        QObject::connect(&m_server, &QTcpServer::newConnection, [this] {
            m_client = m_server.nextPendingConnection();
            QObject::connect(m_client, &QTcpSocket::readyRead,
                             [this] { received += m_client->readAll(); });
        });
    }

    quint16 port() const { return m_server.serverPort(); }
    QString portName() const { return QStringLiteral("127.0.0.1:%1").arg(port()); }
    bool connected() const
    {
        return m_client && m_client->state() == QAbstractSocket::ConnectedState;
    }
    void send(const QByteArray& bytes) { m_client->write(bytes); }
    void cut()
    {
        m_client->abort();
        m_client = nullptr;
    }

    QByteArray received;

private:
    QTcpServer m_server;
    QPointer<QTcpSocket> m_client;
};

TEST(TransportTest, ATcpPrinterThatDropsIsConnectedAgainByItself)
{
    LoopbackPrinter printer;
    TcpTransport wire(QStringLiteral("127.0.0.1"), printer.port());
    QByteArray heard;
    QObject::connect(&wire, &Transport::received, [&](const QByteArray& bytes) { heard += bytes; });
    wire.open();
    ASSERT_TRUE(WaitUntil([&] { return wire.state() == Transport::State::Connected; }));
    ASSERT_TRUE(WaitUntil([&] { return printer.connected(); }));

    wire.send("^0?SM");
    ASSERT_TRUE(WaitUntil([&] { return printer.received == "^0?SM"; }));
    printer.send("reply");
    ASSERT_TRUE(WaitUntil([&] { return heard == "reply"; }));

    printer.cut();
    ASSERT_TRUE(WaitUntil([&] { return wire.state() == Transport::State::Closed; }));
    EXPECT_FALSE(wire.problem().isEmpty());
    wire.send("lost"); // dropped, not held back for later
    ASSERT_TRUE(WaitUntil([&] { return wire.state() == Transport::State::Connected; }, 4000));
    ASSERT_TRUE(WaitUntil([&] { return printer.connected(); }));
    wire.send("again");
    ASSERT_TRUE(WaitUntil([&] { return printer.received.endsWith("again"); }));
    EXPECT_EQ(printer.received, QByteArray("^0?SMagain"));
}

TEST(TransportTest, APortThatNamesNothingUsableLeavesTheQueueUnreachable)
{
    EnsureApplication();
    LbxQueue nowhere({QStringLiteral("Nowhere"), QStringLiteral("printer"), 2100, {}});
    EXPECT_TRUE(nowhere.reachability().startsWith("unreachable: \"printer\" is neither"));
    nowhere.SendData("anything"); // goes nowhere, and says nothing more

    LbxQueue unknownKind({QStringLiteral("Sim"), QStringLiteral("sim:teapot"), 2100, {}});
    EXPECT_TRUE(unknownKind.reachability().contains("no simulated printer of the kind \"teapot\""))
        << unknownKind.reachability().toStdString();

    LbxQueue unresolved(
        {QStringLiteral("Far"), QStringLiteral("no-such-host.invalid:9100"), 2100, {}});
    ASSERT_TRUE(WaitUntil(
        [&] { return unresolved.transport().state() == Transport::State::Closed; }, 5000));
    EXPECT_TRUE(unresolved.reachability().startsWith("unreachable: no-such-host.invalid:9100: "));

    LbxQueue unplugged({QStringLiteral("Serial"), QStringLiteral("/dev/ttyVIGIL-none"), 123, {}});
    EXPECT_TRUE(unplugged.reachability().startsWith("unreachable: /dev/ttyVIGIL-none: "))
        << unplugged.reachability().toStdString();

    EXPECT_THROW(unresolved.CreateJob("/srv/labels/a.fmt", 1, false), VigilError);
}

TEST(TransportTest, ASerialPrinterTalksBothWays)
{
    EnsureApplication();
    int master = -1;
    int slave = -1;
    char device[128] = {};
    ASSERT_EQ(openpty(&master, &slave, device, nullptr, nullptr), 0);
    // The printer's end is read without waiting, so that the loop keeps turning.
    fcntl(master, F_SETFL, fcntl(master, F_GETFL) | O_NONBLOCK);
    LbxQueue queue({QStringLiteral("Serial"), QString::fromLatin1(device) + ":19200:8N1", 123, {}});
    ASSERT_EQ(queue.reachability(), QStringLiteral("connected"));
    QByteArray heard;
    QObject::connect(&queue, &Queue::DataReceived,
                     [&](const QByteArray& bytes) { heard += bytes; });

    queue.SendData("\x1b!S");
    QByteArray atPrinter;
    ASSERT_TRUE(WaitUntil([&] {
        char buffer[64];
        const ssize_t got = ::read(master, buffer, sizeof buffer);
        if (got > 0)
            atPrinter.append(buffer, got);
        return atPrinter == "\x1b!S";
    }));
    ASSERT_EQ(::write(master,
                      "\x02"
                      "00\x03",
                      4),
              4);
    EXPECT_TRUE(WaitUntil([&] {
        return heard == "\x02"
                        "00\x03";
    }));
    ::close(master);
    ::close(slave);
}

TEST(TransportTest, ASimulatedPrinterAnswersLaterAsAWireWould)
{
    EnsureApplication();
    LbxQueue queue(
        {QStringLiteral("Sim"), QStringLiteral("sim:echo?delay=5&fragment=2"), 2100, {}});
    QByteArray heard;
    int fragments = 0;
    QObject::connect(&queue, &Queue::DataReceived, [&](const QByteArray& bytes) {
        heard += bytes;
        ++fragments;
    });
    EXPECT_EQ(queue.reachability(), QStringLiteral("connected"));
    queue.SendData("hello");
    EXPECT_TRUE(heard.isEmpty()); // never within the send
    ASSERT_TRUE(WaitUntil([&] { return heard == "hello"; }));
    EXPECT_EQ(fragments, 3);
}

TEST(TransportTest, APrinterThatFloodsIsCappedAndSaysSoOnce)
{
    LoopbackPrinter printer;
    LbxQueue queue({QStringLiteral("Flood"), printer.portName(), 2100, {}});
    QSignalSpy errors(&queue, &Queue::Error);
    qint64 heard = 0;
    QObject::connect(&queue, &Queue::DataReceived,
                     [&](const QByteArray& bytes) { heard += bytes.size(); });
    ASSERT_TRUE(WaitUntil([&] { return printer.connected(); }));
    printer.send(QByteArray(3 << 20, 'x'));
    ASSERT_TRUE(WaitUntil([&] { return errors.count() == 1; }));
    WaitUntil([] { return false; }, 300); // let the rest of the flood arrive
    EXPECT_EQ(errors.count(), 1);
    EXPECT_EQ(errors.at(0).at(0).toInt(), VigilError::Overflow);
    EXPECT_LE(heard, FloodGuard::BytesPerSecond);
    EXPECT_GT(heard, 0);
}
} // namespace
