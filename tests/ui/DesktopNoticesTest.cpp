// Notices on the desktop: through the notification service on the session bus, else through
// the fallback, and a click on one names its printer.

#include "platform/host/DesktopNotices.h"

#include "support/EventLoop.h"
#include "ui/WidgetApplication.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QProcess>
#include <QSignalSpy>
#include <QStandardPaths>
#include <gtest/gtest.h>

namespace {
class RecordingDelivery : public INoticeDelivery
{
public:
    void deliver(const TroubleNotice& notice) override { delivered.append(notice); }
    QList<TroubleNotice> delivered;
};

// The desktop's notification service as a test plays it: it takes every notice and answers
// with the next id.
class FakeNotificationService : public QObject
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.Notifications")

public:
    struct Call
    {
        uint replaces;
        QString summary;
        QString body;
        QStringList actions;
        QVariantMap hints;
    };
    QList<Call> calls;

public slots:
    uint Notify(const QString&, uint replaces, const QString&, const QString& summary,
                const QString& body, const QStringList& actions, const QVariantMap& hints, int)
    {
        calls.append({replaces, summary, body, actions, hints});
        return uint(calls.size());
    }
};

// A session bus of the test's own, without any service on it.
class PrivateBus
{
public:
    PrivateBus()
    {
        const QString daemon = QStandardPaths::findExecutable(QStringLiteral("dbus-daemon"));
        if (daemon.isEmpty())
            return;
        m_daemon.start(daemon, {QStringLiteral("--session"), QStringLiteral("--nofork"),
                                QStringLiteral("--print-address")});
        if (WaitUntil([this] { return m_daemon.canReadLine(); }))
            m_address = QString::fromUtf8(m_daemon.readLine()).trimmed();
    }
    ~PrivateBus()
    {
        for (const QString& name : m_names)
            QDBusConnection::disconnectFromBus(name);
        m_daemon.kill();
        m_daemon.waitForFinished();
    }
    bool up() const { return !m_address.isEmpty(); }
    QDBusConnection connect(const QString& name)
    {
        m_names.append(name);
        return QDBusConnection::connectToBus(m_address, name);
    }

private:
    QProcess m_daemon;
    QString m_address;
    QStringList m_names;
};

const TroubleNotice Notice{QStringLiteral("IDA"),     QStringLiteral("Coder A"),
                           QStringLiteral("Line 1"),  StateFault,
                           QStringLiteral("Ink out"), QStringLiteral("/tmp/bell.wav")};

class DesktopNoticesTest : public ::testing::Test
{
protected:
    static void SetUpTestSuite() { EnsureWidgetApplication(); }

    RecordingDelivery m_fallback;
};
} // namespace

TEST_F(DesktopNoticesTest, WithoutABusOrAServiceTheNoticeGoesToTheFallback)
{
    DesktopNotices none(QDBusConnection(QStringLiteral("no bus")), m_fallback);
    none.deliver(Notice);
    ASSERT_EQ(m_fallback.delivered.size(), 1);
    EXPECT_EQ(m_fallback.delivered.front().summary(), Notice.summary());

    PrivateBus bus;
    if (!bus.up())
        GTEST_SKIP() << "no dbus-daemon to run a bus of the test's own";
    DesktopNotices noService(bus.connect(QStringLiteral("client")), m_fallback);
    noService.deliver(Notice);
    // The bus's answer comes later, never while the notice is being handed over.
    EXPECT_EQ(m_fallback.delivered.size(), 1);
    EXPECT_TRUE(WaitUntil([this] { return m_fallback.delivered.size() == 2; }));
}

TEST_F(DesktopNoticesTest, TheServiceTakesTheNoticeAndAClickNamesItsPrinter)
{
    PrivateBus bus;
    if (!bus.up())
        GTEST_SKIP() << "no dbus-daemon to run a bus of the test's own";
    QDBusConnection serviceSide = bus.connect(QStringLiteral("service"));
    FakeNotificationService service;
    ASSERT_TRUE(serviceSide.registerObject(QStringLiteral("/org/freedesktop/Notifications"),
                                           &service, QDBusConnection::ExportAllSlots));
    ASSERT_TRUE(serviceSide.registerService(QStringLiteral("org.freedesktop.Notifications")));

    DesktopNotices notices(bus.connect(QStringLiteral("client")), m_fallback);
    QSignalSpy clicked(&notices, &DesktopNotices::clicked);
    notices.deliver(Notice);
    ASSERT_TRUE(WaitUntil([&] { return service.calls.size() == 1; }));
    const FakeNotificationService::Call& call = service.calls.front();
    EXPECT_EQ(call.replaces, 0u);
    EXPECT_EQ(call.summary, QStringLiteral("Coder A: fault"));
    EXPECT_EQ(call.body, QStringLiteral("Line 1\nInk out"));
    EXPECT_EQ(call.actions.value(0), QStringLiteral("default"));
    EXPECT_EQ(call.hints.value(QStringLiteral("sound-file")).toString(), Notice.soundFile);

    // The printer's next notice takes the place of the one on show.
    const auto replied = [&] {
        return notices.findChildren<QObject*>().isEmpty();
    };
    ASSERT_TRUE(WaitUntil(replied));
    notices.deliver(Notice);
    ASSERT_TRUE(WaitUntil([&] { return service.calls.size() == 2; }));
    EXPECT_EQ(service.calls.back().replaces, 1u);
    ASSERT_TRUE(WaitUntil(replied));

    const auto invoke = [&](uint id, const QString& action) {
        QDBusMessage signal = QDBusMessage::createSignal(
            QStringLiteral("/org/freedesktop/Notifications"),
            QStringLiteral("org.freedesktop.Notifications"), QStringLiteral("ActionInvoked"));
        signal << id << action;
        serviceSide.send(signal);
    };
    invoke(99, QStringLiteral("default")); // someone else's notice
    invoke(2, QStringLiteral("default"));
    ASSERT_TRUE(WaitUntil([&] { return clicked.size() == 1; }));
    EXPECT_EQ(clicked.front().front().toString(), QStringLiteral("IDA"));
    EXPECT_TRUE(m_fallback.delivered.isEmpty());
}

#include "DesktopNoticesTest.moc"
