// The alarm and error-code files we ship: each loads whole, the languages agree on numbers,
// codes and levels, and every level is one the handlers know.

#include "drivers/clsAlarms.h"
#include "drivers/clsAveryErrorCodes.h"
#include "support/ServicesFixture.h"

#include <QFile>
#include <map>

namespace {
using ShippedCatalogueFiles = ServicesFixture;
// Keyed by plain strings so that a mismatch prints readably.
using Levels = std::map<std::string, qint32>;

QString folderOf(const char* language)
{
    return QStringLiteral(VIGIL_SOURCE_DIR "/resources/MSG") + QLatin1String(language) + '/';
}

QStringList linesOf(const QString& path)
{
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << path.toStdString();
    return QString::fromUtf8(file.readAll()).split(QLatin1Char('\n'), Qt::SkipEmptyParts);
}

Levels alarmLevelsOf(const char* language)
{
    const QString path = folderOf(language) + QStringLiteral("ASeriesAlerts.txt");
    clsAlarmCollection alarms;
    EXPECT_NO_THROW(alarms.LoadFile(path)) << path.toStdString();
    // A line skipped for too few fields would be missing.
    EXPECT_EQ(alarms.Count(), linesOf(path).size()) << path.toStdString();
    Levels levels;
    for (const auto& alarm : alarms.NewEnum())
        levels[alarm->AlarmId.toStdString()] = alarm->AlarmLevel;
    return levels;
}

Levels averyLevelsOf(const char* language)
{
    clsAveryErrorCodes codes;
    codes.load(folderOf(language), QStringLiteral("AveryErrors.txt"));
    Levels levels;
    for (const QString& line : linesOf(folderOf(language) + QStringLiteral("AveryErrors.txt"))) {
        const QString code = line.section(QLatin1Char(','), 0, 0);
        EXPECT_FALSE(codes.GetErrorDescription(code).isEmpty()) << code.toStdString();
        levels[code.toStdString()] = codes.GetErrorLevel(code);
    }
    return levels;
}

void expectSameInBothLanguages(const Levels& english, const Levels& german)
{
    EXPECT_EQ(german, english);
    for (const auto& [key, level] : english)
        EXPECT_TRUE(level >= 0 && level <= 2) << key;
}

TEST_F(ShippedCatalogueFiles, AlarmFilesLoadWholeWithKnownLevels)
{
    expectSameInBothLanguages(alarmLevelsOf("en"), alarmLevelsOf("de"));
}

TEST_F(ShippedCatalogueFiles, AveryErrorFilesLoadWholeWithKnownLevels)
{
    expectSameInBothLanguages(averyLevelsOf("en"), averyLevelsOf("de"));
    // A duplicate code or a level out of range would have shown a box.
    EXPECT_TRUE(m_dialogs->boxes().isEmpty());
}
} // namespace
