// Which printers in trouble are worth a notice, and when: at the time-out walks, with a
// debounce, an acknowledgement and the options kept in the store.

#include "core/TroubleNotices.h"

#include "core/PresentTime.h"
#include "core/TreeFixture.h"
#include "core/TroubleWatch.h"
#include "services/ApplicationOptions.h"
#include "services/NoticeOptions.h"
#include "support/FakeClock.h"

#include <QCoreApplication>

namespace {
const QDateTime Start(QDate(2026, 3, 2), QTime(6, 0));

class TroubleNoticesTest : public ::testing::Test
{
protected:
    // One time-out walk, `seconds` after the start, that sees the printers in these states.
    QStringList walk(int seconds, const QList<std::pair<QString, ErrorState>>& states)
    {
        const QDateTime now = Start.addSecs(seconds);
        for (const auto& [id, state] : states)
            m_notices.seen(id, state, now);
        return m_notices.walkEnded(now);
    }

    TroubleNotices m_notices;
    const QString A = QStringLiteral("IDA");
    const QString B = QStringLiteral("IDB");
};
} // namespace

TEST_F(TroubleNoticesTest, ATroubleIsToldOnceWhenAnotherWalkStillSeesIt)
{
    EXPECT_TRUE(walk(0, {{A, StateFault}, {B, StateGood}}).isEmpty());
    // B's glitch of one reply is over by the next walk: nobody is called for it.
    EXPECT_EQ(walk(20, {{A, StateFault}, {B, StateFault}}), QStringList{A});
    EXPECT_TRUE(walk(40, {{A, StateFault}, {B, StateGood}}).isEmpty());
    EXPECT_TRUE(walk(60, {{A, StateFault}, {B, StateGood}}).isEmpty());

    // Every kind of trouble, and nothing else, is worth a notice.
    for (const ErrorState state :
         {StateGood, StateWarning, StateDisabled, StateNoAnswer, StatePortBusy}) {
        TroubleNotices notices;
        notices.seen(A, state, Start);
        notices.walkEnded(Start);
        notices.seen(A, state, Start.addSecs(20));
        EXPECT_EQ(notices.walkEnded(Start.addSecs(20)).size(),
                  TroubleNotices::isTrouble(state) ? 1 : 0)
            << state;
    }
}

TEST_F(TroubleNoticesTest, ANewStateStartsAfresh)
{
    walk(0, {{A, StateFault}});
    EXPECT_EQ(walk(20, {{A, StateFault}}), QStringList{A});
    // Another trouble is told again, after its own debounce.
    EXPECT_TRUE(walk(40, {{A, StateNoAnswer}}).isEmpty());
    EXPECT_EQ(walk(60, {{A, StateNoAnswer}}), QStringList{A});
    // Well again, then the same trouble as before: told again.
    walk(80, {{A, StateGood}});
    walk(100, {{A, StateNoAnswer}});
    EXPECT_EQ(walk(120, {{A, StateNoAnswer}}), QStringList{A});
    // A printer a walk no longer sees is forgotten: back, it is debounced anew.
    walk(140, {});
    EXPECT_TRUE(walk(160, {{A, StateNoAnswer}}).isEmpty());
    EXPECT_EQ(walk(180, {{A, StateNoAnswer}}), QStringList{A});
}

TEST_F(TroubleNoticesTest, AnAcknowledgedPrinterIsSilentUntilItsStateChanges)
{
    EXPECT_FALSE(m_notices.acknowledge(A, StateGood, Start));
    EXPECT_FALSE(m_notices.acknowledged(A));

    walk(0, {{A, StateFault}, {B, StateFault}});
    EXPECT_TRUE(m_notices.acknowledge(A, StateFault, Start.addSecs(5)));
    EXPECT_TRUE(m_notices.acknowledged(A));
    EXPECT_EQ(walk(20, {{A, StateFault}, {B, StateFault}}), QStringList{B});
    EXPECT_TRUE(walk(40, {{A, StateFault}, {B, StateFault}}).isEmpty());

    walk(60, {{A, StateGood}, {B, StateFault}});
    EXPECT_FALSE(m_notices.acknowledged(A));
    walk(80, {{A, StateFault}, {B, StateFault}});
    EXPECT_EQ(walk(100, {{A, StateFault}, {B, StateFault}}), QStringList{A});

    // Acknowledged in a state that came after the last walk: the next walk's state is that one.
    walk(120, {{A, StateGood}});
    EXPECT_TRUE(m_notices.acknowledge(A, StatePortBusy, Start.addSecs(130)));
    walk(140, {{A, StatePortBusy}});
    EXPECT_TRUE(walk(160, {{A, StatePortBusy}}).isEmpty());
}

