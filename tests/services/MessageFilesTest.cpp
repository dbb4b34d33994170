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

QString readText(const QString& path)
{
    QFile file(SourceDir + path);
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

QStringList linesOf(const QString& language)
{
    QStringList lines =
        readText(QStringLiteral("/resources/MSG%1/Vigil.msg").arg(language)).split('\n');
    if (lines.last().isEmpty())
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
            const QString path = files.next().mid(SourceDir.size());
            for (const auto& match : use.globalMatch(readText(path)))
                ids.emplace((match.captured(1) + match.captured(2)).toInt(), path);
        }
    }
    return ids;
}

// Every language the chain can choose, beside English.
const QStringList Translations{"da", "de", "es", "fr", "it", "nl", "pt", "sv"};

TEST(MessageFiles, EveryLanguageHoldsTheSameMessages)
{
    const QStringList english = linesOf(QStringLiteral("en"));
    ASSERT_GE(english.size(), HighestId);
    for (const QString& language : Translations) {
        SCOPED_TRACE(language.toStdString());
        const QStringList translated = linesOf(language);
        ASSERT_EQ(english.size(), translated.size());
        for (qsizetype i = 0; i < english.size(); ++i) {
            const int id = int(i + 1);
            EXPECT_EQ(english[i].isEmpty(), translated[i].isEmpty()) << "message " << id;
            EXPECT_EQ(marksOf(english[i]), marksOf(translated[i])) << "message " << id;
            EXPECT_EQ(english[i].count(QStringLiteral("\\n")),
                      translated[i].count(QStringLiteral("\\n")))
                << "message " << id;
            const QString& line = translated[i];
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
    for (const QString& line : readText(QStringLiteral("/docs/message-roles.md")).split('\n'))
        if (const auto match = row.match(line.trimmed()); match.hasMatch())
            roles.emplace(match.captured(1).toInt(), match.captured(2).toInt());
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

// Every language has the same empty lines as English (checked above), so English suffices.
TEST(MessageFiles, EveryIdTheCodeUsesHasAText)
{
    const QStringList english = linesOf(QStringLiteral("en"));
    for (const auto& [id, file] : idsUsedInCode())
        EXPECT_FALSE(english.value(id - 1).isEmpty())
            << "message " << id << " used in " << file.toStdString();
}
} // namespace
