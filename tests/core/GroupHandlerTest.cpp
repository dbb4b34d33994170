#include "core/GroupHandler.h"

#include "core/ErrorColours.h"
#include "core/TreeFixture.h"

namespace {
using GroupHandlerTest = TreeFixture;

TEST_F(GroupHandlerTest, TheDashboardHandlerReachesAnyNodeAndRaisesOnADisable)
{
    clsComponents& root = *g_oComponents;
    auto lines = group("GP1", "Lines", root);
    auto line = printer("ID1", "Line 1", *lines);
    root.CreateUI();
    auto* handler = qobject_cast<GroupHandler*>(root.DisplayComponent()->GetComponent());
    ASSERT_NE(handler, nullptr);
    EXPECT_EQ(handler->id(), QStringLiteral("IDGPRoot"));
    EXPECT_EQ(handler->RequestComponent("ID1"), line.get());
    EXPECT_EQ(handler->RequestComponent("GP1"), lines.get());
    EXPECT_EQ(handler->RequestComponent("ID9"), nullptr);

    int raised = 0;
    QObject::connect(handler, &ComponentHandler::StatusChanged, [&raised] { ++raised; });
    root.Process();
    EXPECT_EQ(raised, 1);
    EXPECT_EQ(handler->GetErrorState(), StateNoAnswer);
    handler->setDisabled(true);
    EXPECT_EQ(handler->GetErrorState(), StateDisabled);
    EXPECT_EQ(raised, 2);
}

TEST_F(GroupHandlerTest, ItClaimsNumberZeroAloneAndShowsTheGroupIcon)
{
    GroupHandler handler;
    for (qint32 number : {-1, 0, 1, 784, 2010, 9000})
        EXPECT_EQ(handler.IsPrinterTypeSupported(number), number == 0) << number;
    EXPECT_EQ(handler.PrinterIcon(0), QString()); // no icon file yet
    writeFile(QStringLiteral("Icons/Group.ico"), "icon");
    EXPECT_EQ(handler.PrinterIcon(3), programFolder() + QStringLiteral("/Icons/Group.ico"));
    EXPECT_THROW(handler.CurrentFile(), VigilError);
}

TEST_F(GroupHandlerTest, GroupsWithoutADashboardShareOneIconEntryPerSize)
{
    writeFile(QStringLiteral("Icons/Group.ico"), "icon");
    clsComponents& root = *g_oComponents;
    auto a = group("GP1", "A", root);
    auto b = group("GP2", "B", root);
    ImageList small(0);
    ImageList large(3);
    a->AddImages(small, large);
    b->AddImages(small, large);
    EXPECT_EQ(small.count(), 1);
    EXPECT_EQ(large.count(), 1);
    EXPECT_EQ(a->GetIconIndex(0), 1);
    EXPECT_EQ(b->GetIconIndex(3), 1);
    EXPECT_EQ(a->GetIconIndex(1), 0);

    // With a dashboard, the dashboard node has a pair of its own.
    root.CreateUI();
    root.AddImages(small, large);
    EXPECT_EQ(small.count(), 2);
    EXPECT_EQ(root.GetIconIndex(0), 2);
}
} // namespace
