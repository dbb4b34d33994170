#include "CommandLine.h"

CommandLine::CommandLine(const QStringList& words, const QSet<QString>& flags)
{
    bool flagsEnded = false;
    for (const QString& word : words) {
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
        } else if (m_unknown.isEmpty()) {
            m_unknown = word;
        }
    }
}

int Console::fail(const QString& message, ExitCode code) const
{
    err << "vigilctl: " << message << Qt::endl;
    return code;
}
