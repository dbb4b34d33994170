#pragma once

#include "CommandLine.h"
#include "StoreGate.h"
#include "services/RegFile.h"

// vigilctl store ...: reads and changes the settings store, so that an administrator can set
// what the program itself never writes (language, branding, limits, queues).
class StoreCommand
{
public:
    explicit StoreCommand(const Console& console);
    int run(const QStringList& words);

    static QString usage();

private:
    int get(const RegFile::KeyPath& key, const QString& name);
    int set(const RegFile::KeyPath& key, const QString& name, const QString& value, bool dword);
    int remove(const RegFile::KeyPath& key, const QStringList& name);
    int list(const RegFile::KeyPath& key);
    int exportKeys(const QStringList& key);
    int importFile(const QString& file);

    std::optional<RegFile::KeyPath> keyArgument(const QString& text) const;
    int noKey(const QString& key) const;
    // Opens the store for the verb: ExitDone, or the exit code of its failure, said.
    int openStore(StoreGate::Access access);
    int writeFailed(const QString& what) const;

    const Console& m_console;
    SettingsStore* m_store = nullptr;
};
