#include "platform/lbx/LbxQueue.h"
#include "platform/lbx/TcpTransport.h"
#include "platform/wire/FloodGuard.h"
#include "services/VigilError.h"
#include "support/EventLoop.h"

#include <QPointer>
#include <QSignalSpy>
#include <QTcpServer>
#include <QTcpSocket>
#include <algorithm>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <pty.h>
#include <sys/socket.h>
#include <unistd.h>

namespace {
// A printer on loopback that the test can talk through, cut off, take away and bring back.
class LoopbackPrinter
{
public:
    LoopbackPrinter()
    {
        EnsureApplication();
        QObject::connect(&m_server, &QTcpServer::newConnection, [this] {
            m_client = m_server.nextPendingConnection();
            QObject::connect(m_client, &QTcpSocket::readyRead,
                             [this] { received += m_client->readAll(); });
        });
        listen(0);
    }

    void listen(quint16 port) { ASSERT_TRUE(m_server.listen(QHostAddress::LocalHost, port)); }
    quint16 port() const { return m_server.serverPort(); }
    QString portName() const { return QStringLiteral("127.0.0.1:%1").arg(port()); }
    bool connected() const
    {
        return m_client && m_client->state() == QAbstractSocket::ConnectedState;
    }
    void send(const QByteArray& bytes) { m_client->write(bytes); }
    void cut() { std::exchange(m_client, nullptr)->abort(); }
    // Says it will send no more, and still listens.
    void halfClose() { ::shutdown(int(m_client->socketDescriptor()), SHUT_WR); }
    void stop()
    {
        m_server.close();
        cut();
    }

