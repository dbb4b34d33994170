#pragma once

#include "core/PollingNote.h"
#include "core/SiteTally.h"
#include "platform/host/GlanceBar.h"

#include <QObject>

class ControlWidget;
class QMainWindow;

// The site at a glance in the host window: the status bar counts the printers by state and
// says since when polling is off, the title leads with the worst trouble, and a count's button
// selects the next printer in its state.
class SiteGlance : public QObject
{
    Q_OBJECT

public:
    // `name` is the window's title without trouble.
    SiteGlance(QMainWindow& window, ControlWidget& control, const QString& name);

    SiteTally& tally() { return m_tally; }
    GlanceBar& bar() { return *m_bar; }
    // Asks the control whether polling is off; the host calls this after each command.
    void followPolling();
    // Selects the next printer in that state, its group opened, and shows its page.
    void selectNext(ErrorState state);
    // Selects that printer, its group opened, and shows its page.
    void selectPrinter(const QString& printerId);

private:
    void showCounts();

    QMainWindow& m_window;
    ControlWidget& m_control;
    QString m_name;
    SiteTally m_tally;
    PollingNote m_polling;
    GlanceBar* m_bar;
};
