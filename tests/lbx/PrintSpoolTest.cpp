#include "platform/lbx/PrintSpool.h"

#include "platform/lbx/LbxQueue.h"
#include "support/EventLoop.h"
#include "support/ServicesFixture.h"

#include <QFile>
#include <QSignalSpy>
#include <QTcpServer>
#include <QTcpSocket>
#include <sqlite3.h>

namespace {
class PrintSpoolTest : public ServicesFixture
{
protected:
    void SetUp() override
    {
        ServicesFixture::SetUp();
        EnsureApplication();
    }

    QString spoolPath() const { return m_home.filePath(QStringLiteral("spool.sqlite")); }
    std::shared_ptr<PrintSpool> openSpool() const
    {
        auto spool = std::make_shared<PrintSpool>(spoolPath());
        spool->takeOver();
        return spool;
    }

    // A queue on an echoing printer: what comes back is what was sent.
    struct EchoQueue
    {
        EchoQueue(const QString& name, std::shared_ptr<PrintSpool> spool,
                  const QString& port = QStringLiteral("sim:echo"))
            : queue({name, port, 900, name}, std::move(spool))
        {
            QObject::connect(&queue, &Queue::DataReceived,
                             [this](const QByteArray& bytes) { printed += bytes; });
            QObject::connect(&queue, &Queue::PrintItemStatusChanged,
                             [this](const QString& item, qint32 status, const QString& details) {
                                 progress << QStringLiteral("%1:%2").arg(item).arg(status);
                                 this->details << details;
                             });
        }

        LbxQueue queue;
        QByteArray printed;
        QStringList progress;
        QStringList details;
        QSignalSpy messages{&queue, &Queue::Message};
        QSignalSpy errors{&queue, &Queue::Error};
    };

