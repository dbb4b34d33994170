#include "PageTour.h"

#include "core/AddInControl.h"
#include "core/Globals.h"
#include "core/clsComponent.h"
#include "core/clsComponents.h"
#include "drivers/Application.h"
#include "pages/PrinterFrame.h"
#include "platform/host/MainWindow.h"
#include "platform/qt/TreeWidget.h"
#include "platform/qt/Twips.h"
#include "printing/GroupIdentifierEditing.h"
#include "printing/clsLBXHandler.h"

#include <QApplication>
#include <QComboBox>
#include <QListWidget>
#include <QPushButton>
#include <QTabBar>
#include <QTimer>
#include <QToolButton>
#include <QTreeWidget>
#include <cstdio>

namespace {
// A printer of each kind on the demo site, the one that shows the most.
const char* const Printers[] = {"Filler C2", "Capper A1", "Pallet labeller",
                                "Office label printer"};
// The group whose dashboard is photographed.
const QString DashboardGroup = QStringLiteral("Line 1");
// A command whose reply reads as text.
const QString ConsoleCommand = QStringLiteral("0x10");
constexpr int SettleMs = 400;
constexpr int ReplyMs = 2500;
// Time for the labels of a send to reach the simulated printers.
constexpr int LabelsMs = 4000;

void fail(const QString& why)
{
    std::fprintf(stderr, "pageshots: %s\n", qPrintable(why));
}
} // namespace

PageTour::PageTour(MainWindow& window, const QDir& out)
    : m_window(window)
    , m_out(out)
{}

void PageTour::start()
{
    for (const char* printer : Printers) {
        then(SettleMs, [this, printer] { visitPrinter(QLatin1String(printer)); });
        then(SettleMs, [this] { photographTabs(); });
    }
    then(SettleMs, [this] { showFileView(); });
    then(SettleMs, [this] { save(m_window, QStringLiteral("fileview.png")); });
    // Toggled off again, the selected printer's page comes back.
    then(0, [this] { showFileView(); });
    // A label set on Line 1, spreading to its printers, and a format on the office printer.
    then(SettleMs, [this] { dropFile(QStringLiteral("Line 1"), QStringLiteral("Line1.LBS")); });
    then(0, [this] {
        dropFile(QStringLiteral("Office label printer"), QStringLiteral("OfficeLabel.FMT"));
    });
    then(SettleMs, [this] { save(m_window, QStringLiteral("assigned.png")); });
    then(0, [this] { visitGroup(QStringLiteral("Line 1")); });
    then(SettleMs, [this] { sendLine(); });
    then(0, [] { g_oAddIn->DoDisplayPrintProgress(); });
    then(LabelsMs, [this] { photographProgress(); });
    // The identifiers dialog is modal: its picture is taken in its own loop.
    then(SettleMs, [this] { openIdentifiers(); });
    then(SettleMs, [this] { visitPrinter(QLatin1String(Printers[0])); });
    // The console is modal: the steps after its opening run in its own loop.
    then(SettleMs, [this] { openConsole(); });
    then(SettleMs, [this] { visitGroup(DashboardGroup); });
    then(SettleMs, [this] { save(m_window, QStringLiteral("dashboard.png")); });
    then(0, [this] { selectWorstTrouble(); });
    then(SettleMs, [this] { photographStatusBar(QStringLiteral("statusbar.png")); });
    then(0, [this] {
        g_oAddIn->DoDisablePolling();
        m_window.updateCommands();
    });
    then(SettleMs, [this] { photographStatusBar(QStringLiteral("statusbar-polling-off.png")); });
    then(0, [] { QApplication::exit(0); });
    next();
}

void PageTour::then(int delayMs, Step step)
{
    m_steps.append({delayMs, std::move(step)});
}

void PageTour::next()
{
    if (m_steps.isEmpty() || m_failed) {
        QApplication::exit(m_failed ? 1 : 0);
        return;
    }
    auto [delay, step] = m_steps.takeFirst();
    QTimer::singleShot(delay, this, [this, step = std::move(step)] {
        step();
        next();
    });
}

