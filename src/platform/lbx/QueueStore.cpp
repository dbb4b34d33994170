#include "platform/lbx/QueueStore.h"

#include "services/SettingsAccess.h"
#include "services/SettingsStore.h"

namespace {
const QString PortNameValue = QStringLiteral("PortName");
const QString PrinterNumberValue = QStringLiteral("PrinterNumber");
const QString FriendlyNameValue = QStringLiteral("FriendlyName");

QString keyOf(const QString& name)
{
    return QueueStore::QueuesKey + QLatin1Char('\\') + name;
}

QVariant read(const QString& key, const QString& name, QMetaType::Type type)
{
    QVariant value;
    if (ReadValue(HKEY_LOCAL_MACHINE, key, name, value) != 0 || value.typeId() != type)
        return {};
    return value;
}

bool taken(const QString& name)
{
    for (const QueueRecord& record : QueueStore::load())
        if (record.name.compare(name, Qt::CaseInsensitive) == 0)
            return true;
    return false;
}
} // namespace

QList<QueueRecord> QueueStore::load()
{
    QStringList names;
    ListSubKeys(HKEY_LOCAL_MACHINE, QueuesKey, names);
    QList<QueueRecord> records;
    records.reserve(names.size());
    for (const QString& name : std::as_const(names)) {
        QueueRecord record;
        record.name = name;
        record.portName = read(keyOf(name), PortNameValue, QMetaType::QString).toString();
        record.printerNumber =
            qint16(read(keyOf(name), PrinterNumberValue, QMetaType::Int).toInt());
        const QVariant friendly = read(keyOf(name), FriendlyNameValue, QMetaType::QString);
        record.friendlyName = friendly.isValid() ? friendly.toString() : name;
        records.append(record);
    }
    return records;
}

QString QueueStore::nameProblem(const QString& name)
{
    if (name.trimmed().isEmpty())
        return QStringLiteral("a queue needs a name");
    if (name.contains(QLatin1Char('\\')))
        return QStringLiteral("\"%1\" can't name a queue: it holds a backslash")
            .arg(SettingsStore::visibleName(name));
    return SettingsStore::nameProblem(name);
}

QueueStore::Outcome QueueStore::add(const QueueRecord& record, QString& problem)
{
    problem = nameProblem(record.name);
    if (!problem.isEmpty())
        return {Outcome::Refused};
    SettingsStore& store = SettingsStore::process();
    SettingsStore::Transaction transaction(store);
    if (taken(record.name)) {
        problem = QStringLiteral("there is a queue \"%1\" already").arg(record.name);
        return {Outcome::Refused};
    }
    const QString key = keyOf(record.name);
    const bool written =
        WriteValue(HKEY_LOCAL_MACHINE, key, PortNameValue, REG_SZ, record.portName) == 0 &&
        WriteValue(HKEY_LOCAL_MACHINE, key, PrinterNumberValue, REG_DWORD,
                   qint32(record.printerNumber)) == 0 &&
        WriteValue(HKEY_LOCAL_MACHINE, key, FriendlyNameValue, REG_SZ, record.friendlyName) == 0;
    if (!written || !transaction.commit()) {
        problem = QStringLiteral("the queue could not be written to %1: %2")
                      .arg(store.filePath(), store.lastFailure());
        return {Outcome::NotWritten};
    }
    return {};
}

QueueStore::Outcome QueueStore::remove(const QString& name, QString& problem)
{
    const qint32 status =
        name.isEmpty() ? SettingsStore::FileNotFound : DeleteKeyAt(HKEY_LOCAL_MACHINE, keyOf(name));
    if (status == SettingsStore::FileNotFound) {
        problem = QStringLiteral("there is no queue \"%1\"").arg(SettingsStore::visibleName(name));
        return {Outcome::NoSuchQueue};
    }
    if (status != SettingsStore::Success) {
        SettingsStore& store = SettingsStore::process();
        problem = QStringLiteral("the queue could not be removed from %1: %2")
                      .arg(store.filePath(), store.lastFailure());
        return {Outcome::NotWritten};
    }
    return {};
}
