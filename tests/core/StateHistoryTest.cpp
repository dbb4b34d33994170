// The history of printer states as the polling program writes it, with fake time.

#include "core/PresentTime.h"
#include "core/StateHistoryRecorder.h"
#include "core/TreeFixture.h"
#include "services/StateHistoryFile.h"
#include "support/EventLoop.h"
#include "support/FakeClock.h"

#include <QCoreApplication>
#include <QFile>
#include <sqlite3.h>

namespace {
const QDateTime Start(QDate(2026, 3, 2), QTime(8, 0));

class StateHistoryTest : public TreeFixture
{
protected:
    void SetUp() override
    {
        TreeFixture::SetUp();
        EnsureApplication();
        InstallClock(m_clock);
        m_clock->setNow(Start);
        auto hall = group("GP1", "Hall", *g_oComponents);
        m_filler = printer("ID1", "Filler", *group("GP2", "Line 1", *hall));
        m_capper = printer("ID2", "Capper", *g_oComponents);
    }

    void TearDown() override
    {
        m_filler.reset();
        m_capper.reset();
        InstallClock(nullptr);
        TreeFixture::TearDown();
    }

    QString historyPath() const { return m_home.filePath("history.sqlite"); }

    // The printer reports a state, as after a reply.
    void report(clsComponent& node, ErrorState state, const QString& alert = {})
    {
        handlerOf(node).state = state;
        handlerOf(node).alert = alert;
        handlerOf(node).RaiseStatusChanged(false);
    }

    static void turnLoop() { QCoreApplication::sendPostedEvents(); }

    QList<StateChange> written(qint64 sinceMs = 0) const
    {
        StateHistoryFile file(historyPath(), StateHistoryFile::Mode::Read);
        QList<StateChange> changes;
        EXPECT_TRUE(file.read(sinceMs, changes)) << file.problem().toStdString();
        return changes;
    }

