#include "PageTour.h"

#include "core/AddInControl.h"
#include "core/Globals.h"
#include "core/clsComponent.h"
#include "core/clsComponents.h"
#include "pages/PrinterFrame.h"

#include <QApplication>
#include <QListWidget>
#include <QMainWindow>
#include <QPushButton>
#include <QTabBar>
#include <QTimer>
#include <QTreeWidget>
#include <cstdio>

namespace {
// A printer of each kind on the demo site, the one that shows the most.
const char* const Printers[] = {"Filler C2", "Capper A1", "Pallet labeller", "Office label printer"};
// A command whose reply reads as text.
const QString ConsoleCommand = QStringLiteral("0x10");
constexpr int SettleMs = 400;
constexpr int ReplyMs = 2500;

void fail(const QString& why)
{
    std::fprintf(stderr, "pageshots: %s\n", qPrintable(why));
}
} // namespace

PageTour::PageTour(QMainWindow& window, const QDir& out)
    : m_window(window)
    , m_out(out)
{}

void PageTour::start()
{
    for (const char* printer : Printers) {
        then(SettleMs, [this, printer] { visitPrinter(QLatin1String(printer)); });
        then(SettleMs, [this] { photographTabs(); });
    }
    then(SettleMs, [this] { visitPrinter(QLatin1String(Printers[0])); });
    // The console is modal: the steps after its opening run in its own loop.
    then(SettleMs, [this] { openConsole(); });
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

void PageTour::visitPrinter(const QString& printerName)
{
    clsComponent* node = g_oComponents ? g_oComponents->FindPrinter(printerName) : nullptr;
    auto* tree = m_window.findChild<QTreeWidget*>();
    const QList<QTreeWidgetItem*> items =
        tree ? tree->findItems(printerName, Qt::MatchStartsWith | Qt::MatchRecursive)
             : QList<QTreeWidgetItem*>();
    if (!node || items.isEmpty() || !g_oAddIn) {
        fail(QStringLiteral("no printer \"%1\" on the demo site").arg(printerName));
        m_failed = true;
        return;
    }
    tree->setCurrentItem(items.first());
    g_oAddIn->treePrinters_NodeClick(node->m_sID);
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
        photographs.append({0, [tabs, index] { tabs->setCurrentIndex(index); }});
        const QString name = frame->objectName() + QLatin1Char('-') +
                             tabs->tabData(index).toString() + QStringLiteral(".png");
        photographs.append({SettleMs, [this, name] { save(m_window, name); }});
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
