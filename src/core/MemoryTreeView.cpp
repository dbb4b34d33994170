#include "core/MemoryTreeView.h"

void MemoryTreeView::clear()
{
    m_items.clear();
    m_topLevel.clear();
    m_expanded.clear();
    m_selected.clear();
}

bool MemoryTreeView::addItem(const QString& parentKey, const QString& key, const QString& text,
                             qint32 image)
{
    if (key.isEmpty() || m_items.contains(key))
        return false;
    QStringList* siblings = &m_topLevel;
    if (!parentKey.isEmpty()) {
        const auto parent = m_items.find(parentKey);
        if (parent == m_items.end())
            return false;
        siblings = &parent->children;
    }
    siblings->append(key);
    m_items.insert(key, {parentKey, text, image, 0, 0, {}});
    return true;
}

void MemoryTreeView::removeItem(const QString& key)
{
    const auto found = m_items.constFind(key);
    if (found == m_items.constEnd())
        return;
    const Item item = *found;
    for (const QString& child : item.children)
        removeItem(child);
    if (item.parent.isEmpty())
        m_topLevel.removeOne(key);
    else
        m_items[item.parent].children.removeOne(key);
    m_items.remove(key);
    m_expanded.remove(key);
    if (m_selected == key)
        m_selected.clear();
}

QStringList MemoryTreeView::keys() const
{
    QStringList all;
    all.reserve(m_items.size());
    appendKeys(m_topLevel, all);
    return all;
}

void MemoryTreeView::appendKeys(const QStringList& siblings, QStringList& keys) const
{
    for (const QString& key : siblings) {
        keys.append(key);
        appendKeys(m_items.value(key).children, keys);
    }
}

void MemoryTreeView::setItemText(const QString& key, const QString& text)
{
    const auto found = m_items.find(key);
    if (found != m_items.end())
        found->text = text;
}

void MemoryTreeView::setItemColours(const QString& key, quint32 background, quint32 text)
{
    const auto found = m_items.find(key);
    if (found != m_items.end()) {
        found->background = background;
        found->foreground = text;
    }
}

void MemoryTreeView::selectItem(const QString& key)
{
    if (m_items.contains(key))
        m_selected = key;
}

void MemoryTreeView::expandItem(const QString& key)
{
    if (m_items.contains(key))
        m_expanded.insert(key);
}

QStringList MemoryTreeView::children(const QString& parentKey) const
{
    return parentKey.isEmpty() ? m_topLevel : m_items.value(parentKey).children;
}
