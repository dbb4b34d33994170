#pragma once

#include <QList>
#include <QSet>
#include <QString>
#include <memory>
#include <optional>

// The ordered keyed list of the tree: entries keep their order of insertion, are counted
// from 1, and are found by a key compared without regard to case. Entries are shared
// pointers, so a walk over snapshot() keeps every entry alive even if an event removes it
// from the list in mid-walk; the walker asks contains() to skip what has gone.
template <typename T> class KeyedList
{
public:
    using Pointer = std::shared_ptr<T>;

    qsizetype count() const { return m_entries.size(); }
    bool isEmpty() const { return m_entries.isEmpty(); }

    // Appends under `key`; an empty key adds the entry without one. False if the key is
    // taken already.
    bool add(const QString& key, Pointer item)
    {
        if (!key.isEmpty() && indexOf(key))
            return false;
        m_members.insert(item.get());
        m_entries.append({key, std::move(item)});
        return true;
    }

    Pointer item(const QString& key) const
    {
        const auto index = indexOf(key);
        return index ? m_entries.at(*index).item : nullptr;
    }

    // Entry `index`, counted from 1; none outside the list.
    Pointer at(qsizetype index) const
    {
        return index >= 1 && index <= count() ? m_entries.at(index - 1).item : nullptr;
    }

    bool remove(const QString& key)
    {
        const auto index = indexOf(key);
        if (!index)
            return false;
        m_members.remove(m_entries.at(*index).item.get());
        m_entries.removeAt(*index);
        return true;
    }

    // By position from 1; false when there is none.
    bool removeAt(qsizetype index)
    {
        if (index < 1 || index > count())
            return false;
        m_members.remove(m_entries.at(index - 1).item.get());
        m_entries.removeAt(index - 1);
        return true;
    }

    bool contains(const T* item) const { return m_members.contains(item); }

    QList<Pointer> snapshot() const
    {
        QList<Pointer> items;
        items.reserve(m_entries.size());
        for (const Entry& entry : m_entries)
            items.append(entry.item);
        return items;
    }

    void clear()
    {
        m_entries.clear();
        m_members.clear();
    }

private:
    struct Entry
    {
        QString key;
        Pointer item;
    };

    std::optional<qsizetype> indexOf(const QString& key) const
    {
        for (qsizetype i = 0; i < m_entries.size(); ++i)
            if (!m_entries.at(i).key.isEmpty() &&
                m_entries.at(i).key.compare(key, Qt::CaseInsensitive) == 0)
                return i;
        return std::nullopt;
    }

    QList<Entry> m_entries;
    // The entries by identity, so that a walk asks in constant time whether one is still here.
    QSet<const T*> m_members;
};
