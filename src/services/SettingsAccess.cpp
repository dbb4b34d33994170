#include "services/SettingsAccess.h"

#include "services/Conversions.h"
#include "services/IDialogs.h"
#include "services/SettingsStore.h"
#include "services/VigilError.h"

#include <QtEndian>
#include <optional>

namespace {
using Handle = SettingsStore::Handle;

// The rights each caller asks for. The store has no rights, so they only document intent.
constexpr quint32 EnumerateRights = 0x20019;
constexpr quint32 ChangeRights = 7;
constexpr quint32 QueryRights = 1;

SettingsStore& store()
{
    return SettingsStore::process();
}

// Closes an open key on every way out, also when a conversion raises.
class OpenedKey
{
public:
    OpenedKey() = default;
    ~OpenedKey()
    {
        if (m_handle)
            store().closeKey(m_handle);
    }
    OpenedKey(const OpenedKey&) = delete;
    OpenedKey& operator=(const OpenedKey&) = delete;

    qint32 open(qint32 hive, const QString& key, quint32 /*rights*/)
    {
        return store().openKey(Handle(hive), key, m_handle);
    }
    qint32 create(qint32 hive, const QString& key)
    {
        return store().createKey(Handle(hive), key, m_handle);
    }
    Handle handle() const { return m_handle; }

private:
    Handle m_handle = 0;
};

// The read shared by ReadValue and ApiRegQueryValueExNull; they differ only in the status
// of a value that can't be queried.
qint32 readOneValue(qint32 hive, const QString& key, const QString& name, QVariant& value,
                    quint32 rights, std::optional<qint32> failedQueryStatus)
{
    OpenedKey opened;
    qint32 status = opened.open(hive, key, rights);
    if (status != SettingsStore::Success)
        return status;

    quint32 type = 0;
    quint32 size = 0;
    status = store().queryValue(opened.handle(), name, type, nullptr, size);
    if (status != SettingsStore::Success)
        return failedQueryStatus.value_or(status);

    switch (type) {
    case REG_SZ: {
        QByteArray buffer(qsizetype(size), '\0');
        status = store().queryValue(opened.handle(), name, type, &buffer, size);
        // The stored bytes end in a NUL that isn't part of the text.
        value = status == SettingsStore::Success
                    ? QString::fromUtf8(buffer.left(qMax<qsizetype>(0, qsizetype(size) - 1)))
                    : QString();
        return status;
    }
    case REG_DWORD: {
        QByteArray buffer(4, '\0');
        quint32 length = 4;
        status = store().queryValue(opened.handle(), name, type, &buffer, length);
        if (status == SettingsStore::Success && length == 4)
            value = qint32(qFromLittleEndian<quint32>(buffer.constData()));
        return status;
    }
    default:
        return -1;
    }
}

QString composedKey(const QString& root, const QString& section)
{
    return (root.isEmpty() ? DefaultRootKey : root) + QLatin1Char('\\') + section;
}
} // namespace

qint32 ApiRegQueryValueExNull(qint32 hive, const QString& key, const QString& name, QVariant& value)
{
    return readOneValue(hive, key, name, value, QueryRights, -1);
}

qint32 ReadValue(qint32 hive, const QString& key, const QString& name, QVariant& value)
{
    return readOneValue(hive, key, name, value, ChangeRights, std::nullopt);
}

qint32 WriteValue(qint32 hive, const QString& key, const QString& name, qint32 type,
                  const QVariant& value)
{
    OpenedKey created;
    const qint32 status = created.create(hive, key);
    if (status != SettingsStore::Success)
        return status;
    switch (type) {
    case REG_SZ: {
        QByteArray bytes = TextOf(value).toUtf8();
        bytes.append('\0');
        return store().setValue(created.handle(), name, REG_SZ, bytes);
    }
    case REG_DWORD: {
        QByteArray bytes(4, '\0');
        qToLittleEndian(quint32(ToLong(value)), bytes.data());
        return store().setValue(created.handle(), name, REG_DWORD, bytes);
    }
    default:
        return SettingsStore::Success;
    }
}

