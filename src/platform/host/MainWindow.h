#pragma once

#include "core/StateHistoryRecorder.h"
#include "platform/host/ControlCommands.h"
#include "platform/host/HostNotices.h"
#include "platform/host/SiteGlance.h"
#include "platform/qt/ControlWidget.h"

#include <QMainWindow>
#include <QTimer>
#include <memory>

struct HostCommandRow;
class HistoryView;

// The host shell: a main window holding the control, with a toolbar and menus built from the
// control's own tables. Each pick calls the command by name, and every action follows its
// command's OnUpdate operation on each change of selection and once a second.
class MainWindow : public QMainWindow
{
    Q_OBJECT

public:
    // Notices go to the desktop's notification service on that bus.
    MainWindow(const QString& title, const QDBusConnection& bus, QWidget* parent = nullptr);

    ControlWidget& controlWidget() { return m_control; }
    SiteGlance& glance() { return m_glance; }
    HostNotices& notices() { return m_notices; }
    // Starts the history and the control, builds the toolbar and menus from its tables and
    // brings back the window's place of the last run.
    void start();
    // Asks every command's OnUpdate operation again.
    void updateCommands();

    // The actions the tables gave, each with its command's name.
    const QList<QPair<QAction*, QString>>& commandActions() const { return m_actions; }

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    void buildToolbar(const QStringList& rows);
    void buildMenus(const QStringList& rows);
    QMenu* menuForMark(const HostCommandRow& mark);
    QAction* makeAction(const HostCommandRow& row);
    void addAcknowledge(QMenu* monitoring);
    // The host's View menu, after the control's menus and before the help.
    void addViewMenu(QMenu* help);
    // Opens the history view on the selected printer or group.
    void showHistory();
    // The open history view follows the tree's selection.
    void followSelectionInHistory();
    // A notice was clicked: its printer is selected and the window comes to the front.
    void showPrinter(const QString& printerId);
    void restorePlace();
    void savePlace();

    ControlWidget m_control;
    ControlCommands m_commands;
    SiteGlance m_glance;
    HostNotices m_notices;
    QTimer m_updateTimer;
    QList<QPair<QAction*, QString>> m_actions;
    QStringList m_shortcutsTaken;
    std::unique_ptr<StateHistoryRecorder> m_history;
    HistoryView* m_historyView = nullptr;
};
