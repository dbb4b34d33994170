// The message files we ship, checked against each other and against the code that uses them.

#include <QDirIterator>
#include <QFile>
#include <QRegularExpression>
#include <QSet>
#include <QStringList>
#include <gtest/gtest.h>
#include <map>

namespace {
const QString SourceDir = QStringLiteral(VIGIL_SOURCE_DIR);
constexpr int HighestId = 475;

QStringList linesOf(const QString& language)
{
    QFile file(SourceDir + QStringLiteral("/resources/MSG%1/Vigil.msg").arg(language));
    if (!file.open(QIODevice::ReadOnly))
        return {};
    QStringList lines = QString::fromUtf8(file.readAll()).split(QLatin1Char('\n'));
    if (!lines.isEmpty() && lines.last().isEmpty())
        lines.removeLast();
    return lines;
}

QSet<QString> marksOf(const QString& line)
{
    static const QRegularExpression mark(QStringLiteral("%\\d+"));
    QSet<QString> marks;
    for (const auto& match : mark.globalMatch(line))
        marks.insert(match.captured());
    return marks;
}

// Every message id the code names: in a lookup call, or written as MessageId{N} where a
// table holds it.
std::map<int, QString> idsUsedInCode()
{
    static const QRegularExpression use(
        QStringLiteral("(?:GetMessage|FormatMessage)\\(\\s*(\\d+)|MessageId\\{(\\d+)\\}"));
    std::map<int, QString> ids;
    for (const char* folder : {"/src", "/apps"}) {
        QDirIterator files(SourceDir + QLatin1String(folder), {"*.cpp", "*.h"}, QDir::Files,
                           QDirIterator::Subdirectories);
        while (files.hasNext()) {
            QFile file(files.next());
            if (!file.open(QIODevice::ReadOnly))
                continue;
            for (const auto& match : use.globalMatch(QString::fromUtf8(file.readAll()))) {
                const QString id =
                    match.captured(1).isEmpty() ? match.captured(2) : match.captured(1);
                ids.emplace(id.toInt(), file.fileName());
            }
        }
    }
    return ids;
}

TEST(MessageFiles, EnglishAndGermanHoldTheSameMessages)
{
    const QStringList english = linesOf(QStringLiteral("en"));
    const QStringList german = linesOf(QStringLiteral("de"));
    ASSERT_GE(english.size(), HighestId);
    ASSERT_EQ(english.size(), german.size());
    for (qsizetype i = 0; i < english.size(); ++i) {
        const int id = int(i + 1);
        EXPECT_EQ(english[i].isEmpty(), german[i].isEmpty()) << "message " << id;
        EXPECT_EQ(marksOf(english[i]), marksOf(german[i])) << "message " << id;
        for (const QString& line : {english[i], german[i]}) {
            // A comment mark would cut the text, and line ends belong to the file.
            EXPECT_LT(line.indexOf(QStringLiteral("//"), 1), 0) << "message " << id;
            EXPECT_FALSE(line.contains(QLatin1Char('\r'))) << "message " << id;
            EXPECT_FALSE(line.endsWith(QLatin1Char(' '))) << "message " << id;
        }
    }
}

// The developers' table of message roles: each id with its number of arguments.
std::map<int, int> rolesTable()
{
    static const QRegularExpression row(
        QStringLiteral("^\\|\\s*(\\d+)\\s*\\|.*\\|\\s*(\\d+)\\s*\\|$"));
    std::map<int, int> roles;
    QFile file(SourceDir + QStringLiteral("/docs/message-roles.md"));
    if (!file.open(QIODevice::ReadOnly))
        return roles;
    for (const QString& line : QString::fromUtf8(file.readAll()).split(QLatin1Char('\n'))) {
        if (const auto match = row.match(line.trimmed()); match.hasMatch())
            roles.emplace(match.captured(1).toInt(), match.captured(2).toInt());
    }
    return roles;
}

TEST(MessageFiles, EachRoleHasATextWithAMarkForEachArgument)
{
    const QStringList english = linesOf(QStringLiteral("en"));
    const auto roles = rolesTable();
    ASSERT_GT(roles.size(), 300u);
    for (const auto& [id, arguments] : roles) {
        const QString text = english.value(id - 1);
        EXPECT_FALSE(text.isEmpty()) << "message " << id;
        QSet<QString> expected;
        for (int argument = 1; argument <= arguments; ++argument)
            expected.insert(QStringLiteral("%%1").arg(argument));
        EXPECT_EQ(marksOf(text), expected) << "message " << id;
    }
    // Every text belongs to a role: a line nobody uses stays empty, so numbering holds.
    for (qsizetype i = 0; i < english.size(); ++i)
        EXPECT_TRUE(english[i].isEmpty() || roles.count(int(i + 1))) << "message " << i + 1;
}

TEST(MessageFiles, EveryIdTheCodeUsesHasAText)
{
    const QStringList english = linesOf(QStringLiteral("en"));
    const QStringList german = linesOf(QStringLiteral("de"));
    for (const auto& [id, file] : idsUsedInCode()) {
        EXPECT_FALSE(english.value(id - 1).isEmpty())
            << "message " << id << " used in " << file.toStdString();
        EXPECT_FALSE(german.value(id - 1).isEmpty())
            << "message " << id << " used in " << file.toStdString();
    }
}
} // namespace
