#pragma once

#include "core/INoticeDelivery.h"

#include <QDBusConnection>
#include <QHash>
#include <QObject>

// Notices through the desktop's notification service over D-Bus. Every call is asynchronous;
// a notice the service doesn't take (no session bus, no service, an error or no reply in
// time) goes to the fallback instead. A click on a notice is told as clicked().
class DesktopNotices : public QObject, public INoticeDelivery
{
    Q_OBJECT

public:
    // `iconPath`: the picture the notices show; none for the service's own.
    DesktopNotices(const QDBusConnection& bus, INoticeDelivery& fallback,
                   const QString& iconPath = QString(), QObject* parent = nullptr);

    void deliver(const TroubleNotice& notice) override;

signals:
    void clicked(const QString& printerId);

private slots:
    void actionInvoked(uint id, const QString& action);
    void notificationClosed(uint id, uint reason);

private:
    void shown(const TroubleNotice& notice, uint id);

    QDBusConnection m_bus;
    INoticeDelivery& m_fallback;
    QString m_iconPath;
    // The notices on show: the service's id and the printer's, both ways, so that a printer's
    // new notice takes the place of its old one.
    QHash<uint, QString> m_printers;
    QHash<QString, uint> m_ids;
};
