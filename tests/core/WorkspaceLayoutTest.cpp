#include "core/WorkspaceLayout.h"

#include <gtest/gtest.h>

namespace {
using Rect = WorkspaceLayout::Rect;

WorkspaceLayout::Design design()
{
    WorkspaceLayout::Design d;
    d.minPaneWidth = 1500;
    d.splitterWidth = 60;
    d.hScrollHeight = d.vScrollWidth = 255;
    return d;
}

TEST(WorkspaceLayoutTest, TheSplitterKeepsBothPanesAtTheirSmallestWidths)
{
    WorkspaceLayout layout(design(), 3000);
    layout.UserControl_Resize(12000, 8000);
    EXPECT_EQ(layout.tree(), (Rect{0, 0, 3000, 8000}));
    // The page pane stops one splitter's width short of the right edge.
    EXPECT_EQ(layout.pageParent(), (Rect{0 + 3060, 0, 12000 - 3060 - 60, 8000}));

    layout.fSplitter_MouseMove(1, 500); // the left button drags
    EXPECT_TRUE(layout.splitterMoving());
    EXPECT_EQ(layout.splitter().left, 3500);
    layout.fSplitter_MouseMove(0, 5000); // no button: nothing moves
    EXPECT_FALSE(layout.splitterMoving());
    EXPECT_EQ(layout.tree().width, 3500);

    layout.MoveSplitter(100); // never narrower than the smallest pane
    EXPECT_EQ(layout.tree().width, 1500);
    layout.MoveSplitter(20000); // the right pane keeps its smallest width first
    EXPECT_EQ(layout.tree().width, 12000 - 60 - 1500);

    // A control narrower than two smallest panes: the tree takes what is left.
    layout.UserControl_Resize(2500, 8000);
    layout.MoveSplitter(2000);
    EXPECT_EQ(layout.tree().width, 2500 - 60 - 1500);
}

TEST(WorkspaceLayoutTest, ScrollBarsAppearOnlyForAPageLargerThanTheFrame)
{
    WorkspaceLayout layout(design(), 3000);
    layout.UserControl_Resize(3060 + 4000 + 60, 4000);
    const Rect exact{0, 0, 4000, 4000};
    layout.frameCustomControlParent_Resize(&exact, false);
    EXPECT_FALSE(layout.hsbHoriz().visible);
    EXPECT_FALSE(layout.vsbVert().visible);
    EXPECT_EQ(layout.frame(), (Rect{0, 0, 4000, 4000}));

    // 40000 twips tall in a frame of 4000: two twips a step, up to 18000.
    const Rect tall{0, 0, 3000, 40000};
    layout.frameCustomControlParent_Resize(&tall, false);
    EXPECT_TRUE(layout.vsbVert().visible);
    EXPECT_FALSE(layout.hsbHoriz().visible);
    EXPECT_EQ(layout.vScrollStep(), 2);
    EXPECT_EQ(layout.vsbVert().maximum, 18000);
    EXPECT_EQ(layout.frame().width, 4000 - 255);
    EXPECT_EQ(layout.vsbVert().largeChange, qint16(qRound((4000 - 3745 / 10.0f) / 2)));
    EXPECT_EQ(layout.vsbVert().rect, (Rect{3745, 0, 255, 4000}));
    layout.setScrollValues(0, 100);
    EXPECT_EQ(layout.pageTop(), -200);

    // The horizontal test comes first and isn't repeated: a vertical bar can cut the page.
    const Rect both{0, 0, 3900, 40000};
    layout.frameCustomControlParent_Resize(&both, false);
    EXPECT_FALSE(layout.hsbHoriz().visible);
    EXPECT_LT(layout.frame().width, 3900);

    // A frame less tall than the step: the step is the frame's height, and the maximum 32767.
    layout.UserControl_Resize(3060 + 4000 + 60, 1);
    const Rect huge{0, 0, 100, 4000000};
    layout.frameCustomControlParent_Resize(&huge, false);
    EXPECT_EQ(layout.vScrollStep(), 1);
    EXPECT_EQ(layout.vsbVert().maximum, WorkspaceLayout::ScrollRangeLimit);

    // With the file view showing, no bar is shown, and with no page the bars go.
    layout.UserControl_Resize(3060 + 4000 + 60, 4000);
    layout.frameCustomControlParent_Resize(nullptr, false);
    EXPECT_FALSE(layout.vsbVert().visible);
    EXPECT_EQ(layout.pageTop(), 0);
}
} // namespace
