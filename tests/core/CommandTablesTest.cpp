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

TEST_F(CommandTablesTest, TheToolbarAndTheMenuAreRowsOfTextsIconsAndMarks)
{
    const QStringList toolbar = GetToolbarConfiguration();
    ASSERT_EQ(toolbar.size(), 14);
    for (const QString& row : toolbar)
        EXPECT_EQ(row.split('\n').size(), 8) << row.toStdString();
    EXPECT_EQ(toolbar[0], QStringLiteral("DoEnablePolling\ntext 44\n\ntext 45\ntext 45\nFALSE\n") +
                              programFolder() + QStringLiteral("/icons/EnablePolling.ico\n3"));
    EXPECT_EQ(toolbar[10].split('\n').mid(0, 6),
              (QStringList{"DoDisablePrinter", "text 42", "S", "text 58", "text 58", "TRUE"}));

    const QStringList menu = GetMenuConfiguration();
    ASSERT_EQ(menu.size(), 12);
    const QStringList marks{"-1", "",   "", "-3\nEdit\n", "", "", "", "", "-4\nMonitoring\n",
                            "",   "-5", ""};
    for (qsizetype row = 0; row < menu.size(); ++row)
        if (marks[row].isEmpty())
            EXPECT_EQ(menu[row].split('\n').size(), 9) << row;
        else
            EXPECT_EQ(menu[row], marks[row]) << row;
    EXPECT_EQ(menu[1].split('\n').mid(0, 3), (QStringList{"0", "DoAddGroup", "text 48"}));
    // Help has no icon: two line feeds stand side by side before the number.
    EXPECT_EQ(menu[11], QStringLiteral("0\nDoHelp\ntext 71\n\ntext 72\ntext 73\nFALSE\n\n1"));
}
} // namespace
