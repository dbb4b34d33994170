#include "platform/host/MainWindow.h"

#include "platform/host/DemoSite.h"
#include "platform/host/HostCommandRow.h"
#include "platform/qt/HistoryView.h"
#include "services/SettingsAccess.h"
#include "services/SettingsStore.h"
#include "services/StateHistoryFile.h"

#include <QApplication>
#include <QCloseEvent>
#include <QDir>
#include <QFileInfo>
#include <QMenuBar>
#include <QToolBar>

namespace {
const QString PlaceKey = DefaultRootKey + QStringLiteral("\\Host");
const QString PlaceValue = QStringLiteral("Geometry");
constexpr int UpdatePeriodMs = 1000;

// The demo keeps its history apart from the site's, as it keeps its store.
QString historyPath()
{
    const QFileInfo store(SettingsStore::process().filePath());
    if (store.fileName() == DemoSite::FileName)
        return store.dir().filePath(QStringLiteral("demo-history.sqlite"));
    return StateHistoryFile::pathBeside(store.filePath());
}

// The control's monitoring menu, where the host puts Acknowledge.
constexpr int MonitoringMark = -4;
} // namespace

MainWindow::MainWindow(const QString& title, const QDBusConnection& bus, QWidget* parent)
    : QMainWindow(parent)
    , m_commands(m_control.control())
    , m_glance(*this, m_control, title)
    , m_notices(bus, [this] { return m_control.treeView().selectedKey(); })
{
    setWindowTitle(title);
    setCentralWidget(&m_control);
    resize(1100, 700);
    m_updateTimer.setInterval(UpdatePeriodMs);
    connect(&m_updateTimer, &QTimer::timeout, this, &MainWindow::updateCommands);
    // After the control has shown the new selection's page.
    connect(&m_control.treeView().widget(), &QTreeWidget::currentItemChanged, this,
            &MainWindow::updateCommands);
    // A count selects through the control, which keeps the tree quiet: the commands follow here.
    connect(&m_glance.bar(), &GlanceBar::nextAsked, this, &MainWindow::updateCommands);
    connect(&m_notices, &HostNotices::printerAsked, this, &MainWindow::showPrinter);
    connect(&m_control.treeView().widget(), &QTreeWidget::currentItemChanged, this,
            &MainWindow::followSelectionInHistory);
}

void MainWindow::start()
{
    restorePlace();
    // Before the control, whose start-up polls for the first time.
    m_history = std::make_unique<StateHistoryRecorder>(historyPath());
    m_control.initialise();
    // The whole site at a glance: every group open.
    m_control.treeView().widget().expandAll();
    buildToolbar(m_control.control().GetToolbarConfiguration());
    buildMenus(m_control.control().GetMenuConfiguration());
    PollScheduler& scheduler = m_control.control().scheduler();
    scheduler.onTimeoutsChecked([this, &scheduler] {
        // While polling is off the states stand still: nothing new to tell.
        if (scheduler.pollingDisabled())
            return;
        m_notices.watch().timeoutsChecked();
        m_notices.updateAcknowledge();
    });
    updateCommands();
    m_updateTimer.start();
}

QAction* MainWindow::makeAction(const HostCommandRow& row)
{
    auto* action = new QAction(QIcon(row.iconPath), row.caption, this);
    action->setToolTip(row.tip);
    action->setStatusTip(row.status);
    // A letter is a shortcut with Ctrl; where two commands want the same one, the first has it.
    if (!row.key.isEmpty() && !m_shortcutsTaken.contains(row.key, Qt::CaseInsensitive)) {
        action->setShortcut(QKeySequence(QStringLiteral("Ctrl+") + row.key));
        m_shortcutsTaken.append(row.key);
    }
    const QString command = row.command;
    connect(action, &QAction::triggered, this, [this, command] {
        m_commands.run(command);
        updateCommands();
    });
    m_actions.append({action, command});
    return action;
}

// Rows of one number belong together; a change of number starts a new group of buttons.
void MainWindow::buildToolbar(const QStringList& rows)
{
    QToolBar* toolbar = addToolBar(tr("Commands"));
    toolbar->setObjectName(QStringLiteral("commands"));
    toolbar->setIconSize(QSize(24, 24));
    std::optional<int> lastNumber;
    for (const QString& text : rows) {
        const std::optional<HostCommandRow> row = HostCommandRow::fromToolbarRow(text);
        if (!row || !m_commands.has(row->command))
            continue;
        if (lastNumber && *lastNumber != row->number)
            toolbar->addSeparator();
        lastNumber = row->number;
        toolbar->addAction(makeAction(*row));
    }
}

