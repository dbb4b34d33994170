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
    EXPECT_EQ(dashboardLike.GetErrorState(), StateNoAnswer);

    auto node = printer("ID2", "Line 2", *g_oComponents);
    EXPECT_EQ(handlerOf(*node).calls.first(), QStringLiteral("Initialise ID2 Line 2"));

    // A release closes the handler down; the next call makes a new one.
    const int closed = ScriptedHandler::closeDowns;
    node->ReleaseComponent();
    EXPECT_EQ(ScriptedHandler::closeDowns, closed + 1);
    EXPECT_EQ(handlerOf(*node).calls, QStringList{"Initialise ID2 Line 2"});
}

TEST_F(ComponentNodeTest, AStatusChangeRecoloursAndRetitlesTheItem)
{
    auto node = printer("ID1", "Line 1", *g_oComponents);
    ASSERT_TRUE(m_view.addItem(QString(), "ID1", "Line 1", 0));
    ScriptedHandler& handler = handlerOf(*node);
    handler.state = StateFault;
    int raised = 0;
    QObject::connect(node.get(), &clsComponent::StatusChanged, [&raised] { ++raised; });

    // The text combines the message count, the file and the alert.
    const struct
    {
        qint32 count;
        const char* file;
        const char* alert;
        const char* text;
    } texts[] = {{-1, "", "", "Line 1"},
                 {0, "", "", "Line 1: (0)"},
                 {12, "BATCH", "Ink low", "Line 1: BATCH (12) [Ink low]"}};
    for (const auto& t : texts) {
        handler.printCount = t.count;
        handler.currentFile = QLatin1String(t.file);
        handler.alert = QLatin1String(t.alert);
        handler.RaiseStatusChanged(false);
        EXPECT_EQ(node->TreeText(), QLatin1String(t.text));
        EXPECT_EQ(m_view.item("ID1").text, QLatin1String(t.text));
    }
    EXPECT_EQ(node->IconText(), QStringLiteral("BATCH\r\n12"));
    EXPECT_EQ(m_view.item("ID1").background, LookUpColour(StateFault, TreePalette, false));
    EXPECT_EQ(m_view.item("ID1").foreground, LookUpColour(StateFault, TreePalette, true));
    const int writes = m_view.textWrites();
    handler.RaiseStatusChanged(false);
    EXPECT_EQ(m_view.textWrites(), writes); // the same text isn't written again
    EXPECT_EQ(raised, 4);

    // A suppressed raise, a dashboard node (even one with the item's id) and a node
    // without the control leave the item alone; all but the first still tell listeners.
    handler.state = StateGood;
    handler.RaiseStatusChanged(true);
    node->m_bIsGLVComponent = true;
    handler.RaiseStatusChanged(false);
    node->m_bIsGLVComponent = false;
    g_oAddIn = nullptr;
    handler.RaiseStatusChanged(false);
    EXPECT_EQ(m_view.item("ID1").background, Rgb(255, 0, 0));
    EXPECT_EQ(raised, 6);
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
    node.AddStoredSetting("D", "4"); // into B's freed row
    EXPECT_EQ(node.GetStoredSettingByIdx(1, true), QStringLiteral("D"));
    EXPECT_EQ(node.GetStoredSettingByIdx(1, false), QStringLiteral("4"));
    EXPECT_EQ(node.GetStoredSettingByIdx(3, true), QStringLiteral("-1"));
    EXPECT_EQ(node.GetStoredSettingByIdx(3, false), QString());
}
} // namespace