    QByteArray received;

private:
    QTcpServer m_server;
    QPointer<QTcpSocket> m_client;
};

TEST(TransportTest, ATcpPrinterThatDropsOrIsGoneAWhileIsConnectedAgainByItself)
{
    LoopbackPrinter printer;
    const quint16 port = printer.port();
    TcpTransport wire(QStringLiteral("127.0.0.1"), port);
    QByteArray heard;
    QObject::connect(&wire, &Transport::received, [&](const QByteArray& bytes) { heard += bytes; });
    const auto reconnected = [&] {
        return WaitUntil(
            [&] { return wire.state() == Transport::State::Connected && printer.connected(); },
            6000);
    };
    const auto closed = [&] {
        return WaitUntil([&] { return wire.state() == Transport::State::Closed; });
    };
    wire.open();
    ASSERT_TRUE(reconnected());
    wire.send("^0?SM");
    printer.send("reply");
    ASSERT_TRUE(WaitUntil([&] { return printer.received == "^0?SM" && heard == "reply"; }));

    printer.cut();
    ASSERT_TRUE(closed());
    EXPECT_FALSE(wire.problem().isEmpty());
    wire.send("lost"); // dropped, not held back for later
    ASSERT_TRUE(reconnected());

    // Gone long enough for an attempt to be refused, then back on the same port.
    printer.stop();
    ASSERT_TRUE(closed());
    WaitUntil([] { return false; }, 1500);
    printer.listen(port);
    ASSERT_TRUE(reconnected());
    wire.send("again");
    ASSERT_TRUE(WaitUntil([&] { return printer.received.endsWith("again"); }));
    EXPECT_EQ(printer.received, QByteArray("^0?SMagain"));
}

TEST(TransportTest, ManyPrintersTalkingAtOnceEachHearTheirOwnBytesInOrder)
{
    constexpr int Printers = 20;
    constexpr int Pieces = 300;
    std::vector<std::unique_ptr<LoopbackPrinter>> printers;
    std::vector<std::unique_ptr<TcpTransport>> wires;
    std::vector<QByteArray> heard(Printers);
    for (int n = 0; n < Printers; ++n) {
        printers.push_back(std::make_unique<LoopbackPrinter>());
        wires.push_back(
            std::make_unique<TcpTransport>(QStringLiteral("127.0.0.1"), printers[n]->port()));
        QObject::connect(wires[n].get(), &Transport::received,
                         [&heard, n](const QByteArray& bytes) { heard[n] += bytes; });
        wires[n]->open();
    }
    ASSERT_TRUE(WaitUntil([&] {
        return std::all_of(printers.begin(), printers.end(),
                           [](auto& p) { return p->connected(); });
    }));
    std::vector<QByteArray> expected(Printers);
    for (int piece = 0; piece < Pieces; ++piece)
        for (int n = 0; n < Printers; ++n) {
            const QByteArray bytes = QByteArray::number(n) + ':' + QByteArray::number(piece) + ';';
            printers[n]->send(bytes);
            expected[n] += bytes;
        }
    ASSERT_TRUE(WaitUntil([&] { return heard == expected; }));

    // A printer that says it will send no more ends the connection; it is made again.
    printers[0]->halfClose();
    ASSERT_TRUE(WaitUntil([&] { return wires[0]->state() == Transport::State::Closed; }));
    EXPECT_EQ(wires[0]->error(), WireError::ClosedByPeer);
    EXPECT_EQ(wires[1]->state(), Transport::State::Connected);
    EXPECT_TRUE(WaitUntil([&] { return wires[0]->state() == Transport::State::Connected; }, 4000));
}

TEST(TransportTest, AThousandUnreachablePrintersDontHoldUpOneThatAnswers)
{
    LoopbackPrinter printer;
    TcpTransport live(QStringLiteral("127.0.0.1"), printer.port());
    QByteArray heard;
    QObject::connect(&live, &Transport::received, [&](const QByteArray& bytes) { heard += bytes; });
    live.open();
    std::vector<std::unique_ptr<TcpTransport>> gone;
    for (int n = 0; n < 1000; ++n) {
        gone.push_back(std::make_unique<TcpTransport>(QStringLiteral("127.0.0.1"), 1));
        gone.back()->open();
    }
    ASSERT_TRUE(WaitUntil(
        [&] { return printer.connected() && live.state() == Transport::State::Connected; }));
    for (int n = 0; n < 50; ++n) {
        printer.send(QByteArray::number(n) + ';');
        live.send(QByteArray::number(n) + ',');
    }
    EXPECT_TRUE(
        WaitUntil([&] { return heard.endsWith("49;") && printer.received.endsWith("49,"); }));
    // Each of the others is down with a reason, refused or out of descriptors, and tries again.
    ASSERT_TRUE(WaitUntil([&] {
        return std::all_of(gone.begin(), gone.end(), [](auto& wire) {
            return wire->state() != Transport::State::Connected && !wire->problem().isEmpty();
        });
    }));
}

TEST(TransportTest, APortThatNamesNothingUsableLeavesTheQueueUnreachableAndSaysWhy)
{
    EnsureApplication();
    LbxQueue nowhere({QStringLiteral("Nowhere"), QStringLiteral("printer"), 2100, {}});
    EXPECT_TRUE(nowhere.reachability().startsWith("unreachable: \"printer\" is neither"));
    nowhere.SendData("anything"); // goes nowhere, and says nothing more

    LbxQueue unknownKind({QStringLiteral("Sim"), QStringLiteral("sim:teapot"), 2100, {}});
    EXPECT_TRUE(unknownKind.reachability().contains("no simulated printer of the kind \"teapot\""))
        << unknownKind.reachability().toStdString();

    // Each failure of the wire comes with its kind and a text a person can act on.
    struct Case
    {
        QString portName;
        WireError error;
        QString reachability;
    };
    const QList<Case> cases = {
        {"no-such-host.invalid:9100", WireError::HostNotFound,
         "unreachable: no-such-host.invalid:9100: host not found"},
        {"127.0.0.1:1", WireError::ConnectionRefused,
         "unreachable: 127.0.0.1:1: connection refused"},
        {"/dev/ttyVIGIL-none", WireError::DeviceNotFound,
         "unreachable: /dev/ttyVIGIL-none: no such device"},
        {"/dev/null:9600", WireError::BadSettings,
         "unreachable: /dev/null: the line settings were refused"},
    };
    for (const Case& failing : cases) {
        LbxQueue queue({QStringLiteral("Failing"), failing.portName, 2100, {}});
        QSignalSpy errors(&queue.transport(), &Transport::errorOccurred);
        ASSERT_TRUE(WaitUntil([&] { return errors.count() > 0; }, 8000))
            << failing.portName.toStdString();
        EXPECT_EQ(errors.at(0).at(0).value<WireError>(), failing.error)
            << failing.portName.toStdString();
        EXPECT_EQ(queue.reachability(), failing.reachability);
        EXPECT_THROW(queue.CreateJob("/srv/labels/a.fmt", 1, false), VigilError);
    }
}

TEST(TransportTest, ASerialPrinterTalksBothWaysAndIsMissedWhenUnplugged)
{
    EnsureApplication();
    int master = -1;
    int slave = -1;
    char device[128] = {};
    ASSERT_EQ(openpty(&master, &slave, device, nullptr, nullptr), 0);
    // The printer's end is read without waiting, so that the loop keeps turning.
    fcntl(master, F_SETFL, fcntl(master, F_GETFL) | O_NONBLOCK);
    LbxQueue queue({QStringLiteral("Serial"), QString::fromLatin1(device) + ":19200:8N1", 123, {}});
    ASSERT_TRUE(WaitUntil([&] { return queue.reachability() == QStringLiteral("connected"); }));
    QByteArray heard;
    QObject::connect(&queue, &Queue::DataReceived,
                     [&](const QByteArray& bytes) { heard += bytes; });

    queue.SendData("\x1b!S");
    QByteArray atPrinter;
    ASSERT_TRUE(WaitUntil([&] {
        char buffer[64];
        const ssize_t got = ::read(master, buffer, sizeof buffer);
        atPrinter.append(buffer, std::max<ssize_t>(got, 0));
        return atPrinter == "\x1b!S";
    }));
    const QByteArray reply = QByteArray::fromHex("02303003");
    ASSERT_EQ(::write(master, reply.constData(), 4), 4);
    EXPECT_TRUE(WaitUntil([&] { return heard == reply; }));

    // The adapter pulled out: the line ends, and the device is gone when it is looked for.
    ::close(slave);
    ::close(master);
    ASSERT_TRUE(WaitUntil([&] { return queue.transport().state() == Transport::State::Closed; }));
    EXPECT_EQ(queue.transport().error(), WireError::DeviceRemoved);
    EXPECT_EQ(queue.reachability(),
              QStringLiteral("unreachable: %1: the device was removed").arg(device));
}

TEST(TransportTest, ASimulatedPrinterAnswersLaterAsAWireWould)
{
    EnsureApplication();
    LbxQueue queue(
        {QStringLiteral("Sim"), QStringLiteral("sim:echo?delay=5&fragment=2"), 2100, {}});
    QList<QByteArray> heard;
    QObject::connect(&queue, &Queue::DataReceived,
                     [&](const QByteArray& bytes) { heard << bytes; });
    EXPECT_EQ(queue.reachability(), QStringLiteral("connected"));
    queue.SendData("hello");
    EXPECT_TRUE(heard.isEmpty()); // never within the send
    ASSERT_TRUE(WaitUntil([&] { return heard.size() == 3; }));
    EXPECT_EQ(heard, QList<QByteArray>({"he", "ll", "o"}));
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
