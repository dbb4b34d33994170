#include "StoreCommand.h"

#include "StoreGate.h"
#include "services/Conversions.h"
#include "services/SettingsAccess.h"

#include <QFile>
#include <limits>

namespace {
struct Verb
{
    const char* name;
    qsizetype minArgs;
    qsizetype maxArgs;
};

constexpr Verb Verbs[] = {
    {"get", 2, 2},  {"set", 3, 3},    {"delete", 1, 2},
    {"list", 1, 1}, {"export", 0, 1}, {"import", 1, 1},
};

const Verb* findVerb(const QString& name)
{
    for (const Verb& verb : Verbs)
        if (name == QLatin1String(verb.name))
            return &verb;
    return nullptr;
}

// Decimal or 0x hex, signed or unsigned: whatever fits in 32 bits.
std::optional<qint32> dwordOf(const QString& text)
{
    bool ok = false;
    const qint64 value = text.trimmed().toLongLong(&ok, 0);
    if (!ok || value < std::numeric_limits<qint32>::min() ||
        value > qint64(std::numeric_limits<quint32>::max()))
        return std::nullopt;
    return qint32(quint32(value));
}
} // namespace

StoreCommand::StoreCommand(const Console& console)
    : m_console(console)
{}

QString StoreCommand::usage()
{
    return QStringLiteral(
               "Usage: vigilctl store get KEY NAME\n"
               "       vigilctl store set KEY NAME VALUE [--dword]\n"
               "       vigilctl store delete KEY [NAME]\n"
               "       vigilctl store list KEY\n"
               "       vigilctl store export [KEY]\n"
               "       vigilctl store import FILE|-\n"
               "\n"
               "  get      prints a value; nothing, and exit code 1, when it is missing\n"
               "  set      writes a text value, or a 32-bit number with --dword (decimal or 0x "
               "hex)\n"
               "  delete   deletes a value, or without NAME the key with everything below it\n"
               "  list     prints the subkeys of KEY, one a line\n"
               "  export   prints KEY and everything below it (the whole store without KEY) as\n"
               "           .reg text\n"
               "  import   reads .reg text from FILE, or from standard input with -; all or "
               "nothing\n"
               "\n"
               "KEY begins with its hive, HKLM\\ (the machine's) or HKCU\\ (the user's), as in\n"
               "'HKLM\\Software\\Orvane\\Vigil\\Options'. Quote it for the shell; \"/\" may stand "
               "for \"\\\".\n"
               "The store is $VIGIL_STORE, else korvex-vigil/store.sqlite in $XDG_DATA_HOME\n"
               "(~/.local/share); here: %1\n")
        .arg(SettingsStore::defaultFilePath());
}

int StoreCommand::run(const QStringList& words)
{
    const CommandLine line(words, {QStringLiteral("--dword")});
    if (line.wantsHelp()) {
        m_console.out << usage();
        return ExitDone;
    }
    if (!line.unknownFlag().isEmpty())
        return m_console.fail(QStringLiteral("store: unknown option %1").arg(line.unknownFlag()),
                              ExitBadArguments);
    const QStringList& args = line.positional();
    const Verb* verb = args.isEmpty() ? nullptr : findVerb(args.first());
    if (!verb)
        return m_console.fail(
            args.isEmpty() ? QStringLiteral("store: say what to do (see vigilctl store --help)")
                           : QStringLiteral("store: unknown command \"%1\"").arg(args.first()),
            ExitBadArguments);
    const QStringList rest = args.mid(1);
    if (rest.size() < verb->minArgs || rest.size() > verb->maxArgs)
        return m_console.fail(QStringLiteral("store %1: wrong number of arguments (see vigilctl "
                                             "store --help)")
                                  .arg(verb->name),
                              ExitBadArguments);
    if (line.has(QStringLiteral("--dword")) && QLatin1String(verb->name) != QLatin1String("set"))
        return m_console.fail(
            QStringLiteral("store %1: --dword goes with set only").arg(verb->name),
            ExitBadArguments);

    const QString verbName = QLatin1String(verb->name);
    std::optional<RegFile::KeyPath> key;
    if (verbName != QLatin1String("import") && verbName != QLatin1String("export")) {
        key = keyArgument(rest.first());
        if (!key)
            return m_console.fail(
                QStringLiteral("store %1: KEY must begin with HKLM\\ or HKCU\\, not \"%2\"")
                    .arg(verbName, rest.first()),
                ExitBadArguments);
    }

    if (verbName == QLatin1String("get"))
        return get(*key, rest.at(1));
    if (verbName == QLatin1String("set"))
        return set(*key, rest.at(1), rest.at(2), line.has(QStringLiteral("--dword")));
    if (verbName == QLatin1String("delete"))
        return remove(*key, rest.mid(1));
    if (verbName == QLatin1String("list"))
        return list(*key);
    if (verbName == QLatin1String("export"))
        return exportKeys(rest);
    return importFile(rest.first());
}

