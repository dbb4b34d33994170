#include "support/FakeTreeView.h"

void FakeTreeView::clear()
{
    m_items.clear();
    m_order.clear();
    m_expanded.clear();
    m_selected.clear();
}

bool FakeTreeView::addItem(const QString& parentKey, const QString& key, const QString& text,
                           qint32 image)
{
    if (m_items.contains(key) || (!parentKey.isEmpty() && !m_items.contains(parentKey)))
        return false;
    m_items.insert(key, {parentKey, text, image});
    m_order.append(key);
    return true;
}

void FakeTreeView::removeItem(const QString& key)
{
    // An item goes with the items below it.
    for (const QString& child : children(key))
        removeItem(child);
    m_items.remove(key);
    m_order.removeAll(key);
    if (m_selected == key)
        m_selected.clear();
}

void FakeTreeView::setItemText(const QString& key, const QString& text)
{
    if (m_items.contains(key)) {
        m_items[key].text = text;
        ++m_textWrites;
    }
}

void FakeTreeView::setItemColours(const QString& key, quint32 background, quint32 text)
{
    if (m_items.contains(key)) {
        m_items[key].background = background;
        m_items[key].foreground = text;
    }
}

QStringList FakeTreeView::children(const QString& parentKey) const
{
    QStringList keys;
    for (const QString& key : m_order)
        if (m_items.value(key).parent == parentKey)
            keys.append(key);
    return keys;
}
