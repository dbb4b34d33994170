#pragma once

#include <QString>

// The values of one node's key in the settings store, below the control's root, read and
// written as the tree keeps them: machine hive, a read that finds nothing writes the default
// back, and a value of the wrong type counts as missing.
class StoredNode
{
public:
    explicit StoredNode(QString keyName);

    // The key goes with everything below it.
    void removeWholeKey() const;
    void writeText(const QString& name, const QString& text) const;
    void writeNumber(const QString& name, qint32 number) const;
    bool has(const QString& name) const;
    QString readText(const QString& name, const QString& defaultText) const;
    qint32 readNumber(const QString& name, qint32 defaultNumber) const;

private:
    QString m_sKeyName;
};
