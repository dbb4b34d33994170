// The alarm catalogue and the Avery error codes: how they are read, and the files we ship.

#include "drivers/clsAlarms.h"
#include "drivers/clsAveryErrorCodes.h"
#include "services/VigilError.h"
#include "support/ServicesFixture.h"

#include <QDir>
#include <QFile>
#include <map>
#include <optional>

namespace {
template <typename Step> std::optional<VigilError> failureOf(Step&& step)
{
    try {
        step();
    } catch (const VigilError& error) {
        return error;
    }
    return std::nullopt;
}

QStringList idsOf(const clsAlarmCollection& alarms)
{
    QStringList ids;
    for (const auto& alarm : alarms.NewEnum())
        ids.append(alarm->AlarmId);
    return ids;
}

// Both process-wide tables start unread.
class CatalogueTest : public ServicesFixture
{
protected:
    void SetUp() override
    {
        ServicesFixture::SetUp();
        ResetAlarmLookup();
        clsAveryErrorCodes::reset();
    }

    void TearDown() override
    {
        ResetAlarmLookup();
        clsAveryErrorCodes::reset();
        ServicesFixture::TearDown();
    }

    QString folder() const { return programFolder() + QLatin1Char('/'); }

    std::optional<VigilError> loadAlarms(const QByteArray& text)
    {
        m_alarms = clsAlarmCollection();
        writeFile(QStringLiteral("alarms.txt"), text);
        return failureOf([&] { m_alarms.LoadFile(folder() + QStringLiteral("alarms.txt")); });
    }

    void loadCodes(const QByteArray& text)
    {
        m_codes = clsAveryErrorCodes();
        m_dialogs->clear();
        writeFile(QStringLiteral("errors.txt"), text);
        m_codes.load(folder(), QStringLiteral("errors.txt"));
    }

    // A failed load shows one box, naming the file.
    void expectFailureShown(const QString& fileName) const
    {
        ASSERT_EQ(m_dialogs->boxes().size(), 1);
        const auto& box = m_dialogs->boxes().first();
        EXPECT_TRUE(box.text.endsWith(QStringLiteral("\r\n") + folder() + fileName));
        EXPECT_TRUE(box.title.startsWith(QStringLiteral("LoadMessageFile - ")));
    }

