#pragma once

#include "core/KeyedList.h"

#include <QString>
#include <memory>

// The value that one row of the prompt form is collecting, and the name of the variable it
// is for (trimmed: the key back to its prompt).
class clsPromptData
{
public:
    QString Value;
    QString LBXPrompt;
};

// The rows of one prompt form in row order, each keyed by its row number in decimal.
class clsPrompts
{
public:
    // Appended under sKey, or without a key when it is empty; a new object when none is
    // given. A key that is already there raises.
    std::shared_ptr<clsPromptData> Add(const QString& sKey,
                                       std::shared_ptr<clsPromptData> oDefaultData = nullptr);
    // By position from 1, or by key; none when there is no such entry.
    std::shared_ptr<clsPromptData> Item(qsizetype index) const { return m_col.at(index); }
    std::shared_ptr<clsPromptData> Item(const QString& key) const { return m_col.item(key); }
    qsizetype Count() const { return m_col.count(); }
    // A position or key that isn't there changes nothing.
    void Remove(qsizetype index) { m_col.removeAt(index); }
    void Remove(const QString& key) { m_col.remove(key); }
    // Walking in order.
    QList<std::shared_ptr<clsPromptData>> items() const { return m_col.snapshot(); }
    void clear() { m_col.clear(); }

private:
    KeyedList<clsPromptData> m_col;
};
