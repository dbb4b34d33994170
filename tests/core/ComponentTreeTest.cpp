#include "core/ErrorColours.h"
#include "core/GroupHandler.h"
#include "core/TreeFixture.h"

namespace {
using ComponentTreeTest = TreeFixture;

TEST_F(ComponentTreeTest, AGroupsStateIsItsWorstChildAndDisabledOutranksAFault)
{
    clsComponents& root = *g_oComponents;
    EXPECT_TRUE(root.Disabled()); // an empty group
    EXPECT_EQ(root.GetErrorState(), StateGood);

    auto a = printer("ID1", "Line 1", root);
    auto b = printer("ID2", "Line 2", *group("GP1", "Lines", root));
    handlerOf(*a).state = StateFault;
    EXPECT_EQ(root.GetErrorState(), StateFault);
    b->setDisabled(true);
    EXPECT_FALSE(root.Disabled());
    EXPECT_EQ(root.GetErrorState(), StateDisabled);
    root.setDisabled(true);
    EXPECT_TRUE(root.Disabled());
    EXPECT_TRUE(a->Disabled());
    // A group's colour is always that of a good state.
    EXPECT_EQ(root.GetErrorColour(TreePalette, true), LookUpColour(StateGood, TreePalette, true));
}

TEST_F(ComponentTreeTest, FindingNodesByIdAndName)
{
    clsComponents& root = *g_oComponents;
    auto outer = group("GP1", "Outer", root);
    auto inner = group("GP2", "Inner", *outer);
    auto deep = printer("ID3", "Deep", *inner);
    auto empty = group("GP4", "Empty", root);
    root.CreateUI();

    EXPECT_EQ(root.Find("GPRoot"), &root);
    EXPECT_EQ(root.Find("IDGPRoot"), nullptr); // the dashboard node is no child
    EXPECT_EQ(root.FindParent("ID3"), inner.get());
    EXPECT_EQ(root.FindParent("GPRoot"), nullptr);
    EXPECT_EQ(root.FindPrinter("Deep"), deep.get());
    EXPECT_EQ(root.FindPrinter("Outer"), nullptr); // a group is no printer
    EXPECT_TRUE(outer->Contains("ID") && !empty->Contains("ID"));
    EXPECT_TRUE(root.UniqueGroupName("outer"));
    EXPECT_FALSE(root.UniqueGroupName("Outer"));
    EXPECT_TRUE(root.UniqueGroupName("Inner")); // other levels don't count
    EXPECT_THROW(root.Item(QStringLiteral("GP9")), VigilError);
}

TEST_F(ComponentTreeTest, AWalkPollsEachChildThenTheDashboardWithTheGroupsName)
{
    clsComponents& root = *g_oComponents;
    auto a = printer("ID1", "Line 1", root);
    auto b = printer("ID2", "Line 2", root);
    root.CreateUI();
    root.m_sName = QStringLiteral("Renamed");
    root.Process();
    EXPECT_TRUE(handlerOf(*a).calls.contains("Process Line 1"));
    EXPECT_TRUE(handlerOf(*b).calls.contains("Process Line 2"));
    auto* dashboard = qobject_cast<GroupHandler*>(root.DisplayComponent()->GetComponent());
    ASSERT_NE(dashboard, nullptr);
    EXPECT_EQ(dashboard->m_sName, QStringLiteral("Renamed"));

    root.ProcessTimeout(4);
    EXPECT_TRUE(handlerOf(*b).calls.contains("ProcessTimeout 4"));
}

TEST_F(ComponentTreeTest, AWalkStopsWhenTheControlGoesDownInMidWalk)
{
    clsComponents& root = *g_oComponents;
    auto a = printer("ID1", "A", root);
    auto b = printer("ID2", "B", root);
    root.CreateUI();
    int dashboardUpdates = 0;
    QObject::connect(root.DisplayComponent(), &clsComponent::StatusChanged,
                     [&dashboardUpdates] { ++dashboardUpdates; });
    QObject::connect(a.get(), &clsComponent::StatusChanged, [] { g_bExiting = true; });
    root.Process();
    EXPECT_TRUE(handlerOf(*a).calls.contains("Process A"));
    EXPECT_FALSE(handlerOf(*b).calls.contains("Process B"));
    EXPECT_EQ(dashboardUpdates, 0);
}

TEST_F(ComponentTreeTest, AChildRemovedInMidWalkIsSkippedSafely)
{
    clsComponents& root = *g_oComponents;
    auto a = printer("ID1", "A", root);
    printer("ID2", "B", root);
    auto c = printer("ID3", "C", root);
    // As a queue event arriving while a box is open in the first child's poll would.
    QObject::connect(a.get(), &clsComponent::StatusChanged, [&root] {
        if (root.Find("ID2"))
            root.Remove(QStringLiteral("ID2"));
    });
    root.Process();
    EXPECT_EQ(root.Count(), 2);
    EXPECT_TRUE(handlerOf(*c).calls.contains("Process C"));
}

TEST_F(ComponentTreeTest, DeleteTakesTheWholeBranchAndTellsEachPrinter)
{
    clsComponents& root = *g_oComponents;
    auto outer = group("GP1", "Outer", root);
    auto p1 = printer("ID1", "One", *outer);
    auto p2 = printer("ID2", "Two", *outer);
    auto p3 = printer("ID3", "Three", *group("GP2", "Inner", *outer));
    auto kept = printer("ID4", "Kept", root);

    root.Delete(QStringLiteral("GP1"));
    EXPECT_EQ(root.Count(), 1);
    EXPECT_EQ(outer->Count(), 0);
    for (const auto& node : {p1, p2, p3})
        EXPECT_TRUE(handlerOf(*node).calls.contains("Delete")) << node->m_sName.toStdString();

    root.Remove(QStringLiteral("ID4"));
    EXPECT_FALSE(handlerOf(*kept).calls.contains("Delete"));
    EXPECT_THROW(root.Remove(QStringLiteral("ID4")), VigilError);
}

TEST(ErrorColours, StatesOutOfRangeHaveNoColourAndUnknownViewsUseTheTreePalette)
{
    EXPECT_EQ(LookUpColour(StateGood, TreePalette, true), Rgb(0, 178, 0));
    EXPECT_EQ(LookUpColour(StateGood, DashboardPalette, false), Rgb(0, 255, 0));
    EXPECT_EQ(LookUpColour(StateNoAnswer, 7, false), WindowBackground);
    EXPECT_EQ(LookUpColour(6, TreePalette, false), 0u);
    EXPECT_EQ(LookUpColour(-1, DashboardPalette, true), 0u);
}
} // namespace
