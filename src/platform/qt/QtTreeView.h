#pragma once

#include "core/ITreeView.h"

#include <QHash>
#include <QTreeWidget>

// The tree of groups and printers on screen: a QTreeWidget whose items are known by key.
// Points are in twips at its edge, as the control counts them; colours are the palette's
// 32-bit values, the desktop's own for the system colours.
class QtTreeView : public ITreeView
{
public:
    static constexpr int TwipsPerPixel = 15;

    explicit QtTreeView(QWidget* parent = nullptr);

    QTreeWidget& widget() { return m_tree; }

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

    QTreeWidget m_tree;
    QHash<QString, QTreeWidgetItem*> m_items;
};