    std::shared_ptr<FakeClock> m_clock = std::make_shared<FakeClock>();
    std::shared_ptr<clsComponent> m_filler;
    std::shared_ptr<clsComponent> m_capper;
};

TEST_F(StateHistoryTest, ChangesAreWrittenOnceTheLoopTurnsWithTheStateEachPrinterCameUpIn)
{
    StateHistoryRecorder recorder(historyPath());
    report(*m_filler, StateGood);
    report(*m_capper, StateNoAnswer);
    // Gathered, not yet written: one transaction per turn of the loop.
    EXPECT_TRUE(written().isEmpty());
    turnLoop();
    ASSERT_EQ(written().size(), 2);

    m_clock->setNow(Start.addSecs(20));
    report(*m_filler, StateGood); // no change, no line
    report(*m_filler, StateFault, "Ink empty");
    report(*m_capper, StateGood);
    turnLoop();

    const QList<StateChange> changes = written();
    ASSERT_EQ(changes.size(), 4);
    EXPECT_EQ(changes[0].printer, QStringLiteral("Filler"));
    EXPECT_EQ(changes[0].printerId, QStringLiteral("ID1"));
    EXPECT_EQ(changes[0].groups, (QStringList{"Hall", "Line 1"}));
    EXPECT_FALSE(changes[0].oldState.has_value());
    EXPECT_EQ(changes[0].newState, StateGood);
    EXPECT_EQ(changes[0].atMs, Start.toMSecsSinceEpoch());
    EXPECT_TRUE(changes[1].groups.isEmpty());
    EXPECT_EQ(changes[1].newState, StateNoAnswer);

    EXPECT_EQ(changes[2].printer, QStringLiteral("Filler"));
    EXPECT_EQ(changes[2].oldState, std::optional<qint32>(StateGood));
    EXPECT_EQ(changes[2].newState, StateFault);
    EXPECT_EQ(changes[2].alert, QStringLiteral("Ink empty"));
    EXPECT_EQ(changes[2].atMs, Start.addSecs(20).toMSecsSinceEpoch());
    EXPECT_EQ(changes[3].oldState, std::optional<qint32>(StateNoAnswer));

    // A reader of a period gets each printer's last state before it first.
    const QList<StateChange> fromTen = written(Start.addSecs(10).toMSecsSinceEpoch());
    ASSERT_EQ(fromTen.size(), 4);
    EXPECT_LT(fromTen[0].atMs, Start.addSecs(10).toMSecsSinceEpoch());
    EXPECT_LT(fromTen[1].atMs, Start.addSecs(10).toMSecsSinceEpoch());

    // What is gathered when the program ends is written too.
    m_clock->setNow(Start.addSecs(40));
    report(*m_capper, StateWarning);
    recorder.flush();
    EXPECT_EQ(written().size(), 5);
    EXPECT_TRUE(m_dialogs->boxes().isEmpty());
}

TEST_F(StateHistoryTest, ChangesOlderThanTheDaysKeptGoAtStartAndOnceADay)
{
    ASSERT_EQ(WriteValue(HKEY_LOCAL_MACHINE, "Software\\Orvane\\Vigil\\Options", "HistoryDays",
                         REG_DWORD, 10),
              0);
    {
        StateHistoryFile file(historyPath(), StateHistoryFile::Mode::Write);
        ASSERT_TRUE(file.append(
            {{Start.addDays(-11).toMSecsSinceEpoch(), "ID1", "Filler", {}, {}, StateGood, {}},
             {Start.addSecs(-9 * 86400 - 12 * 3600).toMSecsSinceEpoch(),
              "ID2",
              "Capper",
              {},
              {},
              StateGood,
              {}}}));
    }
    StateHistoryRecorder recorder(historyPath());
    ASSERT_EQ(written().size(), 1);
    EXPECT_EQ(written()[0].printer, QStringLiteral("Capper"));

    // Within the day nothing more goes, though the capper's line is over 10 days old by now.
    m_clock->setNow(Start.addSecs(23 * 3600));
    report(*m_filler, StateGood);
    turnLoop();
    EXPECT_EQ(written().size(), 2);
    // A day on, the next write prunes.
    m_clock->setNow(Start.addDays(1));
    report(*m_filler, StateFault);
    turnLoop();
    const QList<StateChange> kept = written();
    ASSERT_EQ(kept.size(), 2);
    EXPECT_EQ(kept[0].printer, QStringLiteral("Filler"));
}

TEST_F(StateHistoryTest, AHistoryThatCantBeUsedIsNamedOnceAndPollingGoesOn)
{
    // Damaged: not a database at all.
    {
        QFile file(historyPath());
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(QByteArray(8192, 'x'));
    }
    {
        StateHistoryRecorder recorder(historyPath());
        EXPECT_FALSE(recorder.isRecording());
        ASSERT_EQ(m_dialogs->boxes().size(), 1);
        EXPECT_TRUE(m_dialogs->texts()[0].contains(historyPath()));
        report(*m_filler, StateFault);
        turnLoop();
        EXPECT_EQ(m_dialogs->boxes().size(), 1);
        // The tree took the state all the same.
        EXPECT_EQ(m_filler->GetErrorState(), StateFault);
        StateHistoryFile reader(historyPath(), StateHistoryFile::Mode::Read);
        EXPECT_FALSE(reader.isOpen());
    }

    // Locked by another program while the recorder runs.
    QFile::remove(historyPath());
    m_dialogs->clear();
    StateHistoryRecorder recorder(historyPath());
    ASSERT_TRUE(recorder.isRecording());
    sqlite3* other = nullptr;
    ASSERT_EQ(sqlite3_open(QFile::encodeName(historyPath()).constData(), &other), SQLITE_OK);
    ASSERT_EQ(sqlite3_exec(other, "BEGIN EXCLUSIVE", nullptr, nullptr, nullptr), SQLITE_OK);
    report(*m_filler, StateGood);
    turnLoop();
    EXPECT_FALSE(recorder.isRecording());
    ASSERT_EQ(m_dialogs->boxes().size(), 1);
    EXPECT_TRUE(m_dialogs->texts()[0].contains("locked")) << m_dialogs->texts()[0].toStdString();
    report(*m_filler, StateFault);
    turnLoop();
    EXPECT_EQ(m_dialogs->boxes().size(), 1);
    sqlite3_exec(other, "ROLLBACK", nullptr, nullptr, nullptr);
    sqlite3_close(other);
}
TEST_F(StateHistoryTest, ABatchOfManyChangesIsWrittenWholeAndInOrder)
{
    QList<StateChange> batch;
    for (int n = 0; n < 123; ++n)
        batch.append({Start.toMSecsSinceEpoch(),
                      QStringLiteral("ID%1").arg(n % 7),
                      QStringLiteral("P%1").arg(n % 7),
                      {"Hall"},
                      n % 2,
                      (n + 1) % 2,
                      QStringLiteral("alert %1").arg(n)});
    StateHistoryFile file(historyPath(), StateHistoryFile::Mode::Write);
    ASSERT_TRUE(file.append(batch)) << file.problem().toStdString();
    const QList<StateChange> changes = written();
    ASSERT_EQ(changes.size(), batch.size());
    for (qsizetype n = 0; n < batch.size(); ++n) {
        EXPECT_EQ(changes[n].alert, batch[n].alert);
        EXPECT_EQ(changes[n].printerId, batch[n].printerId);
        EXPECT_EQ(changes[n].oldState, batch[n].oldState);
    }
}
} // namespace