    static void idle(int ms)
    {
        WaitUntil([] { return false; }, ms);
    }
};

TEST_F(PrintSpoolTest, JobsGoInOrderBetweenExchangesAndAreCountedWhileTheyWait)
{
    const auto spool = openSpool();
    EchoQueue line1("Line 1", spool);
    EchoQueue line2("Line 2", spool);
    line1.queue.setReplyWanted(true); // a poll's exchange is going on
    const qint64 a = spool->add("Line 1", "A.FMT", "aa", 2);
    const qint64 b = spool->add("Line 1", "B.FMT", "b", 1);
    spool->add("Line 2", "C.FMT", "c", 1);
    EXPECT_EQ(line1.queue.PendingItems(), 2);
    idle(150);
    EXPECT_EQ(line1.printed, QByteArray()); // nothing inside an exchange
    EXPECT_EQ(line1.queue.PendingItems(), 2);
    ASSERT_TRUE(WaitUntil([&] { return line2.printed == "c"; }));

    line1.queue.setReplyWanted(false);
    ASSERT_TRUE(WaitUntil([&] { return line1.printed == "aaaab"; }));
    EXPECT_EQ(line1.queue.PendingItems(), 0);
    const QString ida = QString::number(a);
    const QString idb = QString::number(b);
    EXPECT_EQ(line1.progress,
              (QStringList{ida + ":1", idb + ":1", ida + ":2", ida + ":3", ida + ":3", ida + ":4",
                           idb + ":2", idb + ":3", idb + ":4"}));
    EXPECT_EQ(line1.details.first(),
              QStringLiteral("JOB=%1\nFMT=A.FMT\nQUANTITY=2\nSENT=0\n").arg(a));
    EXPECT_TRUE(line1.details.at(4).contains("\nSENT=2\n"));
    EXPECT_TRUE(spool->list().isEmpty()); // done jobs are struck off
}

TEST_F(PrintSpoolTest, AnUnreachablePrinterKeepsItsJobsSaysSoOnceAndGetsThemWhenBack)
{
    QTcpServer printer;
    ASSERT_TRUE(printer.listen(QHostAddress::LocalHost));
    const quint16 port = printer.serverPort();
    printer.close();

    const auto spool = openSpool();
    EchoQueue line1("Line 1", spool, QStringLiteral("127.0.0.1:%1").arg(port));
    ASSERT_TRUE(
        WaitUntil([&] { return line1.queue.transport().state() == Transport::State::Closed; }));
    spool->add("Line 1", "A.FMT", "first", 1);
    spool->add("Line 1", "B.FMT", "second", 1);
    ASSERT_TRUE(WaitUntil([&] { return line1.messages.count() == 1; }));
    EXPECT_TRUE(line1.messages.at(0).at(0).toString().startsWith("Line 1: the printer can't be "
                                                                 "reached"))
        << line1.messages.at(0).at(0).toString().toStdString();
    EXPECT_EQ(line1.queue.PendingItems(), 2);

    QByteArray received;
    QObject::connect(&printer, &QTcpServer::newConnection, [&] {
        QTcpSocket* client = printer.nextPendingConnection();
        QObject::connect(client, &QTcpSocket::readyRead,
                         [&, client] { received += client->readAll(); });
    });
    ASSERT_TRUE(printer.listen(QHostAddress::LocalHost, port));
    ASSERT_TRUE(WaitUntil([&] { return received == "firstsecond"; }, 8000));
    EXPECT_EQ(line1.queue.PendingItems(), 0);
    EXPECT_EQ(line1.messages.count(), 1); // retries of the wire said nothing more
    EXPECT_EQ(line1.errors.count(), 0) << line1.errors.value(0).value(1).toString().toStdString();
}

TEST_F(PrintSpoolTest, WhatAProgramLeftIsSentByTheNextButNotWhatAnotherRunningProgramHolds)
{
    qint64 left = 0;
    {
        const auto spool = openSpool();
        LbxQueue line1({"Line 1", "printer", 900, "Line 1"}, spool); // no way to the printer
        left = spool->add("Line 1", "A.FMT", "a", 3);
        ASSERT_TRUE(spool->copySent(left)); // one copy went before the program ended
        spool->add("Line 1", "B.FMT", "b", 1);
        const qint64 others = spool->add("Line 1", "C.FMT", "c", 1);
        idle(50);
        EXPECT_EQ(line1.PendingItems(), 3);

        sqlite3* db = nullptr;
        ASSERT_EQ(sqlite3_open(QFile::encodeName(spoolPath()).constData(), &db), SQLITE_OK);
        // The first process of the machine runs as long as the machine.
        const QByteArray sql =
            "UPDATE spool_jobs SET owner = 1 WHERE id = " + QByteArray::number(others);
        EXPECT_EQ(sqlite3_exec(db, sql.constData(), nullptr, nullptr, nullptr), SQLITE_OK);
        sqlite3_close(db);
    }

    const auto spool = std::make_shared<PrintSpool>(spoolPath());
    const QList<PrintSpool::Job> kept = spool->list();
    ASSERT_EQ(kept.size(), 3);
    EXPECT_EQ(kept.at(0).id, left);
    EXPECT_EQ(kept.at(0).state(), PrintSpool::Job::State::Sending);
    EXPECT_EQ(kept.at(1).state(), PrintSpool::Job::State::Waiting);
    EXPECT_EQ(kept.at(1).format, QStringLiteral("B.FMT"));

    EchoQueue line1("Line 1", spool);
    idle(50);
    EXPECT_EQ(line1.printed, QByteArray()); // nothing is taken over before the spool is told
    spool->takeOver();
    ASSERT_TRUE(WaitUntil([&] { return line1.printed == "aab"; }));
    idle(50);
    EXPECT_EQ(line1.printed, QByteArray("aab"));
    EXPECT_EQ(spool->list().size(), 1);
    EXPECT_EQ(line1.queue.PendingItems(), 0);
}

TEST_F(PrintSpoolTest, AJobCancelledElsewhereIsNotSent)
{
    const auto spool = openSpool();
    EchoQueue line1("Line 1", spool);
    line1.queue.setReplyWanted(true);
    const qint64 id = spool->add("Line 1", "A.FMT", "a", 1);
    spool->add("Line 1", "B.FMT", "b", 1);

    PrintSpool tool(spoolPath()); // as vigilctl has it
    EXPECT_EQ(tool.list().size(), 2);
    EXPECT_FALSE(tool.cancel(id + 100));
    EXPECT_TRUE(tool.cancel(id));
    ASSERT_TRUE(WaitUntil([&] { return line1.queue.PendingItems() == 1; }, 3000));
    line1.queue.setReplyWanted(false);
    ASSERT_TRUE(WaitUntil([&] { return line1.printed == "b"; }));
    EXPECT_TRUE(tool.list().isEmpty());
}

TEST_F(PrintSpoolTest, ASpoolFileThatCantBeUsedIsLeftAloneAndJobsAreKeptInMemory)
{
    writeFile("spool.sqlite", "these are somebody's notes, not a database");
    const auto spool = openSpool();
    EXPECT_FALSE(spool->problem().isEmpty());
    EchoQueue line1("Line 1", spool);
    spool->add("Line 1", "A.FMT", "a", 1);
    spool->add("Line 1", "B.FMT", "b", 1);
    ASSERT_TRUE(WaitUntil([&] { return line1.printed == "ab"; }));
    ASSERT_EQ(line1.errors.count(), 1); // said once, not for every job
    EXPECT_EQ(line1.errors.at(0).at(0).toInt(), PrintSpool::SpoolFileError);
    EXPECT_TRUE(line1.errors.at(0).at(1).toString().contains(spoolPath()));

    QFile file(spoolPath());
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_EQ(file.readAll(), QByteArray("these are somebody's notes, not a database"));
}
} // namespace
