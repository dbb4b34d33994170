#include "platform/qt/QtContextMenus.h"

#include <QCursor>

QtContextMenus::QtContextMenus(QWidget* parent)
    : m_groupMenu(parent)
    , m_treeMenu(parent)
{
    // The group menu's entries by index; 1 and 3 are separators.
    QAction* identifiers = addGroupItem(Entry::GroupIdentifiers, 0);
    // A group's printer identifiers are set from the label files, which this build can't send.
    identifiers->setEnabled(false);
    m_groupMenu.addSeparator();
    addGroupItem(Entry::GroupNew, 2);
    m_groupMenu.addSeparator();
    addGroupItem(Entry::GroupDelete, 4);
    addGroupItem(Entry::GroupRename, 5);

    QAction* disable = m_treeMenu.addAction(QString());
    disable->setCheckable(true);
    QObject::connect(disable, &QAction::triggered, disable, [this] {
        if (m_hooks.treeDisableClicked)
            m_hooks.treeDisableClicked();
    });
    m_actions.insert(Entry::TreeDisable, disable);
    QAction* properties = m_treeMenu.addAction(QString());
    QObject::connect(properties, &QAction::triggered, properties, [this] {
        if (m_hooks.treePrinterPropertiesClicked)
            m_hooks.treePrinterPropertiesClicked();
    });
    m_actions.insert(Entry::TreePrinterProperties, properties);
}

QAction* QtContextMenus::addGroupItem(Entry entry, int index)
{
    QAction* action = m_groupMenu.addAction(QString());
    QObject::connect(action, &QAction::triggered, action, [this, index] {
        if (m_hooks.groupItemClicked)
            m_hooks.groupItemClicked(index);
    });
    m_actions.insert(entry, action);
    return action;
}

void QtContextMenus::setCaption(Entry entry, const QString& caption)
{
    switch (entry) {
    case Entry::GroupMenu:
        m_groupMenu.setTitle(caption);
        break;
    case Entry::TreeMenu:
        m_treeMenu.setTitle(caption);
        break;
    default:
        if (QAction* action = m_actions.value(entry))
            action->setText(caption);
    }
}

void QtContextMenus::setDisableChecked(bool checked)
{
    m_actions.value(Entry::TreeDisable)->setChecked(checked);
}

void QtContextMenus::popup(Menu which)
{
    menu(which).popup(QCursor::pos());
}
