#pragma once

#include "core/INoticeDelivery.h"

#include <QObject>
#include <QSystemTrayIcon>

// Notices as the tray icon's message, where the desktop has a tray; dropped where it has none.
// A click on the message is told as clicked(), for the printer of the last message.
class TrayNotices : public QObject, public INoticeDelivery
{
    Q_OBJECT

public:
    explicit TrayNotices(const QIcon& icon, QObject* parent = nullptr);

    void deliver(const TroubleNotice& notice) override;

signals:
    void clicked(const QString& printerId);

private:
    QSystemTrayIcon m_tray;
    QString m_lastPrinter;
};