std::optional<RegFile::KeyPath> StoreCommand::keyArgument(const QString& text) const
{
    QString path = text;
    path.replace(QLatin1Char('/'), QLatin1Char('\\'));
    return RegFile::parseKeyPath(path);
}

int StoreCommand::noKey(const QString& key) const
{
    return m_console.fail(QStringLiteral("no key %1").arg(SettingsStore::visibleName(key)),
                          ExitNotFound);
}

int StoreCommand::openStore(StoreGate::Access access)
{
    if (const int code = StoreGate::open(access, m_console))
        return code;
    m_store = &SettingsStore::process();
    return ExitDone;
}

int StoreCommand::writeFailed(const QString& what) const
{
    return m_console.fail(QStringLiteral("%1: %2").arg(what, m_store->lastFailure()),
                          ExitUnavailable);
}

int StoreCommand::get(const RegFile::KeyPath& key, const QString& name)
{
    if (const int code = openStore(StoreGate::Access::Read))
        return code;
    QVariant value;
    const qint32 status = ReadValue(qint32(key.hive), key.path, name, value);
    if (status == -1)
        return m_console.fail(
            QStringLiteral("value \"%1\" is neither text nor a dword; see it with export")
                .arg(name),
            ExitUnavailable);
    if (status != SettingsStore::Success)
        return ExitNotFound;
    m_console.out << TextOf(value) << Qt::endl;
    return ExitDone;
}

int StoreCommand::set(const RegFile::KeyPath& key, const QString& name, const QString& value,
                      bool dword)
{
    QVariant stored = value;
    if (dword) {
        const auto number = dwordOf(value);
        if (!number)
            return m_console.fail(
                QStringLiteral("store set: \"%1\" is not a 32-bit number").arg(value),
                ExitBadArguments);
        stored = *number;
    }
    if (const int code = openStore(StoreGate::Access::Write))
        return code;
    // A value the store refuses leaves no new key behind either.
    SettingsStore::Transaction transaction(*m_store);
    const qint32 status =
        WriteValue(qint32(key.hive), key.path, name, dword ? REG_DWORD : REG_SZ, stored);
    if (status == SettingsStore::InvalidParameter)
        return m_console.fail(QStringLiteral("store set: ") + m_store->lastFailure(),
                              ExitBadArguments);
    if (status != SettingsStore::Success || !transaction.commit())
        return writeFailed(QStringLiteral("store set: the value can't be written"));
    return ExitDone;
}

