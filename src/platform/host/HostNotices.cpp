#include "platform/host/HostNotices.h"

#include "core/Globals.h"
#include "core/IconFiles.h"
#include "core/clsComponents.h"

HostNotices::HostNotices(const QDBusConnection& bus, std::function<QString()> selected,
                         QObject* parent)
    : QObject(parent)
    , m_selected(std::move(selected))
    , m_tray(QIcon(IconFile(QStringLiteral("Vigil.png"))))
    , m_desktop(bus, m_tray, IconFile(QStringLiteral("Vigil.png")))
    , m_watch([] { return g_oComponents.get(); }, m_desktop)
    , m_acknowledge(tr("&Acknowledge"))
{
    m_acknowledge.setStatusTip(tr("No more notices for the selected printer until its state "
                                  "changes"));
    connect(&m_acknowledge, &QAction::triggered, this, [this] {
        m_watch.acknowledge(m_selected());
        updateAcknowledge();
    });
    connect(&m_tray, &TrayNotices::clicked, this, &HostNotices::printerAsked);
    connect(&m_desktop, &DesktopNotices::clicked, this, &HostNotices::printerAsked);
}

void HostNotices::updateAcknowledge()
{
    m_acknowledge.setEnabled(m_watch.canAcknowledge(m_selected()));
}
