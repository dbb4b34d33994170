#pragma once

#include "core/IPage.h"

#include <QHash>
#include <QIcon>
#include <QPoint>
#include <QWidget>

class QTreeWidget;
class QTreeWidgetItem;

// The page that shows the label folder as a tree, so that a format or a label set can be
// dragged onto a printer or a group. It reads the folder once, when it opens.
class FileViewControl : public QWidget, public IPage
{
    Q_OBJECT

public:
    // The item's image: 1 folder, 2 label set, 3 format.
    static constexpr int ImageRole = Qt::UserRole;
    static constexpr int KeyRole = Qt::UserRole + 1;

    explicit FileViewControl(QWidget* parent = nullptr);

    // The file view belongs to no node.
    void Setup(const QString&, ComponentHandler*) override {}
    void PopulateFileView();
    void ClearTree();
    // The drag text for a press at this point of the tree's viewport; empty off the items.
    QString dragTextAt(const QPoint& position) const;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void AddFoldersAndMessages(const QString& sPath, bool bTopLevel);
    void treeFileView_MouseDown(const QPoint& position);
    void treeFileView_OLEStartDrag();

    QTreeWidget* treeFileView;
    QIcon m_images[3];
    QHash<QString, QTreeWidgetItem*> m_itemsByKey;
    QPoint m_pressPosition;
    bool m_bPressed = false;
};
