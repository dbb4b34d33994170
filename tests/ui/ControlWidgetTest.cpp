// The control on screen: the page pane in pixels, and the host window's actions following the
// commands' states.

#include "core/Globals.h"
#include "core/PageFactory.h"
#include "core/clsComponents.h"
#include "pages/PageRegistry.h"
#include "platform/host/HostCommandRow.h"
#include "platform/host/MainWindow.h"
#include "platform/qt/QtPagePane.h"
#include "printing/clsLBXHandler.h"
#include "support/FakeApplication.h"
#include "support/ScriptedHandler.h"
#include "support/ServicesFixture.h"
#include "ui/WidgetApplication.h"

#include <QLineEdit>
#include <QTest>

namespace {
// A page of a fixed size in pixels.
class SizedPage : public QWidget, public IPage
{
public:
    static inline QSize size{100, 100};
    SizedPage() { resize(size); }
    void Setup(const QString&, ComponentHandler*) override {}
};

class PagePaneTest : public ::testing::Test
{
protected:
    static void SetUpTestSuite() { EnsureWidgetApplication(); }
    void SetUp() override
    {
        PageFactory::registerClass(PageClass, [] { return std::make_unique<SizedPage>(); });
    }
    void TearDown() override { PageFactory::unregisterClass(PageClass); }

    inline static const QString PageClass = QStringLiteral("KorvexVigil.SizedPage");
    // A child resizes at once; a window waits for the platform.
    QWidget m_window;
    QTreeWidget m_tree;
    QtPagePane m_pane{m_tree, &m_window};
};

TEST_F(PagePaneTest, ATallPageScrollsInStepsOfSeveralTwips)
{
    // 2,667 pixels of page in a frame of 267: 36,000 twips to scroll, which takes steps of 2.
    SizedPage::size = {200, 2667};
    m_pane.resize(800, 267);
    m_window.show();
    ASSERT_NE(m_pane.createPage(PageClass, "P1"), nullptr);
    m_pane.layout();
    EXPECT_TRUE(m_pane.vsbVert().isVisibleTo(&m_pane));
    EXPECT_FALSE(m_pane.hsbHoriz().isVisibleTo(&m_pane));
    EXPECT_EQ(m_pane.vsbVert().maximum(), 18000);
    m_pane.vsbVert().setValue(300); // 600 twips down: 40 pixels
    EXPECT_EQ(m_pane.pageWidget()->y(), -40);
    m_pane.resetScrollBars();
    EXPECT_EQ(m_pane.pageWidget()->y(), 0);

    // A taller pane scrolls less in steps of one; a page that fits has no bar and sits on top.
    m_pane.vsbVert().setValue(300);
    m_pane.resize(800, 2000);
    EXPECT_TRUE(m_pane.vsbVert().isVisibleTo(&m_pane));
    EXPECT_EQ(m_pane.vsbVert().maximum(), 40005 - 30000);
    SizedPage::size = {200, 1999};
    m_pane.createPage(PageClass, "P2");
    m_pane.layout();
    EXPECT_FALSE(m_pane.vsbVert().isVisibleTo(&m_pane));
    EXPECT_EQ(m_pane.pageWidget()->pos(), QPoint(0, 0));

    m_pane.removePage("P1"); // not the page shown: nothing happens
    EXPECT_NE(m_pane.pageWidget(), nullptr);
    m_pane.removePage("P2");
    EXPECT_EQ(m_pane.pageWidget(), nullptr);
}

TEST_F(PagePaneTest, TheSplitterIsInTwipsAndWaitsForTheControlsSize)
{
    m_pane.moveSplitter(6000);
    m_pane.resize(800, 400);
    m_window.show();
    EXPECT_EQ(m_pane.treeWidth(), 6000);
    EXPECT_EQ(m_tree.width(), 400);

    // At the right edge the page pane keeps the smallest width the tree has at the left.
    const WorkspaceLayout& layout = m_pane.workspace();
    m_pane.moveSplitter(0);
    const float smallest = layout.tree().width;
    EXPECT_GT(smallest, 0);
    m_pane.moveSplitter(800 * 15);
    EXPECT_FLOAT_EQ(layout.tree().width, 800 * 15 - layout.splitter().width - smallest);
}

class HostWindowTest : public ServicesFixture
{
protected:
    static void SetUpTestSuite() { EnsureWidgetApplication(); }
    void SetUp() override
    {
        ServicesFixture::SetUp();
        writeCatalogue(450, {}, "text ");
        LibraryStart();
        RegisterPages();
        PageFactory::registerClass(PrinterPage, [] { return std::make_unique<SizedPage>(); });
        m_application->administrator = true;
        m_application->queues.add("Filler", ScriptedHandler::FirstNumber);
        InstallApplicationFactory([this] { return m_application; });
    }
    void TearDown() override
    {
        m_window.reset();
        UnregisterPages();
        PageFactory::unregisterClass(PrinterPage);
        ReleaseGlobalLBX();
        InstallApplicationFactory(nullptr);
        ServicesFixture::TearDown();
    }

