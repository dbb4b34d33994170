#pragma once

#include "core/ITreeView.h"

#include <QHash>
#include <QSet>
#include <QStringList>

// The tree view as data: items by key with their parent, text, image and colours, in the
// order they were added.
class FakeTreeView : public ITreeView
{
public:
    struct Item
    {
        QString parent;
        QString text;
        qint32 image = 0;
        quint32 background = 0;
        quint32 foreground = 0;
    };

    void clear() override;
    bool addItem(const QString& parentKey, const QString& key, const QString& text,
                 qint32 image) override;
    void removeItem(const QString& key) override;
    bool hasItem(const QString& key) const override { return m_items.contains(key); }
    QString itemText(const QString& key) const override { return m_items.value(key).text; }
    void setItemText(const QString& key, const QString& text) override;
    void setItemColours(const QString& key, quint32 background, quint32 text) override;
    QString selectedKey() const override { return m_selected; }
    void selectItem(const QString& key) override { m_selected = key; }
    void expandItem(const QString& key) override { m_expanded.insert(key); }
    void setVisible(bool visible) override { m_bVisible = visible; }

    Item item(const QString& key) const { return m_items.value(key); }
    // The keys below `parentKey` in order; the top-level ones for an empty key.
    QStringList children(const QString& parentKey) const;
    bool isExpanded(const QString& key) const { return m_expanded.contains(key); }
    int textWrites() const { return m_textWrites; }

private:
    QHash<QString, Item> m_items;
    QStringList m_order;
    QSet<QString> m_expanded;
    QString m_selected;
    bool m_bVisible = true;
    int m_textWrites = 0;
};
