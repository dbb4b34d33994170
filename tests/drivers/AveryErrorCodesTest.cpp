#include "drivers/clsAveryErrorCodes.h"
#include "support/ServicesFixture.h"

namespace {
class AveryErrorCodesTest : public ServicesFixture
{
protected:
    void SetUp() override
    {
        ServicesFixture::SetUp();
        clsAveryErrorCodes::reset();
    }

    void TearDown() override
    {
        clsAveryErrorCodes::reset();
        ServicesFixture::TearDown();
    }

    QString folder() const { return programFolder() + QLatin1Char('/'); }

    void load(const QByteArray& text)
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

    clsAveryErrorCodes m_codes;
};

TEST_F(AveryErrorCodesTest, LinesGiveCodeLevelAndTheRestAsDescription)
{
    load("01,2,Ribbon end, replace the ribbon, then press feed\r\n0001,1,Buffer full\n"
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
    EXPECT_EQ(m_codes.GetErrorLevel("1"), 0);
    EXPECT_EQ(m_codes.GetErrorDescription("1"), QString());
}

TEST_F(AveryErrorCodesTest, AFailureIsShownAndKeepsWhatWasRead)
{
    load("01,2,Material end\n01,1,Again\n02,2,Behind\n");
    expectFailureShown(QStringLiteral("errors.txt"));
    EXPECT_EQ(m_codes.GetErrorDescription("01"), QStringLiteral("Material end"));
    EXPECT_EQ(m_codes.GetErrorLevel("02"), 0);

    // A level beyond 16 bits can't be stored.
    load("01,2,Material end\n02,70000,Too high\n03,1,Behind\n");
    expectFailureShown(QStringLiteral("errors.txt"));
    EXPECT_EQ(m_codes.GetErrorLevel("01"), 2);
    EXPECT_EQ(m_codes.GetErrorDescription("03"), QString());

    m_dialogs->clear();
    m_codes.load(folder(), QStringLiteral("absent.txt"));
    expectFailureShown(QStringLiteral("absent.txt"));
}

TEST_F(AveryErrorCodesTest, TheProcessTableIsReadOnceFromTheMessageFolder)
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
} // namespace
