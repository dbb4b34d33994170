#include "platform/qt/QtTreeView.h"

#include "platform/qt/Twips.h"
#include "ui/WidgetApplication.h"

#include <QStyleHints>
#include <QTest>

namespace {
class QtTreeViewTest : public ::testing::Test
{
protected:
    static void SetUpTestSuite() { EnsureWidgetApplication(); }

    QtTreeView m_view;
};

TEST_F(QtTreeViewTest, ItemsAreKnownByKeyWithTheirParents)
{
    EXPECT_TRUE(m_view.addItem({}, "GPRoot", "All Printers", 0));
    EXPECT_TRUE(m_view.addItem("GPRoot", "GP1", "Hall", 0));
    EXPECT_TRUE(m_view.addItem("GP1", "ID1", "Coder", 0));
    EXPECT_TRUE(m_view.addItem("GPRoot", "ID2", "Labeller", 0));
    EXPECT_FALSE(m_view.addItem("GPRoot", "ID2", "Again", 0)); // a key is taken once
    EXPECT_FALSE(m_view.addItem("Nowhere", "ID3", "Lost", 0));
    EXPECT_EQ(m_view.keys(), (QStringList{"GPRoot", "GP1", "ID1", "ID2"}));
    EXPECT_EQ(m_view.parentKey("ID1"), QStringLiteral("GP1"));
    EXPECT_EQ(m_view.parentKey("GPRoot"), QString());

    m_view.selectItem("ID1");
    EXPECT_EQ(m_view.selectedKey(), QStringLiteral("ID1"));
    m_view.setItemText("ID1", "Coder: BATCH (12) [ink low]");
    EXPECT_EQ(m_view.itemText("ID1"), QStringLiteral("Coder: BATCH (12) [ink low]"));
    // A narrow tree cuts the alert off: its tooltip gives the whole text.
    EXPECT_EQ(m_view.item("ID1")->toolTip(0), QStringLiteral("Coder: BATCH (12) [ink low]"));
    EXPECT_EQ(m_view.item("ID2")->toolTip(0), QStringLiteral("Labeller"));

    m_view.removeItem("GP1"); // a group goes with everything below it
    EXPECT_FALSE(m_view.hasItem("ID1"));
    EXPECT_EQ(m_view.keys(), (QStringList{"GPRoot", "ID2"}));
    m_view.clear();
    EXPECT_TRUE(m_view.keys().isEmpty());
}

TEST_F(QtTreeViewTest, ColoursReachTheItemsAndSystemColoursFollowTheDesktop)
{
    m_view.addItem({}, "ID1", "Coder", 0);
    m_view.setItemColours("ID1", 0x0000FF, 0xFFFFFF); // red on white, as 0xBBGGRR
    QTreeWidgetItem* item = m_view.item("ID1");
    EXPECT_EQ(item->background(0).color(), QColor(255, 0, 0));
    EXPECT_EQ(item->foreground(0).color(), QColor(255, 255, 255));

    const QPalette palette = m_view.widget().palette();
    m_view.setItemColours("ID1", 0x80000005, 0x80000012);
    EXPECT_EQ(item->background(0).color(), palette.color(QPalette::Base));
    EXPECT_EQ(item->foreground(0).color(), palette.color(QPalette::ButtonText));
    EXPECT_EQ(QtTreeView::toColor(0x8000000F, palette), palette.color(QPalette::Button));
    EXPECT_EQ(QtTreeView::toColor(0x80000011, palette),
              palette.color(QPalette::Disabled, QPalette::Text));
}

TEST_F(QtTreeViewTest, APointInTwipsFindsTheItemUnderIt)
{
    m_view.widget().resize(300, 200);
    m_view.widget().show();
    m_view.addItem({}, "GPRoot", "All Printers", 0);
    m_view.addItem("GPRoot", "ID1", "Coder", 0);
    m_view.expandItem("GPRoot");
    const QPoint centre = m_view.widget().visualItemRect(m_view.item("ID1")).center();
    EXPECT_EQ(m_view.hitTest(centre.x() * TwipsPerPixel, centre.y() * TwipsPerPixel),
              QStringLiteral("ID1"));
    EXPECT_EQ(m_view.hitTest(10 * TwipsPerPixel, 190 * TwipsPerPixel), QString());
}

TEST_F(QtTreeViewTest, OneLeftClickIsOneNodeClickAndOnlyTheProgramEditsALabel)
{
    QStringList nodeClicks;
    QList<int> buttonsUp;
    TreeHooks hooks;
    hooks.nodeClick = [&](const QString& key) {
        nodeClicks << key;
    };
    hooks.mouseUp = [&](int button, int, float, float) {
        buttonsUp << button;
    };
    TreeWidget& tree = m_view.widget();
    tree.setHooks(hooks);
    tree.resize(300, 200);
    tree.show();
    m_view.addItem({}, "GPRoot", "All Printers", 0);
    m_view.addItem("GPRoot", "GP1", "Hall", 0);
    m_view.addItem("GPRoot", "ID1", "Coder", 0);
    m_view.expandItem("GPRoot");
    m_view.selectItem("ID1");
    const auto centreOf = [&](const QString& key) {
        return tree.visualItemRect(m_view.item(key)).center();
    };

    QTest::mouseClick(tree.viewport(), Qt::LeftButton, {}, centreOf("GP1"));
    EXPECT_EQ(nodeClicks, QStringList{"GP1"});
    QTest::mouseClick(tree.viewport(), Qt::LeftButton, {}, centreOf("GP1")); // selected already
    EXPECT_EQ(nodeClicks, (QStringList{"GP1", "GP1"}));

    // The right button leaves the selection for the menu to act on.
    QTest::mouseClick(tree.viewport(), Qt::RightButton, {}, centreOf("ID1"));
    EXPECT_EQ(m_view.selectedKey(), QStringLiteral("GP1"));
    EXPECT_EQ(nodeClicks.size(), 2);
    EXPECT_EQ(buttonsUp, (QList<int>{1, 1, 2}));

    // Neither a click on the selected label nor F2 opens the editor; the program does.
    const auto editing = [&](const QString& key) {
        return tree.itemWidget(m_view.item(key), 0);
    };
    QStyleHints* hints = QGuiApplication::styleHints();
    const int doubleClickMs = hints->mouseDoubleClickInterval();
    hints->setMouseDoubleClickInterval(0); // a click's edit waits that long for a second click
    m_view.selectItem("GP1");
    QTest::mouseClick(tree.viewport(), Qt::LeftButton, {}, centreOf("GP1"));
    QCoreApplication::processEvents();
    hints->setMouseDoubleClickInterval(doubleClickMs);
    EXPECT_EQ(editing("GP1"), nullptr);
    m_view.selectItem("ID1");
    QTest::keyClick(&tree, Qt::Key_F2);
    EXPECT_EQ(editing("ID1"), nullptr);
    m_view.startLabelEdit("ID1");
    EXPECT_NE(editing("ID1"), nullptr);
}
} // namespace
