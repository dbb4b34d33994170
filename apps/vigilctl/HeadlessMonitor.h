#pragma once

#include "core/AddInControl.h"
#include "core/MemoryContextMenus.h"
#include "core/MemoryPagePane.h"
#include "core/MemoryTreeView.h"
#include "core/QtTimer.h"
#include "core/StateHistoryRecorder.h"

#include <QTemporaryDir>
#include <memory>

class TreeNode;

// The monitor without a window, on a copy of the store: what it saves while it runs goes to
// the copy, and the store itself, which a window may be using, is left as it is. The states
// it sees go to the history beside the store itself.
class HeadlessMonitor
{
public:
    // The store must be open. None, with the reason, when it can't be copied.
    static std::unique_ptr<HeadlessMonitor> onCopyOfStore(QString& problem);
    ~HeadlessMonitor();

    // Loads the tree, meets the queues and polls for the first time; false when the monitor
    // couldn't start.
    bool start();
    AddInControl& control() { return m_control; }
    MemoryTreeView& treePrinters() { return m_treePrinters; }
    // The group or printer of that name, or of that id; none with the reason.
    static std::shared_ptr<TreeNode> named(const QString& name, QString& problem);

private:
    HeadlessMonitor();

    QTemporaryDir m_folder;
    MemoryTreeView m_treePrinters;
    MemoryPagePane m_pages;
    MemoryContextMenus m_menus;
    QtTimer m_timer1{200, false};
    QtTimer m_tmrTimeout{0, false};
    AddInControl m_control;
    std::unique_ptr<StateHistoryRecorder> m_history;
};
