#include "CommandLine.h"

CommandLine::CommandLine(const QStringList& words, const QSet<QString>& flags,
                         const QSet<QString>& options)
{
    bool flagsEnded = false;
    QString pendingOption;
    for (const QString& word : words) {
        if (!pendingOption.isEmpty()) {
            m_values[std::exchange(pendingOption, QString())].append(word);
            continue;
        }
        const bool looksLikeFlag =
            word.startsWith(QLatin1String("--")) || word == QLatin1String("-h");
        if (flagsEnded || !looksLikeFlag) {
            m_positional.append(word);
        } else if (word == QLatin1String("--")) {
            flagsEnded = true;
        } else if (word == QLatin1String("--help") || word == QLatin1String("-h")) {
            m_bHelp = true;
        } else if (flags.contains(word)) {
            m_given.insert(word);
        } else if (options.contains(word)) {
            pendingOption = word;
        } else if (m_unknown.isEmpty()) {
            m_unknown = word;
        }
    }
    m_missingValue = pendingOption;
}

std::optional<QString> CommandLine::value(const QString& option) const
{
    const auto found = m_values.constFind(option);
    return found == m_values.constEnd() ? std::nullopt : std::optional<QString>(found->last());
}

QStringList CommandLine::values(const QString& option) const
{
    return m_values.value(option);
}

int Console::fail(const QString& message, ExitCode code) const
{
    err << "vigilctl: " << message << Qt::endl;
    return code;
}

std::optional<std::pair<QString, QString>> NameAndValue(const QString& word)
{
    const qsizetype equals = word.indexOf(QLatin1Char('='));
    if (equals <= 0)
        return std::nullopt;
    return std::make_pair(word.left(equals).trimmed(), word.mid(equals + 1));
}
