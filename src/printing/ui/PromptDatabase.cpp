#include "printing/ui/PromptDatabase.h"

#include "services/VigilError.h"

#include <QFileInfo>
#include <QRegularExpression>
#include <QSqlDatabase>
#include <QSqlError>
#include <QSqlQuery>
#include <atomic>

namespace {
const QString Source = QStringLiteral("frmPromptVars");
const QString SQLiteDriver = QStringLiteral("QSQLITE");

// Every row its own connection, under a name no other row or form uses.
QString newConnectionName()
{
    static std::atomic<quint64> next{1};
    return QStringLiteral("frmPromptVars-%1").arg(next++);
}

[[noreturn]] void raise(const QString& description)
{
    throw VigilError(VigilError::InvalidProcedureCall, Source, description);
}

void applyDriverOptions(QSqlDatabase& database, const QString& options)
{
    QStringList connectOptions;
    for (const QString& option : options.split(QLatin1Char(';'), Qt::SkipEmptyParts)) {
        const qsizetype equals = option.indexOf(QLatin1Char('='));
        const QString name = option.left(equals).trimmed().toLower();
        const QString value = equals < 0 ? QString() : option.mid(equals + 1).trimmed();
        if (equals < 0)
            database.setDatabaseName(option.trimmed());
        else if (name == QLatin1String("host"))
            database.setHostName(value);
        else if (name == QLatin1String("port"))
            database.setPort(value.toInt());
        else if (name == QLatin1String("dbname") || name == QLatin1String("database"))
            database.setDatabaseName(value);
        else if (name == QLatin1String("user"))
            database.setUserName(value);
        else if (name == QLatin1String("password"))
            database.setPassword(value);
        else
            connectOptions.append(option.trimmed());
    }
    database.setConnectOptions(connectOptions.join(QLatin1Char(';')));
}

QSqlDatabase addDatabase(const QString& dataSource, const QString& connectionName)
{
    static const QRegularExpression DriverPrefix(QStringLiteral("^(Q[A-Z0-9_]+):(.*)$"));
    const QRegularExpressionMatch driver = DriverPrefix.match(dataSource);
    if (driver.hasMatch()) {
        if (!QSqlDatabase::isDriverAvailable(driver.captured(1)))
            raise(
                QStringLiteral("The database driver %1 is not installed").arg(driver.captured(1)));
        QSqlDatabase database = QSqlDatabase::addDatabase(driver.captured(1), connectionName);
        applyDriverOptions(database, driver.captured(2));
        return database;
    }
    if (!QFileInfo(dataSource).isFile())
        raise(QStringLiteral("The database file \"%1\" does not exist").arg(dataSource));
    QSqlDatabase database = QSqlDatabase::addDatabase(SQLiteDriver, connectionName);
    database.setDatabaseName(dataSource);
    database.setConnectOptions(QStringLiteral("QSQLITE_OPEN_READONLY"));
    return database;
}
} // namespace

PromptDatabase::PromptDatabase(const QString& dataSource)
    : m_connectionName(newConnectionName())
{
    QString failure;
    {
        QSqlDatabase database = addDatabase(dataSource.trimmed(), m_connectionName);
        if (!database.open())
            failure = QStringLiteral("The database \"%1\" cannot be opened: %2")
                          .arg(dataSource, database.lastError().text());
    }
    if (!failure.isEmpty()) {
        QSqlDatabase::removeDatabase(m_connectionName);
        raise(failure);
    }
}

PromptDatabase::~PromptDatabase()
{
    // The handle goes before the connection is removed, or Qt counts it as still in use.
    QSqlDatabase::database(m_connectionName, false).close();
    QSqlDatabase::removeDatabase(m_connectionName);
}

QString PromptDatabase::queryText(const QString& sVarName, const QString& sKeyField)
{
    return QStringLiteral("SELECT [") + sKeyField + QStringLiteral("] FROM [") + sVarName +
           QStringLiteral("] ORDER BY [") + sKeyField + QStringLiteral("]");
}

QStringList PromptDatabase::keyValues(const QString& sVarName, const QString& sKeyField) const
{
    QSqlQuery query(QSqlDatabase::database(m_connectionName, false));
    if (!query.exec(queryText(sVarName, sKeyField)))
        raise(QStringLiteral("The list of %1 cannot be read: %2")
                  .arg(sVarName, query.lastError().text()));
    QStringList values;
    while (query.next())
        values.append(query.value(0).toString());
    return values;
}
