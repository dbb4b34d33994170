#pragma once

#include "core/ITreeView.h"

#include <QHash>
#include <QSet>

// The tree view as data, for programs without a window: items by key with their parent,
// text, image and colours, children in the order they were added. It has no geometry, so
// nothing is ever under a point, and no editor.
class MemoryTreeView : public ITreeView
{
public:
    struct Item
    {
        QString parent;
        QString text;
        qint32 image = 0;
        quint32 background = 0;
        quint32 foreground = 0;
        QStringList children;
    };

    void clear() override;
    bool addItem(const QString& parentKey, const QString& key, const QString& text,
                 qint32 image) override;
    void removeItem(const QString& key) override;
    bool hasItem(const QString& key) const override { return m_items.contains(key); }
    QStringList keys() const override;
    QString parentKey(const QString& key) const override { return m_items.value(key).parent; }
    QString itemText(const QString& key) const override { return m_items.value(key).text; }
    void setItemText(const QString& key, const QString& text) override;
    void setItemColours(const QString& key, quint32 background, quint32 text) override;
    QString selectedKey() const override { return m_selected; }
    void selectItem(const QString& key) override;
    void expandItem(const QString& key) override;
    QString hitTest(float, float) const override { return {}; }
    void startLabelEdit(const QString&) override {}
    void setDropHighlight(const QString& key) override { m_dropHighlight = key; }
    void setVisible(bool visible) override { m_bVisible = visible; }
    void refresh() override {}
    void resetMousePointer() override {}

    Item item(const QString& key) const { return m_items.value(key); }
    // The keys below `parentKey` in order; the top-level ones for an empty key.
    QStringList children(const QString& parentKey) const;
    bool isExpanded(const QString& key) const { return m_expanded.contains(key); }
    bool isVisible() const { return m_bVisible; }
    const QString& dropHighlight() const { return m_dropHighlight; }

private:
    void appendKeys(const QStringList& siblings, QStringList& keys) const;

    QHash<QString, Item> m_items;
    QStringList m_topLevel;
    QSet<QString> m_expanded;
    QString m_selected;
    QString m_dropHighlight;
    bool m_bVisible = true;
};
