#include "core/ErrorColours.h"
#include "core/GroupHandler.h"
#include "core/TreeFixture.h"

namespace {
using ComponentNodeTest = TreeFixture;

TEST_F(ComponentNodeTest, OnlyThePrinterNumberChoosesTheHandler)
{
    clsComponent dashboardLike;
    dashboardLike.m_sID = QStringLiteral("ID1");
    ASSERT_NE(qobject_cast<GroupHandler*>(dashboardLike.GetComponent()), nullptr);
    EXPECT_EQ(dashboardLike.m_sRemoteObjectName, QStringLiteral("GroupHandler"));
    EXPECT_EQ(dashboardLike.m_sRemoteObjectControl, QStringLiteral("GroupUI"));
    EXPECT_EQ(dashboardLike.GetErrorState(), StateNoAnswer);

    auto node = printer("ID2", "Line 2", *g_oComponents);
    EXPECT_EQ(handlerOf(*node).calls.first(), QStringLiteral("Initialise ID2 Line 2"));
    EXPECT_EQ(node->m_sRemoteObjectControl, QStringLiteral("ctlScriptedUI"));

    // A release closes the handler down; the next call makes a new one.
    const int closed = ScriptedHandler::closeDowns;
    node->ReleaseComponent();
    EXPECT_EQ(ScriptedHandler::closeDowns, closed + 1);
    EXPECT_EQ(handlerOf(*node).calls, QStringList{"Initialise ID2 Line 2"});
}

TEST_F(ComponentNodeTest, TreeTextCombinesMessageCountFileAndAlert)
{
    auto node = printer("ID1", "Line 1", *g_oComponents);
    ScriptedHandler& handler = handlerOf(*node);
    handler.printCount = -1;
    handler.RaiseStatusChanged(false);
    EXPECT_EQ(node->TreeText(), QStringLiteral("Line 1"));

    handler.printCount = 0;
    handler.RaiseStatusChanged(false);
    EXPECT_EQ(node->TreeText(), QStringLiteral("Line 1: (0)"));
    EXPECT_EQ(node->IconText(), QStringLiteral("\r\n0"));

    handler.currentFile = QStringLiteral("BATCH");
    handler.printCount = 12;
    handler.alert = QStringLiteral("Ink low");
    handler.RaiseStatusChanged(false);
    EXPECT_EQ(node->TreeText(), QStringLiteral("Line 1: BATCH (12) [Ink low]"));
}

TEST_F(ComponentNodeTest, AStatusChangeRecoloursAndRetitlesTheItem)
{
    auto node = printer("ID1", "Line 1", *g_oComponents);
    ASSERT_TRUE(m_view.addItem(QString(), "ID1", "Line 1", 0));
    ScriptedHandler& handler = handlerOf(*node);
    handler.state = StateFault;
    handler.printCount = 3;
    int raised = 0;
    QObject::connect(node.get(), &clsComponent::StatusChanged, [&raised] { ++raised; });

    handler.RaiseStatusChanged(false);
    EXPECT_EQ(m_view.item("ID1").background, Rgb(255, 0, 0));
    EXPECT_EQ(m_view.item("ID1").foreground, Rgb(255, 255, 255));
    EXPECT_EQ(m_view.item("ID1").text, QStringLiteral("Line 1: (3)"));
    const int writes = m_view.textWrites();
    handler.RaiseStatusChanged(false);
    EXPECT_EQ(m_view.textWrites(), writes); // the same text isn't written again
    EXPECT_EQ(raised, 2);

    // A suppressed raise changes nothing.
    handler.state = StateGood;
    handler.RaiseStatusChanged(true);
    EXPECT_EQ(m_view.item("ID1").background, Rgb(255, 0, 0));

    // A dashboard node touches no item, even one with its id.
    node->m_bIsGLVComponent = true;
    handler.RaiseStatusChanged(false);
    EXPECT_EQ(m_view.item("ID1").background, Rgb(255, 0, 0));
    EXPECT_EQ(raised, 3);

    // Without the control the item is left alone and the node still tells its listeners.
    node->m_bIsGLVComponent = false;
    g_oAddIn = nullptr;
    handler.RaiseStatusChanged(false);
    EXPECT_EQ(m_view.item("ID1").background, Rgb(255, 0, 0));
    EXPECT_EQ(raised, 4);
}

TEST_F(ComponentNodeTest, AStatusChangePokesTheDashboardsThatShowThePrinter)
{
    auto lines = group("GP1", "Lines", *g_oComponents);
    auto watched = printer("ID1", "Line 1", *lines);
    auto other = printer("ID2", "Line 2", *lines);
    watched->RegisterGLV(QStringLiteral("ID2"));
    watched->RegisterGLV(QStringLiteral("ID2"));
    EXPECT_EQ(watched->RegisteredGLVs(), QStringList{"ID2"});
    handlerOf(*watched).RaiseStatusChanged(false);
    EXPECT_EQ(handlerOf(*other).calls.count("Process Line 2"), 1);

    watched->UnregisterGLV(QStringLiteral("ID2"));
    watched->RegisterGLV(QStringLiteral("GP9"));
    EXPECT_EQ(watched->RegisteredGLVs(), QStringList{"GP9"}); // the freed entry is reused
    handlerOf(*watched).RaiseStatusChanged(false); // an id that isn't in the tree is skipped
    EXPECT_EQ(handlerOf(*other).calls.count("Process Line 2"), 1);
}

TEST_F(ComponentNodeTest, StoredSettingsReuseFreedRows)
{
    clsComponent node;
    node.AddStoredSetting("A", "1");
    node.AddStoredSetting("B", "2");
    node.AddStoredSetting("C", "3");
    node.AddStoredSetting("A", "one");
    QString value;
    ASSERT_TRUE(node.GetStoredSetting("A", value));
    EXPECT_EQ(value, QStringLiteral("one"));
    node.RemoveStoredSetting("B");
    EXPECT_FALSE(node.GetStoredSetting("B", value));
    node.AddStoredSetting("D", "4");
    EXPECT_EQ(node.GetStoredSettingByIdx(1, true), QStringLiteral("D"));
    EXPECT_EQ(node.GetStoredSettingByIdx(1, false), QStringLiteral("4"));
    EXPECT_EQ(node.GetStoredSettingByIdx(3, true), QStringLiteral("-1"));
    EXPECT_EQ(node.GetStoredSettingByIdx(3, false), QString());
}

} // namespace