TEST_F(TroubleNoticesTest, TheSettingsAreRespected)
{
    m_notices.setSettings({false, 0});
    walk(0, {{A, StateFault}});
    EXPECT_TRUE(walk(20, {{A, StateFault}}).isEmpty());
    // Switched on, a trouble that lasts is told at the next walk.
    m_notices.setSettings({true, 0});
    EXPECT_EQ(walk(40, {{A, StateFault}}), QStringList{A});

    // A delay counts from the walk that first saw the trouble.
    m_notices.setSettings({true, 60});
    walk(100, {{B, StateNoAnswer}});
    EXPECT_TRUE(walk(120, {{B, StateNoAnswer}}).isEmpty());
    EXPECT_TRUE(walk(159, {{B, StateNoAnswer}}).isEmpty());
    EXPECT_EQ(walk(160, {{B, StateNoAnswer}}), QStringList{B});
}

namespace {
class RecordingDelivery : public INoticeDelivery
{
public:
    void deliver(const TroubleNotice& notice) override { delivered.append(notice); }
    QList<TroubleNotice> delivered;
};

class TroubleWatchTest : public TreeFixture
{
protected:
    void SetUp() override
    {
        TreeFixture::SetUp();
        InstallClock(m_clock);
        m_hall = group(QStringLiteral("GPHall"), QStringLiteral("Hall"), *g_oComponents);
        m_a = printer(QStringLiteral("IDA"), QStringLiteral("Coder A"), *m_hall);
    }
    void TearDown() override
    {
        m_a.reset();
        m_hall.reset();
        InstallClock(nullptr);
        TreeFixture::TearDown();
    }

    void walks(int count)
    {
        for (int i = 0; i < count; ++i) {
            m_clock->setNow(m_clock->now().addSecs(20));
            m_watch.timeoutsChecked();
        }
    }

    std::shared_ptr<FakeClock> m_clock = std::make_shared<FakeClock>(Start);
    std::shared_ptr<clsComponents> m_hall;
    std::shared_ptr<clsComponent> m_a;
    RecordingDelivery m_delivery;
    TroubleWatch m_watch{[] { return g_oComponents.get(); }, m_delivery};
};
} // namespace

TEST_F(TroubleWatchTest, ALastingTroubleIsDeliveredWithPrinterGroupAlertAndSound)
{
    NoticeOptions options;
    options.soundFile = QStringLiteral("/usr/share/sounds/alarm.wav");
    options.save();
    handlerOf(*m_a).state = StateFault;
    handlerOf(*m_a).alert = QStringLiteral("Ink out");
    walks(1);
    EXPECT_TRUE(m_delivery.delivered.isEmpty());
    walks(2);
    ASSERT_EQ(m_delivery.delivered.size(), 1);
    const TroubleNotice& notice = m_delivery.delivered.front();
    EXPECT_EQ(notice.printerId, QStringLiteral("IDA"));
    EXPECT_EQ(notice.summary(), QStringLiteral("Coder A: fault"));
    EXPECT_EQ(notice.body(), QStringLiteral("Hall\nInk out"));
    EXPECT_EQ(notice.soundFile, options.soundFile);
}

TEST_F(TroubleWatchTest, TheKeptOptionsAndTheOperatorsAcknowledgementSilenceIt)
{
    NoticeOptions off;
    off.enabled = false;
    off.save();
    handlerOf(*m_a).state = StateNoAnswer;
    walks(3);
    EXPECT_TRUE(m_delivery.delivered.isEmpty());

    NoticeOptions{}.save();
    EXPECT_FALSE(m_watch.canAcknowledge(QStringLiteral("GPHall")));
    EXPECT_FALSE(m_watch.acknowledge(QStringLiteral("IDNone")));
    EXPECT_TRUE(m_watch.canAcknowledge(QStringLiteral("IDA")));
    EXPECT_TRUE(m_watch.acknowledge(QStringLiteral("IDA")));
    EXPECT_FALSE(m_watch.canAcknowledge(QStringLiteral("IDA")));
    walks(3);
    EXPECT_TRUE(m_delivery.delivered.isEmpty());

    // A disabled printer is no trouble; enabled and still silent, it is told.
    m_a->setDisabled(true);
    walks(1);
    m_a->setDisabled(false);
    walks(2);
    EXPECT_EQ(m_delivery.delivered.size(), 1);
}

namespace {
class NoticeOptionsTest : public ServicesFixture
{
};
} // namespace

TEST_F(NoticeOptionsTest, KeptOptionsComeBackAndBadOnesReadAsTheDefaults)
{
    const NoticeOptions defaults = NoticeOptions::load();
    EXPECT_TRUE(defaults.enabled);
    EXPECT_EQ(defaults.delaySeconds, 0);
    EXPECT_TRUE(defaults.soundFile.isEmpty());

    NoticeOptions kept{false, 90, QStringLiteral("/tmp/bell.wav")};
    kept.save();
    const NoticeOptions back = NoticeOptions::load();
    EXPECT_EQ(back.enabled, false);
    EXPECT_EQ(back.delaySeconds, 90);
    EXPECT_EQ(back.soundFile, kept.soundFile);

    QVariant negative = -5;
    TransferValueEx(HKEY_LOCAL_MACHINE, OptionsKey, TransferWrite, REG_DWORD,
                    QStringLiteral("NotifyDelaySeconds"), negative, negative, false);
    EXPECT_EQ(NoticeOptions::load().delaySeconds, 0);
}
