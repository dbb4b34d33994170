#pragma once

#include <QDir>
#include <QObject>
#include <functional>

class MainWindow;
class QTreeWidgetItem;
class TreeNode;
class QWidget;

// Walks the window through its property pages as an operator would, one step at a time so
// that each page is drawn before its picture: each kind of printer selected in the tree,
// each tab of its frame shown and photographed, then the command test console opened, a
// command sent and its reply photographed; on the way the file view, label files dropped on
// the tree, the send of "Line 1" with its prompt form and the progress log, and the
// identifiers of "Line 1"; and last the dashboard of the first line, once its printers have
// changed state; at the end the status bar's count of the worst trouble pressed, with polling
// on and then off. Quits the application at the end.
class PageTour : public QObject
{
    Q_OBJECT

public:
    PageTour(MainWindow& window, const QDir& out);

    void start();

private:
    using Step = std::function<void()>;

    void then(int delayMs, Step step);
    void next();
    QTreeWidgetItem* treeItem(const QString& name) const;
    void visit(TreeNode* node, const QString& name);
    void visitPrinter(const QString& printerName);
    void visitGroup(const QString& groupName);
    void photographTabs();
    void openConsole();
    void sendFromConsole();
    void photographConsole();
    void showFileView();
    void dropFile(const QString& itemText, const QString& fileName);
    void sendLine();
    void photographProgress();
    void openIdentifiers();
    void selectWorstTrouble();
    void photographStatusBar(const QString& fileName);
    void save(QWidget& widget, const QString& fileName);
    QWidget* shownFrame() const;

    MainWindow& m_window;
    QDir m_out;
    QList<std::pair<int, Step>> m_steps;
    bool m_failed = false;
};
