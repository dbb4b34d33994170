// vigil-sim as a load test runs it: a real process serving simulated printers on real sockets.

#include "integration/VigilctlFixture.h"
#include "support/EventLoop.h"

#include <QRegularExpression>
#include <QTcpSocket>
#include <csignal>

namespace {
struct Served
{
    QString kind;
    QString host;
    quint16 port = 0;
};

bool isOneLine(const QString& text)
{
    return text.count(QLatin1Char('\n')) == 1 && text.endsWith(QLatin1Char('\n'));
}

// Connected to one served printer; what comes back is kept piece by piece, as read.
class Client
{
public:
    explicit Client(const Served& printer)
    {
        QObject::connect(&m_socket, &QTcpSocket::readyRead, &m_socket,
                         [this] { pieces.append(m_socket.readAll()); });
        m_socket.connectToHost(printer.host, printer.port);
        EXPECT_TRUE(WaitUntil([this] { return m_socket.state() == QTcpSocket::ConnectedState; }))
            << printer.host.toStdString() << ":" << printer.port;
    }

    // What came back once as many bytes as `bytes` have, after sending them.
    QByteArray echo(const QByteArray& bytes)
    {
        pieces.clear();
        send(bytes);
        EXPECT_TRUE(WaitUntil([&] { return heard().size() >= bytes.size(); }))
            << "sent \"" << bytes.toStdString() << "\", got \"" << heard().toStdString();
        return heard();
    }

    void send(const QByteArray& bytes) { m_socket.write(bytes); }
    QByteArray heard() const { return pieces.join(); }

    void disconnect()
    {
        m_socket.disconnectFromHost();
        EXPECT_TRUE(
            WaitUntil([this] { return m_socket.state() == QAbstractSocket::UnconnectedState; }));
    }

    QList<QByteArray> pieces;

private:
    QTcpSocket m_socket;
};

class VigilSimTest : public ::testing::Test
{
protected:
    void SetUp() override
    {
        EnsureApplication();
        ASSERT_TRUE(m_dir.isValid());
    }

    void TearDown() override
    {
        m_server.kill();
        m_server.waitForFinished(5000);
    }

    QString writeScenario(const QByteArray& json, const QString& name = "scenario.json")
    {
        QFile file(m_dir.filePath(name));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(json);
        return file.fileName();
    }

    static Outcome run(const QStringList& args)
    {
        QProcess process;
        process.start(QStringLiteral(VIGIL_SIM_PATH), args);
        EXPECT_TRUE(process.waitForFinished(10000)) << args.join(' ').toStdString();
        return {process.exitCode(), QString::fromUtf8(process.readAllStandardOutput()),
                QString::fromUtf8(process.readAllStandardError())};
    }

    // Starts serving the scenario and answers the printers served, by name, once there are
    // `count` of them and `errorLines` lines on stderr.
    QMap<QString, Served> serve(const QString& scenarioPath, int count, int errorLines = 0)
    {
        m_server.start(QStringLiteral(VIGIL_SIM_PATH), {scenarioPath});
        const bool ready = WaitUntil([&] {
            m_out += QString::fromUtf8(m_server.readAllStandardOutput());
            m_err += QString::fromUtf8(m_server.readAllStandardError());
            return m_out.count(QLatin1Char('\n')) >= count &&
                   m_err.count(QLatin1Char('\n')) >= errorLines;
        });
        EXPECT_TRUE(ready) << "out: " << m_out.toStdString() << "err: " << m_err.toStdString();

        static const QRegularExpression servingLine(
            QStringLiteral(R"re(^serving (\S+) "(.*)" at (.+):(\d+)$)re"));
        QMap<QString, Served> served;
        for (const QString& line : m_out.split(QLatin1Char('\n'), Qt::SkipEmptyParts)) {
            const QRegularExpressionMatch match = servingLine.match(line);
            EXPECT_TRUE(match.hasMatch()) << line.toStdString();
            served.insert(match.captured(2),
                          {match.captured(1), match.captured(3), match.captured(4).toUShort()});
        }
        return served;
    }

    // Sends the server a signal and answers whether it ended as it should: at once, with 0.
    bool endsCleanlyOn(int signalNumber)
    {
        ::kill(pid_t(m_server.processId()), signalNumber);
        return m_server.waitForFinished(5000) && m_server.exitStatus() == QProcess::NormalExit &&
               m_server.exitCode() == 0;
    }

