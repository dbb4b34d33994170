#include "FormatCommand.h"

#include "platform/lbx/LabelFormat.h"
#include "services/VigilError.h"

namespace {
const QString SetSuffix = QStringLiteral(".lbs");

QString quoted(const QString& text)
{
    return QLatin1Char('"') + text + QLatin1Char('"');
}
} // namespace

FormatCommand::FormatCommand(const Console& console)
    : m_console(console)
{}

QString FormatCommand::usage()
{
    return QStringLiteral(
        "Usage: vigilctl format show FILE\n"
        "\n"
        "Reads a label format (.fmt) or a label set (.lbs) as the print application does and\n"
        "prints its printer type, description, prompted values (name, prompt, value, maximum\n"
        "length, mask), database keys and, of a set, its elements.\n"
        "Exit code 1, with the file and line of the fault, when the file can't be read or is\n"
        "faulty.\n");
}

int FormatCommand::run(const QStringList& words)
{
    const CommandLine line(words, {});
    if (line.wantsHelp()) {
        m_console.out << usage();
        return ExitDone;
    }
    if (!line.unknownFlag().isEmpty())
        return m_console.fail(QStringLiteral("format: unknown option %1").arg(line.unknownFlag()),
                              ExitBadArguments);
    if (line.positional().size() != 2 || line.positional().first() != QLatin1String("show"))
        return m_console.fail(
            QStringLiteral("format: \"show FILE\" is needed (see vigilctl format --help)"),
            ExitBadArguments);

    const QString path = line.positional().at(1);
    try {
        if (path.endsWith(SetSuffix, Qt::CaseInsensitive))
            showSet(LabelSetFile::read(path));
        else
            showFormat(LabelFormat::read(path));
    } catch (const VigilError& error) {
        return m_console.fail(error.description(), ExitNotFound);
    }
    return ExitDone;
}

void FormatCommand::showFormat(const LabelFormat& format)
{
    m_console.out << "type: " << format.printerType() << '\n'
                  << "description: " << format.description() << '\n';
    showValues(format.prompts(), format.keys());
}

void FormatCommand::showSet(const LabelSetFile& set)
{
    m_console.out << "description: " << set.description() << '\n';
    showValues(set.prompts(), set.keys());
    m_console.out << "elements:\n";
    for (const LabelSetFile::Element& element : set.elements())
        m_console.out << "  " << element.identifier << ": " << element.format.path() << ", type "
                      << element.format.printerType() << '\n';
}

void FormatCommand::showValues(const QList<PromptedValue>& prompts, const QList<DatabaseKey>& keys)
{
    m_console.out << "prompts:\n";
    for (const PromptedValue& prompt : prompts)
        m_console.out << "  " << prompt.VarName << ": prompt " << quoted(prompt.Prompt)
                      << ", value " << quoted(prompt.Value) << ", max length "
                      << (prompt.NoMaxLength ? QStringLiteral("none")
                                             : QString::number(prompt.MaxLength))
                      << ", mask " << quoted(prompt.Mask) << '\n';
    m_console.out << "keys:\n";
    for (const DatabaseKey& key : keys)
        m_console.out << "  " << key.VarName << ": prompt " << quoted(key.Prompt) << ", value "
                      << quoted(key.Value) << ", key field " << key.KeyField << ", data source "
                      << key.DataSource << '\n';
}
