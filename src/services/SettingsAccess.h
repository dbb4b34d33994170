#pragma once

#include <QString>
#include <QStringList>
#include <QVariant>

// Reading and writing single values and whole keys of the settings store, in the two
// generations the program uses side by side. They differ on purpose in how a default is
// applied and written back; callers rely on the differences.

constexpr qint32 HKEY_CURRENT_USER = qint32(0x80000001);
constexpr qint32 HKEY_LOCAL_MACHINE = qint32(0x80000002);

constexpr qint32 REG_SZ = 1;
constexpr qint32 REG_DWORD = 4;

constexpr qint32 TransferRead = 0;
constexpr qint32 TransferWrite = 1;

// The control's own keys hang below this root.
inline const QString DefaultRootKey = QStringLiteral("Software\\Orvane\\Vigil");

// Newer generation: a hive and a full key path. A read never fails: a value that can't be
// read takes the default, written back when writeDefault is set.
qint32 TransferValueEx(qint32 hive, const QString& key, qint32 direction, qint32 type,
                       const QString& name, QVariant& value, const QVariant& defaultValue,
                       bool writeDefault);
qint32 ApiRegQueryValueExNull(qint32 hive, const QString& key, const QString& name,
                              QVariant& value);

// Older generation: the key is root (the default root when empty), a backslash and section.
// A failed read without writeDefault leaves the caller's value and returns the failure.
qint32 TransferValue(qint32 direction, bool userHive, const QString& section, const QString& name,
                     qint32 type, const QVariant& defaultValue, QVariant& value, bool writeDefault,
                     const QString& root = QString());
qint32 ReadValue(qint32 hive, const QString& key, const QString& name, QVariant& value);
qint32 WriteValue(qint32 hive, const QString& key, const QString& name, qint32 type,
                  const QVariant& value);
qint32 CreateKey(const QString& key, qint32 hive);
// The subkeys of default root, backslash, path, behind a leading empty element.
bool EnumSubKeys(qint32 hive, QStringList& names, const QString& path);
qint32 DeleteKeyTree(qint32 hive, const QString& path, const QString& name);

// For keys outside the control's root, by their full path: the subkeys in the store's
// order, false when the key can't be opened; and a key deleted with all below it.
bool ListSubKeys(qint32 hive, const QString& key, QStringList& names);
qint32 DeleteKeyAt(qint32 hive, const QString& key);
