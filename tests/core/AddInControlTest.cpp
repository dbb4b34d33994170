#include "core/PresentTime.h"
#include "core/TreeFixture.h"
#include "support/FakeClock.h"

namespace {
using AddInControlTest = TreeFixture;

TEST_F(AddInControlTest, NewIdsTellGroupsFromPrintersAndNeverRepeat)
{
    auto clock = std::make_shared<FakeClock>();
    clock->setNow(QDateTime(QDate(2026, 11, 22), QTime(7, 5, 9)));
    InstallClock(clock);
    EXPECT_EQ(m_control->CreateUniqueID(true), QStringLiteral("GP221126070509"));

    // Three printers added in one second: the base, then the base with 1 and with 2.
    QStringList ids;
    for (int i = 0; i < 3; ++i) {
        ids.append(m_control->CreateUniqueID(false));
        printer(ids.last(), QStringLiteral("P%1").arg(i), *g_oComponents);
    }
    EXPECT_EQ(ids, (QStringList{"ID221126070509", "ID2211260705091", "ID2211260705092"}));
    // Asked twice before adding, the same id comes twice.
    EXPECT_EQ(m_control->CreateUniqueID(true), m_control->CreateUniqueID(true));
    clock->setNow(clock->now().addSecs(1));
    EXPECT_EQ(m_control->CreateUniqueID(false), QStringLiteral("ID221126070510"));
    InstallClock(nullptr);
}

TEST_F(AddInControlTest, OnlyTheTwoIconSizesHaveImageListsAndOnlyKnownItemsAreSelected)
{
    EXPECT_TRUE(m_control->imlList(0) && m_control->imlList(3));
    EXPECT_TRUE(m_dialogs->boxes().isEmpty());
    EXPECT_EQ(m_control->imlList(1), nullptr);
    ASSERT_EQ(m_dialogs->boxes().size(), 1);
    EXPECT_EQ(m_dialogs->boxes()[0].text, QStringLiteral("Image Size not supported"));
    EXPECT_EQ(m_control->GetFromImageList(0, 1), nullptr);

    ASSERT_TRUE(m_view.addItem(QString(), "GPRoot", "All Printers", 0));
    m_control->SelectTreeItem("GPRoot");
    m_control->SelectTreeItem("Nothing");
    EXPECT_EQ(m_view.selectedKey(), QStringLiteral("GPRoot"));
}
} // namespace
