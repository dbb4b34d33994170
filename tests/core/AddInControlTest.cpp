#include "core/PresentTime.h"
#include "core/TreeFixture.h"
#include "support/FakeClock.h"

namespace {
class AddInControlTest : public TreeFixture
{
protected:
    void SetUp() override
    {
        TreeFixture::SetUp();
        m_clock = std::make_shared<FakeClock>();
        m_clock->setNow(QDateTime(QDate(2026, 11, 22), QTime(7, 5, 9)));
        InstallClock(m_clock);
    }

    void TearDown() override
    {
        InstallClock(nullptr);
        TreeFixture::TearDown();
    }

    std::shared_ptr<FakeClock> m_clock;
};

TEST_F(AddInControlTest, NewIdsTellGroupsFromPrintersAndNeverRepeat)
{
    const QString group = m_control->CreateUniqueID(true);
    EXPECT_EQ(group, QStringLiteral("GP221126070509"));
    EXPECT_EQ(group.size(), 14);

    // Three printers added in one second: the base, then the base with 1 and with 2.
    QStringList ids;
    for (int i = 0; i < 3; ++i) {
        ids.append(m_control->CreateUniqueID(false));
        printer(ids.last(), QStringLiteral("P%1").arg(i), *g_oComponents);
    }
    EXPECT_EQ(ids, (QStringList{"ID221126070509", "ID2211260705091", "ID2211260705092"}));
    // Asked twice before adding, the same id comes twice.
    EXPECT_EQ(m_control->CreateUniqueID(true), m_control->CreateUniqueID(true));
    m_clock->setNow(m_clock->now().addSecs(1));
    EXPECT_EQ(m_control->CreateUniqueID(false), QStringLiteral("ID221126070510"));
}

TEST_F(AddInControlTest, ImageListsAndTreeItemsByKey)
{
    EXPECT_NE(m_control->imlList(0), nullptr);
    EXPECT_NE(m_control->imlList(3), nullptr);
    EXPECT_TRUE(m_dialogs->boxes().isEmpty());
    EXPECT_EQ(m_control->imlList(1), nullptr);
    ASSERT_EQ(m_dialogs->boxes().size(), 1);
    EXPECT_EQ(m_dialogs->boxes()[0].text, QStringLiteral("Image Size not supported"));
    EXPECT_EQ(m_control->GetFromImageList(0, 1), nullptr);

    EXPECT_FALSE(m_control->GetTreeNode("GPRoot"));
    ASSERT_TRUE(m_view.addItem(QString(), "GPRoot", "All Printers", 0));
    const auto item = m_control->GetTreeNode("GPRoot");
    ASSERT_TRUE(item);
    EXPECT_EQ(item->Text(), QStringLiteral("All Printers"));
    m_control->SelectTreeItem("GPRoot");
    EXPECT_EQ(m_view.selectedKey(), QStringLiteral("GPRoot"));
    m_control->SelectTreeItem("Nothing");
    EXPECT_EQ(m_view.selectedKey(), QStringLiteral("GPRoot"));
}
} // namespace
