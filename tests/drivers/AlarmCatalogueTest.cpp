#include "drivers/clsAlarms.h"
#include "services/VigilError.h"
#include "support/ServicesFixture.h"

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

class AlarmCatalogueTest : public ServicesFixture
{
protected:
    void SetUp() override
    {
        ServicesFixture::SetUp();
        ResetAlarmLookup();
    }

    void TearDown() override
    {
        ResetAlarmLookup();
        ServicesFixture::TearDown();
    }

    std::optional<VigilError> load(const QByteArray& text)
    {
        m_alarms = clsAlarmCollection();
        writeFile(QStringLiteral("alarms.txt"), text);
        return failureOf(
            [&] { m_alarms.LoadFile(programFolder() + QStringLiteral("/alarms.txt")); });
    }

    void writeCatalogue(const QByteArray& text) const
    {
        writeFile(QStringLiteral("MSGen/ASeriesAlerts.txt"), text);
    }

    clsAlarmCollection m_alarms;
};

TEST_F(AlarmCatalogueTest, LinesGiveNumberLevelAndText)
{
    EXPECT_FALSE(load("1\t0\tJet stopped\r\n\n  \t \r\n2\t1\n"
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

TEST_F(AlarmCatalogueTest, ABadLineStopsTheLoadAndKeepsWhatCameBefore)
{
    // "07" is "7" once converted.
    auto failure = load("7\t1\tInk low\n5\t0\tJet stopped\n07\t2\tInk empty\n9\t1\tBehind\n");
    ASSERT_TRUE(failure);
    EXPECT_EQ(failure->number(), 457);
    EXPECT_EQ(idsOf(m_alarms), QStringList({"7", "5"}));
    EXPECT_EQ(m_alarms.Item("7")->AlarmText, QStringLiteral("Ink low"));

    failure = load("1\t1\tInk low\nx\t1\tNot a number\n3\t1\tBehind\n");
    ASSERT_TRUE(failure);
    EXPECT_EQ(failure->number(), VigilError::TypeMismatch);
    EXPECT_EQ(idsOf(m_alarms), QStringList({"1"}));

    EXPECT_TRUE(load("1\tlow\tLevel not a number\n"));
}

TEST_F(AlarmCatalogueTest, KindOneIsReadOnceAndNoOtherKindIsKnown)
{
    writeCatalogue("3\t2\tGutter fault\n");
    clsAlarmCollection& catalogue = GetAlarmLookup(1);
    writeCatalogue("3\t1\tChanged\n4\t1\tNew\n");

    const auto failure = failureOf([] { GetAlarmLookup(2); });
    ASSERT_TRUE(failure);
    EXPECT_EQ(failure->number(), static_cast<qint32>(0x80040202u));
    EXPECT_EQ(failure->source(), QStringLiteral("KorvexVigil.GetAlarmLookup"));
    EXPECT_EQ(failure->description(), QStringLiteral("unknown alarm lookup"));
    EXPECT_EQ(&GetAlarmLookup(1), &catalogue);
    EXPECT_EQ(idsOf(catalogue), QStringList({"3"}));
    EXPECT_EQ(catalogue.Item("3")->AlarmText, QStringLiteral("Gutter fault"));
}
} // namespace