qint32 TransferValueEx(qint32 hive, const QString& key, qint32 direction, qint32 type,
                       const QString& name, QVariant& value, const QVariant& defaultValue,
                       bool writeDefault)
{
    try {
        if (direction == TransferRead) {
            if (ApiRegQueryValueExNull(hive, key, name, value) == SettingsStore::Success)
                return SettingsStore::Success;
            value = defaultValue;
            if (writeDefault)
                WriteValue(hive, key, name, type, defaultValue);
            return SettingsStore::Success;
        }
        if (direction == TransferWrite)
            return WriteValue(hive, key, name, type, value);
    } catch (const VigilError& error) {
        IDialogs::Box box;
        box.text = error.description();
        box.title = QStringLiteral("TransferValueEx");
        box.icon = IDialogs::Icon::Warning;
        box.foreground = true;
        IDialogs::process().show(box);
    }
    return SettingsStore::Success;
}

qint32 TransferValue(qint32 direction, bool userHive, const QString& section, const QString& name,
                     qint32 type, const QVariant& defaultValue, QVariant& value, bool writeDefault,
                     const QString& root)
{
    const qint32 hive = userHive ? HKEY_CURRENT_USER : HKEY_LOCAL_MACHINE;
    const QString key = composedKey(root, section);
    if (direction == TransferWrite)
        return WriteValue(hive, key, name, type, value);
    if (direction != TransferRead)
        return SettingsStore::Success;

    qint32 status = ReadValue(hive, key, name, value);
    if (status != SettingsStore::Success && writeDefault) {
        value = defaultValue;
        // The default goes back under the default root, whatever root the read used.
        QVariant written = defaultValue;
        TransferValue(TransferWrite, userHive, section, name, type, defaultValue, written, true);
        status = SettingsStore::Success;
    }
    return status;
}

qint32 CreateKey(const QString& key, qint32 hive)
{
    OpenedKey created;
    return created.create(hive, key);
}

bool EnumSubKeys(qint32 hive, QStringList& names, const QString& path)
{
    QStringList list;
    if (!ListSubKeys(hive, DefaultRootKey + QLatin1Char('\\') + path, list))
        return false;
    names.clear();
    for (const QString& name : std::as_const(list))
        if (!name.isEmpty())
            names.append(name.trimmed());
    // A key without subkeys still gives a list of one element, an empty name.
    if (names.isEmpty())
        names.append(QString());
    return true;
}

bool ListSubKeys(qint32 hive, const QString& key, QStringList& names)
{
    OpenedKey opened;
    if (opened.open(hive, key, EnumerateRights) != SettingsStore::Success)
        return false;
    names.clear();
    QString name;
    // Past the last subkey the store answers NoMoreItems; any other failure ends the walk too.
    for (quint32 index = 0; store().enumKey(opened.handle(), index, name) == SettingsStore::Success;
         ++index)
        names.append(name);
    return true;
}

qint32 DeleteKeyAt(qint32 hive, const QString& key)
{
    const qsizetype split = key.lastIndexOf(QLatin1Char('\\'));
    OpenedKey parent;
    const qint32 status = parent.open(hive, key.left(std::max<qsizetype>(split, 0)), ChangeRights);
    if (status != SettingsStore::Success)
        return status;
    return store().deleteKeyTree(parent.handle(), key.mid(split + 1));
}

qint32 DeleteKeyTree(qint32 hive, const QString& path, const QString& name)
{
    OpenedKey opened;
    const qint32 status =
        opened.open(hive, DefaultRootKey + QLatin1Char('\\') + path, ChangeRights);
    if (status != SettingsStore::Success)
        return status;
    return store().deleteKeyTree(opened.handle(), name);
}
