#include "sim/SimKnobs.h"

#include <QJsonDocument>
#include <gtest/gtest.h>

namespace {
SimKnobs knobsOf(const QString& query)
{
    QString error;
    const std::optional<SimKnobs> knobs = SimKnobs::fromQuery(query, error);
    EXPECT_TRUE(knobs.has_value()) << error.toStdString();
    return knobs.value_or(SimKnobs());
}

QJsonObject objectOf(const char* json)
{
    return QJsonDocument::fromJson(json).object();
}

TEST(SimKnobsFromQueryTest, AKnobGivenTwiceOrWithoutANameIsRefused)
{
    QString error;
    EXPECT_FALSE(SimKnobs::fromQuery(QStringLiteral("delay=1&gap=2&delay=1"), error));
    EXPECT_TRUE(error.contains(QStringLiteral("\"delay\""))) << error.toStdString();

    error.clear();
    EXPECT_FALSE(SimKnobs::fromQuery(QStringLiteral("delay=1&=5"), error));
    EXPECT_FALSE(error.isEmpty());
}

TEST(SimKnobsFromQueryTest, ToQueryReadsBackAsTheSameKnobs)
{
    const SimKnobs knobs(QMap<QString, QString>{{"plain", "20"},
                                                {"delimiters", "a&b=c;d#e"},
                                                {"percent", "100%"},
                                                {"escapes", "%41%2F%zz"},
                                                {"encoded", "50%25off %26 %3D %2B"},
                                                {"odd%26name", "x"},
                                                {"spaces", "a b+c"},
                                                {"accents", QStringLiteral("Stra\u00dfe")}});
    EXPECT_EQ(knobsOf(knobs.toQuery()).values(), knobs.values()) << knobs.toQuery().toStdString();
}

TEST(SimKnobsFromJsonTest, NumbersBooleansAndTextsAreKeptAsText)
{
    QString error;
    const std::optional<SimKnobs> knobs = SimKnobs::fromJson(
        objectOf(R"({"delay": 20, "big": 4294967295, "ratio": 2.5, "silent": true,
                     "loud": false, "name": "Line 1"})"),
        error);
    ASSERT_TRUE(knobs) << error.toStdString();
    const QMap<QString, QString> expected{{"delay", "20"},   {"big", "4294967295"},
                                          {"ratio", "2.5"},  {"silent", "true"},
                                          {"loud", "false"}, {"name", "Line 1"}};
    EXPECT_EQ(knobs->values(), expected);

    EXPECT_EQ(knobs->number(QStringLiteral("big"), 0, 0, 0xFFFFFFFFLL, error), 0xFFFFFFFFLL);
    EXPECT_TRUE(knobs->flag(QStringLiteral("silent"), false, error));
    EXPECT_TRUE(error.isEmpty()) << error.toStdString();
    // Only whole numbers are numbers to a knob.
    knobs->number(QStringLiteral("ratio"), 0, 0, 10, error);
    EXPECT_TRUE(error.contains(QStringLiteral("\"ratio\""))) << error.toStdString();
}

TEST(SimKnobsNumberTest, AValueOutOfBoundsOrNotWholeIsRefusedAndTheDefaultKept)
{
    const SimKnobs knobs =
        knobsOf(QStringLiteral("under=-6&over=11&word=twelve&fraction=1.5&hex=0x10&empty="));
    for (const QString& name : knobs.values().keys()) {
        QString error;
        EXPECT_EQ(knobs.number(name, 3, -5, 10, error), 3) << name.toStdString();
        // The message names the knob, the bounds and what was given.
        EXPECT_TRUE(error.contains(QStringLiteral("\"%1\"").arg(name)) &&
                    error.contains(QStringLiteral("-5")) && error.contains(QStringLiteral("10")) &&
                    error.contains(QStringLiteral("\"%1\"").arg(knobs.values().value(name))))
            << error.toStdString();
    }
}

TEST(SimKnobsFlagTest, AnythingElseIsRefusedAndTheDefaultKept)
{
    for (const QString& spelling : QStringList{"maybe", "2", "", "truee"}) {
        const SimKnobs knobs = knobsOf(QStringLiteral("f=") + spelling);
        QString error;
        EXPECT_TRUE(knobs.flag(QStringLiteral("f"), true, error)) << spelling.toStdString();
        EXPECT_TRUE(error.contains(QStringLiteral("\"f\""))) << error.toStdString();
    }
    QString error;
    EXPECT_FALSE(SimKnobs().flag(QStringLiteral("absent"), false, error));
    EXPECT_TRUE(error.isEmpty());
}

} // namespace
