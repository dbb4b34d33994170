#include "MessageCommand.h"

#include "StoreGate.h"
#include "services/ApplicationOptions.h"
#include "services/MessageCatalogue.h"
#include "services/SettingsStore.h"

#include <QFileInfo>

MessageCommand::MessageCommand(const Console& console)
    : m_console(console)
{}

QString MessageCommand::usage()
{
    return QStringLiteral(
        "Usage: vigilctl message ID [ARG...]\n"
        "\n"
        "Prints message ID of the catalogue with %1, %2, ... replaced by the ARGs, in the\n"
        "language the program chooses: the stored Language setting, else the user's language\n"
        "(LANGUAGE, LC_ALL, LC_MESSAGES, LANG), else the system's, else English.\n"
        "The catalogue is MSG<language>/Vigil.msg in the program folder ($VIGIL_HOME, else the\n"
        "folder of vigilctl).\n"
        "Exit code 1 when the catalogue has no text for ID.\n");
}

int MessageCommand::run(const QStringList& words)
{
    const CommandLine line(words, {});
    if (line.wantsHelp()) {
        m_console.out << usage();
        return ExitDone;
    }
    if (!line.unknownFlag().isEmpty())
        return m_console.fail(QStringLiteral("message: unknown option %1").arg(line.unknownFlag()),
                              ExitBadArguments);
    if (line.positional().isEmpty())
        return m_console.fail(
            QStringLiteral("message: an ID is needed (see vigilctl message --help)"),
            ExitBadArguments);
    bool ok = false;
    const qint32 id = line.positional().first().toInt(&ok);
    if (!ok)
        return m_console.fail(QStringLiteral("message: \"%1\" is not a message number")
                                  .arg(line.positional().first()),
                              ExitBadArguments);

    // Without a store the language and the brand words take their defaults; none is made.
    if (!QFileInfo::exists(SettingsStore::defaultFilePath()))
        SettingsStore::install(std::make_shared<SettingsStore>(SettingsStore::defaultFilePath(),
                                                               SettingsStore::Mode::ReadOnly));
    else if (const int code = StoreGate::open(StoreGate::Access::Read, m_console))
        return code;
    if (GetMessage(id).isEmpty())
        return m_console.fail(QStringLiteral("message: no text for %1 in %2%3")
                                  .arg(id)
                                  .arg(GetMessageFolder(), GetMessageFileName()),
                              ExitNotFound);

    QVariantList args;
    for (const QString& arg : line.positional().mid(1))
        args.append(arg);
    // Line breaks in a message are CR LF; a terminal wants LF alone.
    m_console.out << FormatMessage(id, args).replace(QStringLiteral("\r\n"), QStringLiteral("\n"))
                  << Qt::endl;
    return ExitDone;
}
