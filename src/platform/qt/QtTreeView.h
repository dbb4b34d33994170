#pragma once

#include "core/ITreeView.h"
#include "platform/qt/TreeWidget.h"

#include <QHash>
#include <QIcon>

class ImageList;

// The tree of groups and printers on screen: a QTreeWidget whose items are known by key.
// Points are in twips at its edge, as the control counts them; colours are the palette's
// 32-bit values, the desktop's own for the system colours.
class QtTreeView : public ITreeView
{
public:
    explicit QtTreeView(QWidget* parent = nullptr);

    TreeWidget& widget() { return m_tree; }
    // The pictures that items name by index; none until the control has its lists.
    void setImageList(const ImageList* images) { m_images = images; }

    void clear() override;
    bool addItem(const QString& parentKey, const QString& key, const QString& text,
                 qint32 image) override;
    void removeItem(const QString& key) override;
    bool hasItem(const QString& key) const override { return m_items.contains(key); }
    QStringList keys() const override;
    QString parentKey(const QString& key) const override;
    QString itemText(const QString& key) const override;
    void setItemText(const QString& key, const QString& text) override;
    void setItemColours(const QString& key, quint32 background, quint32 text) override;
    QString selectedKey() const override;
    void selectItem(const QString& key) override;
    void expandItem(const QString& key) override;
    QString hitTest(float x, float y) const override;
    void startLabelEdit(const QString& key) override;
    void setDropHighlight(const QString& key) override;
    void setVisible(bool visible) override;
    void refresh() override;
    void resetMousePointer() override;

    // The item of a key, or none; and the key of an item.
    QTreeWidgetItem* item(const QString& key) const { return m_items.value(key); }
    static QString keyOf(const QTreeWidgetItem* item);
    // A colour of the palette's form as the desktop shows it.
    static QColor toColor(quint32 colour, const QPalette& palette);

private:
    void forget(QTreeWidgetItem* item);
    static void showText(QTreeWidgetItem& item, const QString& text);
    QIcon iconOf(qint32 image);

    TreeWidget m_tree;
    QHash<QString, QTreeWidgetItem*> m_items;
    const ImageList* m_images = nullptr;
    // One icon a picture file, however many items show it.
    QHash<QString, QIcon> m_icons;
    QString m_dropHighlight;
};
