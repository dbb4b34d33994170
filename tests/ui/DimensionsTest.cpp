// The dimensions calculator: its figures, and the page that shows them for a coder.

#include "pages/DimensionsCalculator.h"
#include "pages/ctlDominoCPage4.h"
#include "ui/PageFixture.h"

#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

namespace {
using namespace DimensionsCalculator;

// Direction 1, orientation 0, 100 dpi and a photocell delay of 1000 dots.
const QByteArray SetupList = QByteArrayLiteral("a,b,c,100,1000,x,4,0,0,1,0\xFE");

TEST(DimensionsCalculatorTest, TheFiguresComeOutAsTheCoderMakersGiveThem)
{
    // The speed and the photocell distance are checked as the page shows them.
    EXPECT_EQ(GeneralFormat(Width(300, true)), QStringLiteral("5548.63"));
    EXPECT_EQ(GeneralFormat(Width(300, false)), QStringLiteral("218.45"));
    EXPECT_EQ(GeneralFormat(ConvertUnits(150, FeetToMetres)), QStringLiteral("45.72"));
    EXPECT_EQ(ConvertUnits(7.5, 3), 7.5);

    // Nothing to divide by: every figure is 0.
    EXPECT_EQ(GeneralFormat(Speed(3000, 0, true)), QStringLiteral("0"));
    EXPECT_EQ(FourDecimals(PhotocellDistance(1000, 0, true)), QStringLiteral("0.0000"));
    EXPECT_EQ(GeneralFormat(Width(0, false)), QStringLiteral("0"));
    EXPECT_EQ(GeneralFormat(Speed(3000, 3'000'000, true)), QStringLiteral("0"));
    EXPECT_EQ(GeneralFormat(Speed(0, 300, true)), QStringLiteral("0"));
}

TEST(DimensionsCalculatorTest, AHeadIsItsTypeThenItsFrequencyInHundreds)
{
    const std::tuple<const char*, qint32, qint32> heads[] = {
        {"130", 1, 30}, {"30", 0, 30}, {"5", 0, 5}, {"405", 4, 5}, {"", 0, 0}, {"1x0", 0, 0}};
    for (const auto& [text, type, frequency] : heads) {
        const HeadSetting head = ParseHead(QString::fromLatin1(text));
        EXPECT_EQ(head.type, type) << text;
        EXPECT_EQ(head.frequencyHundreds, frequency) << text;
    }
}

class DimensionsPageTest : public PageFixture
{
protected:
    void SetUp() override
    {
        PageFixture::SetUp();
        writeCatalogue(260, {{188, "Right to left"},
                             {190, "Normal"},
                             {194, "Type 1"},
                             {201, "100 dpi"},
                             {208, "Implicit Values (metric)"},
                             {209, "Implicit Values (imperial)"},
                             {214, "ft/min"},
                             {215, "m/min"},
                             {216, "inches"},
                             {217, "mm"}});
    }

    std::unique_ptr<ctlDominoCPage4> dimensionsPage(clsDominoHandlerC& handler)
    {
        auto page = std::make_unique<ctlDominoCPage4>();
        page->Setup(handler.m_sName, &handler);
        return page;
    }

