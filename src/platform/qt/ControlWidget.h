#pragma once

#include "core/AddInControl.h"
#include "core/QtTimer.h"
#include "platform/qt/QtContextMenus.h"
#include "platform/qt/QtPagePane.h"
#include "platform/qt/QtTreeView.h"

#include <QWidget>

// The control as the host shell holds it: the tree, the splitter and the page pane on
// screen, the two timers, and AddInControl behind them. Every event of the widgets goes to
// the control's event sink of the same name.
class ControlWidget : public QWidget
{
    Q_OBJECT

public:
    explicit ControlWidget(QWidget* parent = nullptr);
    ~ControlWidget() override;

    AddInControl& control() { return m_control; }
    QtTreeView& treeView() { return m_treePrinters; }
    QtPagePane& pane() { return m_pane; }
    QtContextMenus& menus() { return m_menus; }

    // Start-up of the control: the tree from the store, the first poll, the root's page.
    void initialise();
    // The host is done with the control: polling stops and the tree is saved.
    void hideControl();

private:
    void connectTree();
    void connectMenus();

    QtTreeView m_treePrinters;
    QtPagePane m_pane;
    QtContextMenus m_menus;
    QtTimer m_timer1;
    QtTimer m_tmrTimeout;
    AddInControl m_control;
};
