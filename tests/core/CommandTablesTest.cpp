#include "core/CommandTables.h"

#include "support/ServicesFixture.h"

namespace {
class CommandTablesTest : public ServicesFixture
{
protected:
    void SetUp() override
    {
        ServicesFixture::SetUp();
        QByteArray catalogue;
        for (int line = 1; line <= 80; ++line)
            catalogue += "text " + QByteArray::number(line) + "\n";
        writeMessageFile(QStringLiteral("en"), catalogue);
    }
};

TEST_F(CommandTablesTest, TheToolbarHasFourteenRowsOfEightFields)
{
    const QStringList rows = GetToolbarConfiguration();
    ASSERT_EQ(rows.size(), 14);
    for (const QString& row : rows)
        EXPECT_EQ(row.split('\n').size(), 8) << row.toStdString();
    EXPECT_EQ(rows[0], QStringLiteral("DoEnablePolling\ntext 44\n\ntext 45\ntext 45\nFALSE\n") +
                           programFolder() + QStringLiteral("/icons/EnablePolling.ico\n3"));
    EXPECT_EQ(rows[10].split('\n').mid(0, 6),
              (QStringList{"DoDisablePrinter", "text 42", "S", "text 58", "text 58", "TRUE"}));
    EXPECT_TRUE(rows[13].startsWith(QStringLiteral("DoDisplayOptions\ntext 61\n")));
}

TEST_F(CommandTablesTest, TheMenuHasTwelveRowsWithMarksBetween)
{
    const QStringList rows = GetMenuConfiguration();
    ASSERT_EQ(rows.size(), 12);
    EXPECT_EQ(rows[0], QStringLiteral("-1"));
    EXPECT_EQ(rows[3], QStringLiteral("-3\nEdit\n"));
    EXPECT_EQ(rows[8], QStringLiteral("-4\nMonitoring\n"));
    EXPECT_EQ(rows[10], QStringLiteral("-5"));
    EXPECT_EQ(rows[1].split('\n').mid(0, 3), (QStringList{"0", "DoAddGroup", "text 48"}));
    for (int command : {1, 2, 4, 5, 6, 7, 9, 11})
        EXPECT_EQ(rows[command].split('\n').size(), 9) << command;
    // Help has no icon: two line feeds stand side by side before the number.
    EXPECT_EQ(rows[11], QStringLiteral("0\nDoHelp\ntext 71\n\ntext 72\ntext 73\nFALSE\n\n1"));
}
} // namespace
