#pragma once

#include <QHash>
#include <QSet>
#include <QStringList>
#include <QTextStream>
#include <optional>
#include <utility>

enum ExitCode {
    ExitDone = 0,
    ExitNotFound = 1,
    ExitBadArguments = 2,
    ExitUnavailable = 3,
    ExitNotAdministrator = 4,
};

// The words of one command: its positional arguments, its flags, and its options that take
// the next word as their value. "--" ends the flags, so that a value may itself begin with
// "--".
class CommandLine
{
public:
    CommandLine(const QStringList& words, const QSet<QString>& flags,
                const QSet<QString>& options = {});

    const QStringList& positional() const { return m_positional; }
    bool has(const QString& flag) const { return m_given.contains(flag); }
    // The value of an option, or none when it wasn't given; the last one if given again.
    std::optional<QString> value(const QString& option) const;
    // Every value of an option that may be given more than once, in order.
    QStringList values(const QString& option) const;
    // An option given last, without its value, or empty.
    const QString& optionWithoutValue() const { return m_missingValue; }
    bool wantsHelp() const { return m_bHelp; }
    // The first word that looks like a flag this command doesn't know, or empty.
    const QString& unknownFlag() const { return m_unknown; }

private:
    QStringList m_positional;
    QSet<QString> m_given;
    QHash<QString, QStringList> m_values;
    QString m_missingValue;
    QString m_unknown;
    bool m_bHelp = false;
};

// "NAME=VALUE" split at its first "=", the name trimmed; none when no name comes before it.
std::optional<std::pair<QString, QString>> NameAndValue(const QString& word);

// The streams a command writes to, and its one-line failure.
struct Console
{
    QTextStream& out;
    QTextStream& err;

    int fail(const QString& message, ExitCode code) const;
};