    QTemporaryDir m_dir;
    QProcess m_server;
    QString m_out;
    QString m_err;
};

TEST_F(VigilSimTest, EchoPrintersAnswerOverTcpEachAtItsOwnAddress)
{
    const QString scenario = writeScenario(R"({"printers": [
        {"name": "Plain", "kind": "echo", "listen": "127.0.0.2:0"},
        {"name": "In pieces", "kind": "echo", "listen": "127.0.0.3:0",
         "knobs": {"delay": 1, "fragment": 3, "gap": 30}},
        {"kind": "echo", "listen": "127.0.0.4:0"}
    ]})");
    const QMap<QString, Served> served = serve(scenario, 3);
    ASSERT_EQ(served.keys(), QStringList({"127.0.0.4:0", "In pieces", "Plain"}));
    EXPECT_EQ(served["Plain"].host + served["In pieces"].host,
              QStringLiteral("127.0.0.2127.0.0.3"));
    EXPECT_EQ(served["Plain"].kind, QStringLiteral("echo"));
    EXPECT_NE(served["Plain"].port, 0);
    EXPECT_EQ(Client(served["Plain"]).echo("hello, printer\n"), "hello, printer\n");

    Client inPieces(served["In pieces"]);
    EXPECT_EQ(inPieces.echo("0123456789AB"), "0123456789AB");
    EXPECT_GE(inPieces.pieces.size(), 2);

    // The printer stays when its client goes, for the next one.
    inPieces.disconnect();
    EXPECT_EQ(Client(served["In pieces"]).echo("back"), "back");

    EXPECT_TRUE(endsCleanlyOn(SIGTERM)) << m_server.exitCode();
    EXPECT_TRUE(m_err.isEmpty()) << m_err.toStdString();
}

TEST_F(VigilSimTest, TwoClientsOfOnePrinterEachHearOnlyTheirOwnReplies)
{
    const QString scenario = writeScenario(R"({"printers": [
        {"name": "Shared", "kind": "echo", "listen": "127.0.0.2:0", "knobs": {"delay": 30}}
    ]})");
    const Served printer = serve(scenario, 1).value("Shared");
    Client first(printer);
    Client second(printer);
    first.send("first");
    second.send("second");
    ASSERT_TRUE(WaitUntil([&] { return first.heard().size() >= 5 && second.heard().size() >= 6; }));
    // Once the answer to one more request has come, so has anything else sent before it.
    first.send(".");
    second.send(".");
    ASSERT_TRUE(
        WaitUntil([&] { return first.heard().endsWith('.') && second.heard().endsWith('.'); }));
    EXPECT_EQ(first.heard(), "first.");
    EXPECT_EQ(second.heard(), "second.");
}

TEST_F(VigilSimTest, SigintAndSigtermEndItWithExitZero)
{
    const QString scenario =
        writeScenario(R"({"printers": [{"name": "P", "kind": "echo", "listen": "127.0.0.2:0"}]})");
    for (const int signalNumber : {SIGINT, SIGTERM}) {
        m_out.clear();
        const Served printer = serve(scenario, 1).value("P");
        ASSERT_NE(printer.port, 0);
        EXPECT_TRUE(endsCleanlyOn(signalNumber))
            << "signal " << signalNumber << ": exit " << m_server.exitCode();

        QTcpSocket socket;
        socket.connectToHost(printer.host, printer.port);
        EXPECT_TRUE(WaitUntil([&] { return socket.state() == QAbstractSocket::UnconnectedState; }));
        EXPECT_EQ(socket.error(), QAbstractSocket::ConnectionRefusedError);
    }
}

TEST_F(VigilSimTest, ABadScenarioFileOrCommandLineExitsTwoWithOneLine)
{
    const QList<QByteArray> badFiles{
        "not json",
        R"([{"kind": "echo", "listen": "127.0.0.2:0"}])",
        R"({"printers": {}})",
        R"({"printers": [1]})",
        R"({"printers": [{"listen": "127.0.0.2:0"}]})",
        R"({"printers": [{"kind": "echo", "listen": 9100}]})",
        R"({"printers": [{"kind": "echo", "listen": "127.0.0.2:0", "name": 7}]})",
        R"({"printers": [{"kind": "echo", "listen": "127.0.0.2:0", "knobs": [1]}]})",
        R"({"printers": [{"kind": "echo", "listen": "127.0.0.2:0", "knob": {}}]})",
        R"({"printers": [], "printer": []})",
    };
    for (const QByteArray& json : badFiles) {
        const QString path = writeScenario(json, QStringLiteral("bad.json"));
        const Outcome outcome = run({path});
        EXPECT_EQ(outcome.code, 2) << json.toStdString();
        EXPECT_TRUE(outcome.out.isEmpty());
        EXPECT_TRUE(isOneLine(outcome.err) &&
                    outcome.err.startsWith(QStringLiteral("vigil-sim: ")) &&
                    outcome.err.contains(path))
            << json.toStdString() << ": " << outcome.err.toStdString();
    }

    const QList<QStringList> badLines{
        {m_dir.filePath(QStringLiteral("missing.json"))},
        {"a.json", "b.json"},
        {"--port", "9100", "a.json"},
        {"--frobnicate"},
    };
    for (const QStringList& args : badLines) {
        const Outcome outcome = run(args);
        EXPECT_EQ(outcome.code, 2) << args.join(' ').toStdString();
        EXPECT_TRUE(isOneLine(outcome.err)) << outcome.err.toStdString();
    }
    EXPECT_EQ(run({}).code, 2);
    const Outcome help = run({"--help"});
    EXPECT_EQ(help.code, 0);
    EXPECT_TRUE(help.out.startsWith(QStringLiteral("Usage: vigil-sim"))) << help.out.toStdString();
}

} // namespace
