#include "platform/host/TrayNotices.h"

TrayNotices::TrayNotices(const QIcon& icon, QObject* parent)
    : QObject(parent)
    , m_tray(icon)
{
    m_tray.setToolTip(QStringLiteral("Korvex Vigil"));
    connect(&m_tray, &QSystemTrayIcon::messageClicked, this,
            [this] { emit clicked(m_lastPrinter); });
}

void TrayNotices::deliver(const TroubleNotice& notice)
{
    if (!QSystemTrayIcon::isSystemTrayAvailable())
        return;
    // The icon shows from the first notice on, so that there is something to click.
    m_tray.show();
    m_lastPrinter = notice.printerId;
    m_tray.showMessage(notice.summary(), notice.body(), QSystemTrayIcon::Warning);
}