    QAction* action(const QString& command) const
    {
        for (const auto& [action, name] : m_window->commandActions())
            if (name == command)
                return action;
        return nullptr;
    }

    TreeWidget& tree() { return m_window->controlWidget().treeView().widget(); }
    void selectPrinter() { tree().setCurrentItem(tree().topLevelItem(0)->child(0)); }

    inline static const QString PrinterPage = QStringLiteral("KorvexVigil.ctlScriptedUI");
    ScriptedHandler::Registration m_scripted;
    std::shared_ptr<FakeApplication> m_application = std::make_shared<FakeApplication>();
    std::unique_ptr<MainWindow> m_window =
        std::make_unique<MainWindow>("Vigil", QDBusConnection(QStringLiteral("no bus")));
};

TEST_F(HostWindowTest, ToolbarRowsBecomeActionsThatFollowTheirCommands)
{
    m_window->start();
    QAction* enablePolling = action("DoEnablePolling");
    QAction* disablePolling = action("DoDisablePolling");
    ASSERT_TRUE(enablePolling && disablePolling);
    EXPECT_EQ(disablePolling->text(), "text 46");
    EXPECT_EQ(disablePolling->toolTip(), "text 47");
    EXPECT_TRUE(disablePolling->isVisible());
    EXPECT_FALSE(enablePolling->isVisible());
    EXPECT_TRUE(action("DoSendFilesToPrinters") && action("DoDisplayFileView"));

    disablePolling->trigger();
    EXPECT_TRUE(enablePolling->isVisible());
    EXPECT_FALSE(disablePolling->isVisible());
    EXPECT_TRUE(m_window->controlWidget().control().scheduler().pollingDisabled());

    // The root selected: no delete; a printer selected: delete, properties, disable.
    EXPECT_FALSE(action("DoDelete")->isEnabled());
    selectPrinter();
    EXPECT_TRUE(action("DoDelete")->isEnabled());
    EXPECT_TRUE(action("DoProperties")->isVisible());
    EXPECT_TRUE(action("DoDisablePrinter")->isVisible());
    EXPECT_FALSE(action("DoEnablePrinter")->isVisible());
    EXPECT_TRUE(m_dialogs->boxes().isEmpty());
}

TEST_F(HostWindowTest, ANewGroupIsNamedInPlace)
{
    m_window->show();
    m_window->start();
    action("DoAddGroup")->trigger();
    auto& editor = ChildOf<QLineEdit>(tree(), nullptr);
    editor.setText("Packing");
    QTest::keyClick(&editor, Qt::Key_Return);
    QCoreApplication::processEvents(); // the editor commits by a queued call
    const QString id = QtTreeView::keyOf(tree().currentItem());
    ASSERT_TRUE(id.startsWith("GP"));
    EXPECT_EQ(g_oComponents->Find(id)->m_sName, "Packing");
    EXPECT_EQ(tree().currentItem()->text(0), "Packing");

    // A printer's label can't be edited: its name is its queue's.
    selectPrinter();
    tree().editItem(tree().currentItem(), 0);
    const QList<QLineEdit*> editors = tree().findChildren<QLineEdit*>();
    EXPECT_TRUE(std::none_of(editors.begin(), editors.end(),
                             [](const QLineEdit* open) { return open->isVisible(); }));
}

TEST(HostCommandRowTest, MenuRowsAreCommandsOrMarks)
{
    const auto mark = HostCommandRow::fromMenuRow("-3\nEdit\n");
    ASSERT_TRUE(mark && mark->isMark());
    EXPECT_EQ(mark->mark, -3);
    EXPECT_EQ(mark->markTitle, "Edit");
    const auto help = HostCommandRow::fromMenuRow("0\nDoHelp\nHelp\n\ntip\nstatus\nFALSE\n\n1");
    ASSERT_TRUE(help && !help->isMark());
    EXPECT_EQ(help->command, "DoHelp");
    EXPECT_TRUE(help->iconPath.isEmpty());
    EXPECT_EQ(help->number, 1);
    EXPECT_FALSE(HostCommandRow::fromToolbarRow("DoHelp\nHelp"));
    EXPECT_FALSE(HostCommandRow::fromMenuRow("garbage"));
}
} // namespace