void MainWindow::buildMenus(const QStringList& rows)
{
    QMenu* menu = nullptr;
    QMenu* first = nullptr;
    QMenu* monitoring = nullptr;
    QMenu* last = nullptr;
    for (const QString& text : rows) {
        const std::optional<HostCommandRow> row = HostCommandRow::fromMenuRow(text);
        if (!row)
            continue;
        if (row->isMark()) {
            menu = menuForMark(*row);
            first = first ? first : menu;
            monitoring = row->mark == MonitoringMark ? menu : monitoring;
            last = menu;
            continue;
        }
        if (menu && m_commands.has(row->command))
            menu->addAction(makeAction(*row));
    }
    addAcknowledge(monitoring);
    addViewMenu(last && last != first && last->title() == tr("&Help") ? last : nullptr);
    // The host's own: leaving the program, at the end of the first menu.
    if (first) {
        first->addSeparator();
        QAction* quit = first->addAction(tr("E&xit"), this, &QWidget::close);
        quit->setShortcut(QKeySequence::Quit);
    }
}

// Without the control's monitoring menu, Acknowledge has one of the host's own.
void MainWindow::addAcknowledge(QMenu* monitoring)
{
    if (!monitoring)
        monitoring = menuBar()->addMenu(tr("&Monitoring"));
    monitoring->addSeparator();
    monitoring->addAction(&m_notices.acknowledgeAction());
}

void MainWindow::addViewMenu(QMenu* help)
{
    auto* view = new QMenu(tr("&View"), menuBar());
    menuBar()->insertMenu(help ? help->menuAction() : nullptr, view);
    QAction* history = view->addAction(tr("&History..."), this, &MainWindow::showHistory);
    history->setStatusTip(
        tr("The states of the selected printer or group over the last day or week"));
}

void MainWindow::showHistory()
{
    if (!m_historyView)
        m_historyView = new HistoryView(historyPath(), this);
    m_historyView->show();
    followSelectionInHistory();
    m_historyView->raise();
    m_historyView->activateWindow();
}

void MainWindow::followSelectionInHistory()
{
    if (!m_historyView || !m_historyView->isVisible())
        return;
    const QtTreeView& tree = m_control.treeView();
    const QString key = tree.selectedKey();
    m_historyView->showScope(HistoryScope::ofNode(key),
                             key.isEmpty() ? tr("the site") : tree.itemText(key));
}

void MainWindow::showPrinter(const QString& printerId)
{
    m_glance.selectPrinter(printerId);
    showNormal();
    raise();
    activateWindow();
    updateCommands();
}

// The marks without a title are the host's: the first is its file menu, the last its help.
QMenu* MainWindow::menuForMark(const HostCommandRow& mark)
{
    if (!mark.markTitle.isEmpty())
        return menuBar()->addMenu(mark.markTitle);
    return menuBar()->addMenu(mark.mark == -1 ? tr("&File") : tr("&Help"));
}

void MainWindow::updateCommands()
{
    m_glance.followPolling();
    m_notices.updateAcknowledge();
    for (const auto& [action, command] : std::as_const(m_actions)) {
        const ControlCommands::State state = m_commands.state(command);
        action->setVisible(state.visible);
        action->setEnabled(state.enabled);
        action->setCheckable(state.checked.has_value());
        action->setChecked(state.checked.value_or(false));
    }
}

void MainWindow::closeEvent(QCloseEvent* event)
{
    m_updateTimer.stop();
    savePlace();
    m_control.hideControl();
    event->accept();
}

void MainWindow::restorePlace()
{
    QVariant place;
    TransferValueEx(HKEY_CURRENT_USER, PlaceKey, 0, REG_SZ, PlaceValue, place, QString(), false);
    // Without a kept place the window keeps the size it was made with.
    restoreGeometry(QByteArray::fromBase64(place.toString().toLatin1()));
}

void MainWindow::savePlace()
{
    QVariant place = QString::fromLatin1(saveGeometry().toBase64());
    TransferValueEx(HKEY_CURRENT_USER, PlaceKey, 1, REG_SZ, PlaceValue, place, QString(), false);
}