    static QStringList figures(const QWidget& page)
    {
        QStringList found;
        for (const char* box : {"txtSpeed", "txtPhotocellDistance", "txtWidth"})
            found.append(ChildOf<QLineEdit>(page, box).text());
        return found;
    }
    static QStringList units(const QWidget& page)
    {
        return {ChildOf<QGroupBox>(page, "fraCalcs").title(),
                ChildOf<QLabel>(page, "lblSpeedUnits").text(),
                ChildOf<QLabel>(page, "lblPhotocelDistUnitis").text(),
                ChildOf<QLabel>(page, "lblWidthUnits").text()};
    }
    static QString selected(const QWidget& page, const char* combo)
    {
        return ChildOf<QComboBox>(page, combo).currentText();
    }
};

TEST_F(DimensionsPageTest, TheCodersSetUpGivesTheFiguresInTheUnitsOfEachPrinter)
{
    clsDominoHandlerC& line1 = coder(QStringLiteral("Line 1"));
    clsDominoHandlerC& line2 = coder(QStringLiteral("Line 2"));
    auto page = dimensionsPage(line1);
    answerRound(line1, statusReport({"Head 1 : 130"}), SetupList);
    EXPECT_EQ((QStringList{selected(*page, "cboDirection"), selected(*page, "cboOrientation"),
                           selected(*page, "cboType"), selected(*page, "cboDpi"),
                           ChildOf<QLineEdit>(*page, "txtFrequency").text()}),
              (QStringList{"Right to left", "Normal", "Type 1", "100 dpi", "3000"}));
    EXPECT_EQ(figures(*page), (QStringList{"45.72", "254.0000", "16645.89"}));
    EXPECT_EQ(units(*page), (QStringList{"Implicit Values (metric)", "m/min", "mm", "mm"}));

    ChildOf<QPushButton>(*page, "cmdUnits").click();
    EXPECT_EQ(figures(*page), (QStringList{"150", "10.0000", "655.35"}));
    EXPECT_EQ(units(*page),
              (QStringList{"Implicit Values (imperial)", "ft/min", "inches", "inches"}));

    // The choice is this printer's, kept in its node and saved with the tree at once.
    QString stored;
    ASSERT_TRUE(g_oComponents->FindPrinter("Line 1")->GetStoredSetting(
        ctlDominoCPage4::UnitsSetting, stored));
    EXPECT_EQ(stored, QStringLiteral("False"));
    EXPECT_EQ(storedValue(DefaultRootKey + "\\Printers\\ID1", "Ext.0.Value"), QVariant("False"));
    page.reset();
    EXPECT_EQ(units(*dimensionsPage(line1)).at(1), QStringLiteral("ft/min"));
    EXPECT_EQ(units(*dimensionsPage(line2)).at(1), QStringLiteral("m/min"));

    // A flag that doesn't read is passed over.
    g_oComponents->FindPrinter("Line 2")->AddStoredSetting(ctlDominoCPage4::UnitsSetting,
                                                           QStringLiteral("maybe"));
    EXPECT_EQ(units(*dimensionsPage(line2)).at(1), QStringLiteral("m/min"));
    EXPECT_TRUE(m_dialogs->boxes().isEmpty());
}

TEST_F(DimensionsPageTest, WhatTheListsDontHaveLeavesThemAndTheFiguresAreZeroWithoutAResolution)
{
    clsDominoHandlerC& handler = coder(QStringLiteral("Coder"));
    auto page = dimensionsPage(handler);
    // Not read yet: resolution 0, head "000".
    EXPECT_EQ(ChildOf<QComboBox>(*page, "cboDpi").currentIndex(), -1);
    EXPECT_EQ(figures(*page), (QStringList{"0", "0.0000", "0"}));

    answerRound(handler, statusReport({"Head 1 : 130"}), SetupList);
    // Head type 0 and 7 dpi are on no list: the lists keep what they showed.
    answerRound(handler, statusReport({"Head 1 : 30"}),
                QByteArrayLiteral("a,b,c,7,1000,x,4,0,0,1,0\xFE"));
    EXPECT_EQ(selected(*page, "cboType"), QStringLiteral("Type 1"));
    EXPECT_EQ(selected(*page, "cboDpi"), QStringLiteral("100 dpi"));
    EXPECT_EQ(ChildOf<QLineEdit>(*page, "txtFrequency").text(), QStringLiteral("3000"));

    // A frequency of 0 makes no speed, but the rest still works.
    answerRound(handler, statusReport({"Head 1 : 100"}), SetupList);
    EXPECT_EQ(figures(*page), (QStringList{"0", "254.0000", "16645.89"}));

    // Without its node the page keeps the choice for as long as it lives.
    g_oComponents->FindPrinter("Coder")->m_sName = QStringLiteral("Renamed");
    ChildOf<QPushButton>(*page, "cmdUnits").click();
    EXPECT_EQ(units(*page).at(1), QStringLiteral("ft/min"));
    handler.RaiseStatusChanged(false);
    EXPECT_EQ(units(*page).at(1), QStringLiteral("ft/min"));
    EXPECT_TRUE(m_dialogs->boxes().isEmpty());
}
} // namespace