    clsAlarmCollection m_alarms;
    clsAveryErrorCodes m_codes;
};

TEST_F(CatalogueTest, AlarmLinesGiveNumberLevelAndText)
{
    EXPECT_FALSE(loadAlarms("1\t0\tJet stopped\r\n\n  \t \r\n2\t1\n"
                            " 07\t2\tHigh voltage trip\tignored\n8\t1\tLösungsmittel niedrig\n"));
    // Blank and two-field lines are skipped; the number is kept in its converted form.
    EXPECT_EQ(idsOf(m_alarms), QStringList({"1", "7", "8"}));
    EXPECT_EQ(m_alarms.Item("1")->AlarmText, QStringLiteral("Jet stopped"));
    EXPECT_EQ(m_alarms.Item("7")->AlarmLevel, 2);
    EXPECT_EQ(m_alarms.Item("7")->AlarmText, QStringLiteral("High voltage trip"));
    EXPECT_EQ(m_alarms.Item("8")->AlarmText, QStringLiteral("Lösungsmittel niedrig"));

    m_alarms.Remove("7");
    EXPECT_EQ(idsOf(m_alarms), QStringList({"1", "8"}));
    EXPECT_TRUE(failureOf([&] { m_alarms.Item("7"); }));
    EXPECT_TRUE(failureOf([&] { m_alarms.Remove("7"); }));
}

TEST_F(CatalogueTest, ABadAlarmLineStopsTheLoadAndKeepsWhatCameBefore)
{
    auto failure = loadAlarms("7\t1\tInk low\n5\t0\tJet stopped\n07\t2\tInk empty\n9\t1\tBehind\n");
    ASSERT_TRUE(failure); // "07" is "7" once converted
    EXPECT_EQ(failure->number(), 457);
    EXPECT_EQ(idsOf(m_alarms), QStringList({"7", "5"}));
    EXPECT_EQ(m_alarms.Item("7")->AlarmText, QStringLiteral("Ink low"));

    failure = loadAlarms("1\t1\tInk low\nx\t1\tNot a number\n3\t1\tBehind\n");
    ASSERT_TRUE(failure);
    EXPECT_EQ(failure->number(), VigilError::TypeMismatch);
    EXPECT_EQ(idsOf(m_alarms), QStringList({"1"}));

    EXPECT_TRUE(loadAlarms("1\tlow\tLevel not a number\n"));
}

TEST_F(CatalogueTest, AlarmKindOneIsReadOnceAndNoOtherKindIsKnown)
{
    writeFile(QStringLiteral("MSGen/ASeriesAlerts.txt"), "3\t2\tGutter fault\n");
    clsAlarmCollection& catalogue = GetAlarmLookup(1);
    writeFile(QStringLiteral("MSGen/ASeriesAlerts.txt"), "3\t1\tChanged\n4\t1\tNew\n");

    const auto failure = failureOf([] { GetAlarmLookup(2); });
    ASSERT_TRUE(failure);
    EXPECT_EQ(failure->number(), static_cast<qint32>(0x80040202u));
    EXPECT_EQ(&GetAlarmLookup(1), &catalogue);
    EXPECT_EQ(idsOf(catalogue), QStringList({"3"}));
    EXPECT_EQ(catalogue.Item("3")->AlarmText, QStringLiteral("Gutter fault"));
}

TEST_F(CatalogueTest, AveryLinesGiveCodeLevelAndTheRestAsDescription)
{
    loadCodes("01,2,Ribbon end, replace the ribbon, then press feed\r\n0001,1,Buffer full\n"
              "03,1 (warning),Remark behind the level\n04,,No level\n05,Too few commas\n\n");
    EXPECT_TRUE(m_dialogs->boxes().isEmpty());
    EXPECT_EQ(m_codes.GetErrorLevel("01"), 2);
    EXPECT_EQ(m_codes.GetErrorDescription("01"),
              QStringLiteral("Ribbon end, replace the ribbon, then press feed"));
    EXPECT_EQ(m_codes.GetErrorLevel("0001"), 1);
    EXPECT_EQ(m_codes.GetErrorLevel("03"), 1);
    EXPECT_EQ(m_codes.GetErrorDescription("04"), QStringLiteral("No level"));
    // Skipped lines and codes written otherwise are unknown.
    EXPECT_EQ(m_codes.GetErrorDescription("05"), QString());
    EXPECT_EQ(m_codes.GetErrorDescription("1"), QString());
}

TEST_F(CatalogueTest, AnAveryFailureIsShownAndKeepsWhatWasRead)
{
    loadCodes("01,2,Material end\n01,1,Again\n02,2,Behind\n");
    expectFailureShown(QStringLiteral("errors.txt"));
    EXPECT_EQ(m_codes.GetErrorDescription("01"), QStringLiteral("Material end"));
    EXPECT_EQ(m_codes.GetErrorLevel("02"), 0);

    // A level beyond 16 bits can't be stored.
    loadCodes("01,2,Material end\n02,70000,Too high\n03,1,Behind\n");
    expectFailureShown(QStringLiteral("errors.txt"));
    EXPECT_EQ(m_codes.GetErrorLevel("01"), 2);
    EXPECT_EQ(m_codes.GetErrorDescription("03"), QString());

    m_dialogs->clear();
    m_codes.load(folder(), QStringLiteral("absent.txt"));
    expectFailureShown(QStringLiteral("absent.txt"));
}

TEST_F(CatalogueTest, TheAveryProcessTableIsReadOnceFromTheMessageFolder)
{
    // Missing: shown once, and every code is unknown from then on.
    EXPECT_EQ(clsAveryErrorCodes::process().GetErrorLevel("03"), 0);
    writeFile(QStringLiteral("MSGen/AveryErrors.txt"), "03,2,Print head open\n");
    EXPECT_EQ(clsAveryErrorCodes::process().GetErrorLevel("03"), 0);
    EXPECT_EQ(m_dialogs->boxes().size(), 1);

    clsAveryErrorCodes::reset();
    EXPECT_EQ(clsAveryErrorCodes::process().GetErrorLevel("03"), 2);
    writeFile(QStringLiteral("MSGen/AveryErrors.txt"), "03,1,Changed\n");
    EXPECT_EQ(clsAveryErrorCodes::process().GetErrorDescription("03"),
              QStringLiteral("Print head open"));
}

// The levels in a shipped file, keyed by plain strings so that a mismatch prints readably.
std::map<std::string, qint32> shippedLevels(const char* language, bool alarms)
{
    const QString folder = QStringLiteral(VIGIL_SOURCE_DIR "/resources/MSG") + language + '/';
    const QString name = alarms ? QStringLiteral("ASeriesAlerts.txt") : "AveryErrors.txt";
    QFile file(folder + name);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << name.toStdString();
    const QStringList lines =
        QString::fromUtf8(file.readAll()).split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    std::map<std::string, qint32> levels;
    if (alarms) {
        clsAlarmCollection catalogue;
        EXPECT_NO_THROW(catalogue.LoadFile(folder + name)) << language;
        EXPECT_EQ(catalogue.Count(), lines.size()) << language; // no line skipped for its fields
        for (const auto& alarm : catalogue.NewEnum())
            levels[alarm->AlarmId.toStdString()] = alarm->AlarmLevel;
        return levels;
    }
    clsAveryErrorCodes codes;
    codes.load(folder, name);
    for (const QString& line : lines) {
        const QString code = line.section(QLatin1Char(','), 0, 0);
        EXPECT_FALSE(codes.GetErrorDescription(code).isEmpty()) << code.toStdString();
        levels[code.toStdString()] = codes.GetErrorLevel(code);
    }
    return levels;
}

// Each loads whole, every language agrees with English on numbers, codes and levels, and
// every level is one the handlers know.
TEST_F(CatalogueTest, TheShippedFilesLoadWholeAndAgreeAcrossLanguages)
{
    const QStringList folders =
        QDir(QStringLiteral(VIGIL_SOURCE_DIR "/resources")).entryList({"MSG*"}, QDir::Dirs);
    ASSERT_GT(folders.size(), 1);
    for (const bool alarms : {true, false}) {
        const auto english = shippedLevels("en", alarms);
        EXPECT_GT(english.size(), 20u);
        for (const QString& folder : folders)
            EXPECT_EQ(shippedLevels(folder.mid(3).toLatin1().constData(), alarms), english)
                << folder.toStdString();
        for (const auto& [key, level] : english)
            EXPECT_TRUE(level >= 0 && level <= 2) << key;
    }
    // A duplicate code or a level out of range would have shown a box.
    EXPECT_TRUE(m_dialogs->boxes().isEmpty());
}
} // namespace
