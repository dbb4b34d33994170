#include "platform/host/DesktopNotices.h"

#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QVariantMap>

namespace {
const QString Service = QStringLiteral("org.freedesktop.Notifications");
const QString Path = QStringLiteral("/org/freedesktop/Notifications");
const QString Interface = QStringLiteral("org.freedesktop.Notifications");
const QString DefaultAction = QStringLiteral("default");
const QString AppName = QStringLiteral("Korvex Vigil");
// A service that takes longer than this is taken for none.
constexpr int ReplyTimeoutMs = 5000;
// The notice stays until the operator closes it.
constexpr qint32 NeverExpires = 0;
constexpr uchar CriticalUrgency = 2;
} // namespace

DesktopNotices::DesktopNotices(const QDBusConnection& bus, INoticeDelivery& fallback,
                               const QString& iconPath, QObject* parent)
    : QObject(parent)
    , m_bus(bus)
    , m_fallback(fallback)
    , m_iconPath(iconPath)
{
    if (!m_bus.isConnected())
        return;
    // From any sender: naming the service would ask the bus for its owner, and wait.
    m_bus.connect(QString(), Path, Interface, QStringLiteral("ActionInvoked"), this,
                  SLOT(actionInvoked(uint, QString)));
    m_bus.connect(QString(), Path, Interface, QStringLiteral("NotificationClosed"), this,
                  SLOT(notificationClosed(uint, uint)));
}

void DesktopNotices::deliver(const TroubleNotice& notice)
{
    if (!m_bus.isConnected()) {
        m_fallback.deliver(notice);
        return;
    }
    QVariantMap hints{{QStringLiteral("urgency"), QVariant::fromValue(CriticalUrgency)}};
    if (!notice.soundFile.isEmpty())
        hints.insert(QStringLiteral("sound-file"), notice.soundFile);
    QDBusMessage call =
        QDBusMessage::createMethodCall(Service, Path, Interface, QStringLiteral("Notify"));
    call << AppName << m_ids.value(notice.printerId, 0u) << m_iconPath << notice.summary()
         << notice.body() << QStringList{DefaultAction, tr("Show the printer")} << hints
         << NeverExpires;
    auto* watcher = new QDBusPendingCallWatcher(m_bus.asyncCall(call, ReplyTimeoutMs), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this,
            [this, notice](QDBusPendingCallWatcher* finished) {
                finished->deleteLater();
                const QDBusPendingReply<uint> reply = *finished;
                if (reply.isError())
                    m_fallback.deliver(notice);
                else
                    shown(notice, reply.value());
            });
}

void DesktopNotices::shown(const TroubleNotice& notice, uint id)
{
    m_printers.remove(m_ids.value(notice.printerId));
    m_printers.insert(id, notice.printerId);
    m_ids.insert(notice.printerId, id);
}

void DesktopNotices::actionInvoked(uint id, const QString& action)
{
    const auto printer = m_printers.constFind(id);
    if (action == DefaultAction && printer != m_printers.constEnd())
        emit clicked(*printer);
}

void DesktopNotices::notificationClosed(uint id, uint)
{
    m_ids.remove(m_printers.take(id));
}