int StoreCommand::remove(const RegFile::KeyPath& key, const QStringList& name)
{
    if (const int code = openStore(StoreGate::Access::Write))
        return code;
    const QString display = RegFile::hiveName(key.hive) + QLatin1Char('\\') + key.path;
    if (name.isEmpty()) {
        const qint32 status = m_store->deleteKeyTree(key.hive, key.path);
        if (status == SettingsStore::FileNotFound)
            return noKey(display);
        if (status == SettingsStore::AccessDenied)
            return m_console.fail(QStringLiteral("store delete: a hive cannot be deleted"),
                                  ExitBadArguments);
        if (status != SettingsStore::Success)
            return writeFailed(QStringLiteral("store delete: the key can't be deleted"));
        return ExitDone;
    }
    SettingsStore::Handle handle = 0;
    if (m_store->openKey(key.hive, key.path, handle) != SettingsStore::Success)
        return noKey(display);
    const qint32 status = m_store->deleteValue(handle, name.first());
    m_store->closeKey(handle);
    if (status == SettingsStore::FileNotFound)
        return m_console.fail(
            QStringLiteral("no value \"%1\" in %2")
                .arg(SettingsStore::visibleName(name.first()), SettingsStore::visibleName(display)),
            ExitNotFound);
    if (status != SettingsStore::Success)
        return writeFailed(QStringLiteral("store delete: the value can't be deleted"));
    return ExitDone;
}

int StoreCommand::list(const RegFile::KeyPath& key)
{
    if (const int code = openStore(StoreGate::Access::Read))
        return code;
    SettingsStore::Handle handle = 0;
    if (m_store->openKey(key.hive, key.path, handle) != SettingsStore::Success)
        return noKey(RegFile::hiveName(key.hive) + QLatin1Char('\\') + key.path);
    QString name;
    for (quint32 index = 0; m_store->enumKey(handle, index, name) == SettingsStore::Success;
         ++index)
        m_console.out << SettingsStore::visibleName(name) << '\n';
    m_console.out.flush();
    m_store->closeKey(handle);
    return ExitDone;
}

int StoreCommand::exportKeys(const QStringList& key)
{
    const auto path = key.isEmpty() ? std::nullopt : keyArgument(key.first());
    if (!key.isEmpty() && !path)
        return m_console.fail(
            QStringLiteral("store export: KEY must begin with HKLM\\ or HKCU\\, not \"%1\"")
                .arg(key.first()),
            ExitBadArguments);
    if (const int code = openStore(StoreGate::Access::Read))
        return code;
    RegFile file(*m_store);
    QString text;
    const auto unreadable = [this] {
        return m_console.fail(
            QStringLiteral("store export: the store can't be read: %1").arg(m_store->lastFailure()),
            ExitUnavailable);
    };
    if (!path) {
        if (file.exportAll(text) != SettingsStore::Success)
            return unreadable();
    } else {
        const qint32 status = file.exportKey(*path, text);
        if (status == SettingsStore::FileNotFound)
            return noKey(key.first());
        if (status != SettingsStore::Success)
            return unreadable();
    }
    m_console.out << text;
    m_console.out.flush();
    // Whatever else there is must still reach the backup; what can't must not go unnoticed.
    if (!file.leftOut().isEmpty())
        return m_console.fail(QStringLiteral("store export: left out what no .reg line can name "
                                             "(delete it, or set it again by another name): %1")
                                  .arg(file.leftOut().join(QStringLiteral(", "))),
                              ExitUnavailable);
    return ExitDone;
}

int StoreCommand::importFile(const QString& fileName)
{
    QFile file;
    const bool fromInput = fileName == QLatin1String("-");
    const bool opened = fromInput ? file.open(stdin, QIODevice::ReadOnly)
                                  : (file.setFileName(fileName), file.open(QIODevice::ReadOnly));
    if (!opened)
        return m_console.fail(QStringLiteral("%1: %2").arg(fileName, file.errorString()),
                              ExitUnavailable);
    const QString text = QString::fromUtf8(file.readAll());
    if (const int code = openStore(StoreGate::Access::Write))
        return code;
    const RegFile::ImportResult result = RegFile(*m_store).importText(text);
    if (!result.ok)
        return m_console.fail(
            QStringLiteral("%1: %2; nothing was imported")
                .arg(fromInput ? QStringLiteral("standard input") : fileName, result.error),
            ExitUnavailable);
    m_console.out << QStringLiteral("imported: %1 %2, %3 %4")
                         .arg(result.keys)
                         .arg(result.keys == 1 ? "key" : "keys")
                         .arg(result.values)
                         .arg(result.values == 1 ? "value" : "values")
                  << Qt::endl;
    return ExitDone;
}
