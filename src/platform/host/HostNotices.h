#pragma once

#include "core/TroubleWatch.h"
#include "platform/host/DesktopNotices.h"
#include "platform/host/TrayNotices.h"

#include <QAction>
#include <QObject>

// The trouble notices of the host window: the desktop's notices, else the tray's messages, at
// each time-out walk; and the Acknowledge action, which silences the selected printer until
// its state changes.
class HostNotices : public QObject
{
    Q_OBJECT

public:
    // `selected` gives the key of the tree's selected item.
    HostNotices(const QDBusConnection& bus, std::function<QString()> selected,
                QObject* parent = nullptr);

    TroubleWatch& watch() { return m_watch; }
    QAction& acknowledgeAction() { return m_acknowledge; }
    // Enables Acknowledge for a selected printer in trouble that isn't acknowledged yet.
    void updateAcknowledge();

signals:
    // A notice was clicked: the window shows that printer.
    void printerAsked(const QString& printerId);

private:
    std::function<QString()> m_selected;
    TrayNotices m_tray;
    DesktopNotices m_desktop;
    TroubleWatch m_watch;
    QAction m_acknowledge;
};
