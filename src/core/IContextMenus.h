#pragma once

#include <QString>

// The two pop-up menus of the tree: one for a group, one for a printer.
class IContextMenus
{
public:
    enum class Menu { Group, Tree };
    // Each entry, by the index it has in its menu; the group menu's 1 and 3 are separators.
    enum class Entry {
        GroupMenu,
        GroupIdentifiers,
        GroupNew,
        GroupDelete,
        GroupRename,
        TreeMenu,
        TreeDisable,
        TreePrinterProperties,
    };

    virtual ~IContextMenus() = default;

    virtual void setCaption(Entry entry, const QString& caption) = 0;
    // The check mark of the printer menu's "disable" entry.
    virtual void setDisableChecked(bool checked) = 0;
    // Pops the menu up at the mouse; a pick comes back to the control's menu click sinks.
    virtual void popup(Menu menu) = 0;
};
