#pragma once

#include <QString>
#include <QStringList>

// The database of one database row of the prompt form, on a connection of its own that lives
// as long as this object. The data source is an SQLite file, opened read-only so that a
// mistyped path never leaves an empty database behind, or a Qt SQL driver with its options:
// "QPSQL:host=db;port=5432;dbname=plant;user=vigil;password=...". Options other than those
// five go to the driver as its connect options; a bare word is the database's name.
class PromptDatabase
{
public:
    // Opens at once; raises, with the driver's own words, when the database can't be opened.
    explicit PromptDatabase(const QString& dataSource);
    ~PromptDatabase();
    PromptDatabase(const PromptDatabase&) = delete;
    PromptDatabase& operator=(const PromptDatabase&) = delete;

    // The values of the key field, listed from the variable's table in the field's order:
    // SELECT [KeyField] FROM [VarName] ORDER BY [KeyField]. Raises when the query fails.
    QStringList keyValues(const QString& sVarName, const QString& sKeyField) const;

    static QString queryText(const QString& sVarName, const QString& sKeyField);
    const QString& connectionName() const { return m_connectionName; }

private:
    QString m_connectionName;
};
