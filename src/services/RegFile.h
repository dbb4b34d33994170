#pragma once

#include "services/SettingsStore.h"

#include <QString>
#include <optional>

// Keys and values of the settings store in the .reg text that administrators know:
//
//   [HKLM\Software\Orvane\Vigil\Options]
//   "PollInterval"=dword:00004e20
//   "Language"="de"
//
// "[-KEY]" deletes a key with everything below it, "Name"=- a value. Other stored types, and
// texts that aren't UTF-8 with one closing NUL, are written as hex(N): byte lists, so that an
// export reads back exactly. Blanks at either end of a name are part of it.
class RegFile
{
public:
    struct KeyPath
    {
        SettingsStore::Handle hive = SettingsStore::MachineHive;
        QString path;
    };

    // "HKLM\Software\..." or "HKEY_CURRENT_USER\...": nothing when the hive is unknown.
    static std::optional<KeyPath> parseKeyPath(const QString& text);
    static QString hiveName(SettingsStore::Handle hive);

    explicit RegFile(SettingsStore& store);

    // The key and everything below it; nothing but the header when the key is missing.
    qint32 exportKey(const KeyPath& key, QString& text);
    // Both hives whole.
    qint32 exportAll(QString& text);
    // What the last export left out: keys and values whose names no .reg line can hold,
    // which an older version let into the store. Shown as the store's visible names.
    const QStringList& leftOut() const { return m_leftOut; }

    struct ImportResult
    {
        bool ok = false;
        QString error; // "line 12: ..." when not ok
        int keys = 0;
        int values = 0;
    };
    // All or nothing: a text with a fault anywhere changes nothing.
    ImportResult importText(const QString& text);

private:
    qint32 exportTree(SettingsStore::Handle key, const QString& displayPath, bool isHive,
                      QString& text);

    SettingsStore& m_store;
    QStringList m_leftOut;
};