QTreeWidgetItem* PageTour::treeItem(const QString& name) const
{
    auto* tree = m_window.findChild<TreeWidget*>();
    // An assignment or an alert follows the name in the item's text.
    const QList<QTreeWidgetItem*> items =
        tree ? tree->findItems(name, Qt::MatchStartsWith | Qt::MatchRecursive)
             : QList<QTreeWidgetItem*>();
    return items.isEmpty() ? nullptr : items.first();
}

void PageTour::visit(TreeNode* node, const QString& name)
{
    QTreeWidgetItem* item = treeItem(name);
    if (!node || !item || !g_oAddIn) {
        fail(QStringLiteral("no \"%1\" on the demo site").arg(name));
        m_failed = true;
        return;
    }
    item->treeWidget()->setCurrentItem(item);
    g_oAddIn->treePrinters_NodeClick(node->m_sID);
}

void PageTour::visitPrinter(const QString& printerName)
{
    visit(g_oComponents ? g_oComponents->FindPrinter(printerName) : nullptr, printerName);
}

void PageTour::visitGroup(const QString& groupName)
{
    TreeNode* group = nullptr;
    for (qsizetype index = 1; g_oComponents && index <= g_oComponents->Count(); ++index)
        if (const auto child = g_oComponents->Item(index);
            child->isGroup() && child->m_sName == groupName)
            group = child.get();
    visit(group, groupName);
}

QWidget* PageTour::shownFrame() const
{
    for (auto* frame : m_window.findChildren<PrinterFrame*>())
        if (frame->isVisible())
            return frame;
    return nullptr;
}

// Each tab is photographed in a step of its own, once it has been drawn.
void PageTour::photographTabs()
{
    QWidget* frame = shownFrame();
    auto* tabs = frame ? frame->findChild<QTabBar*>() : nullptr;
    if (!tabs) {
        fail(QStringLiteral("no frame shown"));
        m_failed = true;
        return;
    }
    QList<std::pair<int, Step>> photographs;
    for (int index = 0; index < tabs->count(); ++index) {
        photographs.append({0, [tabs, index] {
                                tabs->setCurrentIndex(index);
                            }});
        const QString name = frame->objectName() + QLatin1Char('-') +
                             tabs->tabData(index).toString() + QStringLiteral(".png");
        photographs.append({SettleMs, [this, name] {
                                save(m_window, name);
                            }});
    }
    m_steps = photographs + m_steps;
}

void PageTour::openConsole()
{
    QWidget* frame = shownFrame();
    auto* tabs = frame ? frame->findChild<QTabBar*>() : nullptr;
    auto* start = frame ? frame->findChild<QPushButton*>(QStringLiteral("cmdTest")) : nullptr;
    if (!tabs || !start) {
        fail(QStringLiteral("no console button on the C-series frame"));
        m_failed = true;
        return;
    }
    tabs->setCurrentIndex(tabs->count() - 1);
    // Clicking blocks in the console's own loop; these run inside it.
    QTimer::singleShot(SettleMs, this, [this] { sendFromConsole(); });
    QTimer::singleShot(SettleMs + ReplyMs, this, [this] { photographConsole(); });
    start->click();
}

void PageTour::sendFromConsole()
{
    QWidget* console = QApplication::activeModalWidget();
    auto* commands = console ? console->findChild<QTreeWidget*>(QStringLiteral("lstCmd")) : nullptr;
    auto* send = console ? console->findChild<QPushButton*>(QStringLiteral("cmdSend")) : nullptr;
    if (!commands || !send || commands->topLevelItemCount() == 0) {
        fail(QStringLiteral("the console has no commands to send"));
        m_failed = true;
        return;
    }
    const QList<QTreeWidgetItem*> chosen = commands->findItems(ConsoleCommand, Qt::MatchExactly);
    commands->setCurrentItem(chosen.isEmpty() ? commands->topLevelItem(0) : chosen.first());
    send->click();
}

void PageTour::photographConsole()
{
    QWidget* console = QApplication::activeModalWidget();
    if (!console) {
        fail(QStringLiteral("the console did not open"));
        m_failed = true;
        return;
    }
    save(*console, QStringLiteral("console.png"));
    if (auto* close = console->findChild<QPushButton*>(QStringLiteral("cmdClose")))
        close->click();
    else
        console->close();
}

