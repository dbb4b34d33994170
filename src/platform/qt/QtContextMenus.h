#pragma once

#include "core/IContextMenus.h"

#include <QHash>
#include <QMenu>
#include <functional>

// The tree's two pop-up menus on screen. A pick goes to the hooks, as the control's menu
// click sinks take it: the group menu by the entry's index.
class QtContextMenus : public IContextMenus
{
public:
    struct Hooks
    {
        std::function<void(int index)> groupItemClicked;
        std::function<void()> treeDisableClicked;
        std::function<void()> treePrinterPropertiesClicked;
    };

    explicit QtContextMenus(QWidget* parent = nullptr);

    void setHooks(Hooks hooks) { m_hooks = std::move(hooks); }

    void setCaption(Entry entry, const QString& caption) override;
    void setDisableChecked(bool checked) override;
    void popup(Menu menu) override;

    QMenu& menu(Menu which) { return which == Menu::Group ? m_groupMenu : m_treeMenu; }
    QAction* action(Entry entry) const { return m_actions.value(entry); }

private:
    QAction* addGroupItem(Entry entry, int index);

    QMenu m_groupMenu;
    QMenu m_treeMenu;
    QHash<Entry, QAction*> m_actions;
    Hooks m_hooks;
};