// As an operator would: the status bar's button of the worst trouble there is.
void PageTour::selectWorstTrouble()
{
    const std::optional<ErrorState> worst = m_window.glance().tally().counts().worstTrouble();
    if (!worst) {
        fail(QStringLiteral("no printer of the demo is in trouble"));
        m_failed = true;
        return;
    }
    m_window.glance().bar().button(*worst)->click();
}

// The window's title is drawn by the desktop, not in the picture: it goes to the output.
void PageTour::photographStatusBar(const QString& fileName)
{
    std::printf("title: %s\n", qPrintable(m_window.windowTitle()));
    save(m_window, fileName);
}

void PageTour::save(QWidget& widget, const QString& fileName)
{
    const QString path = m_out.filePath(fileName);
    if (!widget.grab().save(path)) {
        fail(QStringLiteral("can't write %1").arg(path));
        m_failed = true;
        return;
    }
    std::printf("%s\n", qPrintable(path));
    std::fflush(stdout);
}

void PageTour::showFileView()
{
    if (!g_oAddIn) {
        fail(QStringLiteral("no control"));
        m_failed = true;
        return;
    }
    g_oAddIn->DoDisplayFileView();
    if (auto* files = m_window.findChild<QTreeWidget*>(QStringLiteral("treeFileView")))
        files->expandAll();
}

// Drops a label file of the demo's folder on the tree item that starts with that text, as the
// file view's drag does.
void PageTour::dropFile(const QString& itemText, const QString& fileName)
{
    QTreeWidgetItem* item = treeItem(itemText);
    if (!item || !g_oAddIn) {
        fail(QStringLiteral("no \"%1\" in the tree to drop %2 on").arg(itemText, fileName));
        m_failed = true;
        return;
    }
    const QPoint point = item->treeWidget()->visualItemRect(item).center();
    const QString path = QDir(GetGlobalLBX().LBX_App().FileViewRootFolder()).filePath(fileName);
    const DragData data{FileDragText + QStringLiteral(" ID") + path, std::nullopt};
    g_oAddIn->treePrinters_OLEDragDrop(data, float(point.x() * TwipsPerPixel),
                                       float(point.y() * TwipsPerPixel));
}

// The send blocks in its wait for the prompt form: the form is photographed, a product picked
// and OK pressed from inside that wait.
void PageTour::sendLine()
{
    QTimer::singleShot(SettleMs, this, [this] {
        QWidget* form = nullptr;
        for (QWidget* window : QApplication::topLevelWidgets())
            if (window->objectName() == QLatin1String("frmPromptVars") && window->isVisible())
                form = window;
        if (!form) {
            fail(QStringLiteral("the send showed no prompt form"));
            m_failed = true;
            return;
        }
        if (auto* products = form->findChild<QComboBox*>())
            products->setCurrentIndex(0);
        save(*form, QStringLiteral("prompts.png"));
        if (auto* ok = form->findChild<QPushButton*>(QStringLiteral("cmdOK")))
            ok->click();
    });
    g_oAddIn->DoSendFilesToPrinters();
}

void PageTour::photographProgress()
{
    QWidget* log = nullptr;
    for (QWidget* window : QApplication::topLevelWidgets())
        if (window->objectName() == QLatin1String("frmDownloads") && window->isVisible())
            log = window;
    if (!log) {
        fail(QStringLiteral("the print progress log is not showing"));
        m_failed = true;
        return;
    }
    save(*log, QStringLiteral("progress-sent.png"));
    log->hide();
}

void PageTour::openIdentifiers()
{
    const auto first = g_oComponents ? g_oComponents->Item(1) : nullptr;
    auto* group = dynamic_cast<clsComponents*>(first.get());
    if (!group) {
        fail(QStringLiteral("no first group on the demo site"));
        m_failed = true;
        return;
    }
    // The dialog is modal: it is photographed and closed from inside its own loop.
    QTimer::singleShot(SettleMs, this, [this] {
        QWidget* dialog = QApplication::activeModalWidget();
        if (!dialog) {
            fail(QStringLiteral("the identifiers dialog did not open"));
            m_failed = true;
            return;
        }
        save(*dialog, QStringLiteral("identifiers.png"));
        dialog->close();
    });
    EditGroupIdentifiers(*group, *g_oComponents);
}
