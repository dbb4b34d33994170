// The properties frames and the group page against real handlers over fake queues.

#include "core/ErrorColours.h"
#include "core/PageFactory.h"
#include "core/PresentTime.h"
#include "core/TreeFixture.h"
#include "drivers/clsDominoHandlerC.h"
#include "pages/PageRegistry.h"
#include "pages/SettingsWebLink.h"
#include "pages/ctlGeneralPage.h"
#include "pages/ctlLBXPrinterUI.h"
#include "platform/qt/QtTreeView.h"
#include "printing/clsLBXHandler.h"
#include "support/FakeApplication.h"
#include "support/FakeClock.h"
#include "ui/WidgetApplication.h"

#include <QBuffer>
#include <QImage>
#include <QLabel>
#include <QMap>
#include <QTabBar>
#include <QTabWidget>
#include <QTest>

namespace {
class PagesTest : public TreeFixture
{
protected:
    static void SetUpTestSuite() { EnsureWidgetApplication(); }

    void SetUp() override
    {
        TreeFixture::SetUp();
        const QMap<int, QByteArray> messages{{9, "no answer to stage %1 sent at %2"},
                                             {102, "Name"},
                                             {103, "Port"},
                                             {104, "Type"},
                                             {112, "General"},
                                             {121, "C general"},
                                             {261, "A general"}};
        QByteArray catalogue;
        for (int line = 1; line <= 261; ++line)
            catalogue += messages.value(line) + '\n';
        writeMessageFile(QStringLiteral("en"), catalogue);
        QImage icon(32, 32, QImage::Format_ARGB32);
        icon.fill(Qt::darkCyan);
        QBuffer iconFile;
        iconFile.open(QIODevice::WriteOnly);
        icon.save(&iconFile, "ICO");
        writeFile(QStringLiteral("Icons/LocalLabelPrinter.ico"), iconFile.data());
        m_clock->setNow(QDateTime(QDate(2026, 11, 22), QTime(6, 30)));
        InstallClock(m_clock);
        InstallApplicationFactory([this] { return m_application; });
        RegisterPages();
    }

    void TearDown() override
    {
        m_shown.clear();
        UnregisterPages();
        g_oComponents.reset();
        ReleaseGlobalLBX();
        InstallApplicationFactory(nullptr);
        InstallClock(nullptr);
        TreeFixture::TearDown();
    }

    // A printer of the tree behind a queue, with its icons added as the tree view adds them.
    clsComponent& printer(const QString& name, qint16 number, const QString& port = {})
    {
        m_application->queues.add(name, number, port).friendlyName = name + " (friendly)";
        auto node = std::make_shared<clsComponent>();
        node->m_sID = QStringLiteral("ID%1").arg(g_oComponents->Count() + 1);
        node->m_sName = name;
        node->m_lRemoteObjectPrinterNumber = number;
        g_oComponents->AddComponent(node->m_sID, node);
        node->AddImages(*m_control->imlList(0), *m_control->imlList(3));
        return *node;
    }

    // The page the pane makes for the node, set up by the node and shown.
    QWidget& pageOf(clsComponent& node)
    {
        std::unique_ptr<IPage> page = PageFactory::create(node.GetControlName());
        if (!page)
            throw std::runtime_error("no page " + node.GetControlName().toStdString());
        node.InitialiseControl(*page);
        auto& widget = dynamic_cast<QWidget&>(*page);
        widget.show();
        m_shown.push_back(std::move(page));
        return widget;
    }
    PrinterFrame& frameOf(clsComponent& node) { return dynamic_cast<PrinterFrame&>(pageOf(node)); }

    static QString text(const QWidget& page, const char* label)
    {
        return ChildOf<QLabel>(page, label).text();
    }
    static QStringList texts(const QWidget& page, std::initializer_list<const char*> labels)
    {
        QStringList found;
        for (const char* label : labels)
            found.append(text(page, label));
        return found;
    }

    // The status colour behind the page's general tab, and the colour the state should give.
    static QColor statusColour(const QWidget& page)
    {
        return ChildOf<QWidget>(page, "imgGeneralBackground").palette().color(QPalette::Window);
    }
    static QColor dashboardColour(qint32 state, const QWidget& page)
    {
        return QtTreeView::toColor(LookUpColour(state, DashboardPalette, false), page.palette());
    }

    static QTabWidget& tabs(const QWidget& page) { return ChildOf<QTabWidget>(page, "TabStrip1"); }
    static void clickTab(const QWidget& page, int index)
    {
        QTabBar* bar = tabs(page).tabBar();
        QTest::mouseClick(bar, Qt::LeftButton, {}, bar->tabRect(index).center());
    }
    static SettingsWebLink& settingsView(const QWidget& page)
    {
        return ChildOf<SettingsWebLink>(page, "ctlSettingsWebBrowser");
    }

    std::shared_ptr<FakeApplication> m_application = std::make_shared<FakeApplication>();
    std::shared_ptr<FakeClock> m_clock = std::make_shared<FakeClock>();
    std::vector<std::unique_ptr<IPage>> m_shown;
};

TEST_F(PagesTest, TheLocalPrinterFrameShowsItsHandlerAndFollowsItsStatus)
{
    clsComponent& node = printer("Labeller 3", 900, "10.1.2.3:9100");
    QWidget& frame = pageOf(node);
    EXPECT_EQ(tabs(frame).tabText(0), QStringLiteral("General"));
    EXPECT_EQ(tabs(frame).tabText(1), QStringLiteral("Settings"));
    EXPECT_EQ(tabs(frame).currentWidget()->objectName(), QStringLiteral("ctlGeneralPage_Page"));
    EXPECT_EQ(texts(frame, {"lblNameData", "lblPortData", "lblTypeData", "lblGeneralInfo"}),
              (QStringList{"Labeller 3", "10.1.2.3:9100", "Labeller 3 (friendly)", "Labeller 3"}));
    EXPECT_FALSE(ChildOf<QLabel>(frame, "imgGeneral").pixmap().isNull());
    EXPECT_EQ(statusColour(frame), dashboardColour(StateGood, frame));

    ComponentHandler& handler = *node.GetComponent();
    handler.setPortBusy(true);
    EXPECT_EQ(statusColour(frame), dashboardColour(StatePortBusy, frame));
    handler.setDisabled(true);
    EXPECT_EQ(statusColour(frame), dashboardColour(StateDisabled, frame));
    m_application->queues.find("Labeller 3")->portName = QStringLiteral("/dev/ttyS1");
    node.Process();
    EXPECT_EQ(text(frame, "lblPortData"), QStringLiteral("/dev/ttyS1"));

    // A handler released under an open frame leaves the frame as it was.
    node.ReleaseComponent();
    static_cast<PrinterFrame&>(frame).m_Handler_StatusChanged();
    EXPECT_EQ(text(frame, "lblPortData"), QStringLiteral("/dev/ttyS1"));
    EXPECT_TRUE(m_dialogs->boxes().isEmpty());
}

TEST_F(PagesTest, TheGeneralPageIsRepeatableAndItsValuesStretch)
{
    ctlGeneralPage page;
    page.resize(300, 120);
    page.show();
    page.Setup("Coder", "10.0.0.1:9100", "C6000", false, false);
    page.Setup("Coder 2", QString(), "C6000", true, true);
    EXPECT_EQ(texts(page, {"lblName", "lblPort", "lblType", "lblNameData", "lblPortData"}),
              (QStringList{"Name", "Port", "Type", "Coder 2", ""}));

    const auto& value = ChildOf<QLabel>(page, "lblPortData");
    EXPECT_GT(value.x(), ChildOf<QLabel>(page, "lblPort").geometry().right());
    page.resize(500, 120);
    EXPECT_EQ(value.geometry().right(), page.contentsRect().right());
    EXPECT_EQ(ChildOf<QLabel>(page, "lblTypeData").width(), value.width());
}

TEST_F(PagesTest, TheSettingsTabGoesToThePrintersWebPageOnce)
{
    QWidget& frame = pageOf(printer("Labeller", 900, "10.1.2.3:9100"));
    SettingsWebLink& view = settingsView(frame);
    EXPECT_TRUE(view.isBlank());
    clickTab(frame, 1);
    EXPECT_EQ(tabs(frame).currentWidget(), &view);
    EXPECT_EQ(view.location(), QStringLiteral(R"(http:\\10.1.2.3)"));
    EXPECT_EQ(view.url(), QUrl(QStringLiteral("http://10.1.2.3/")));
    EXPECT_TRUE(view.text().contains(QStringLiteral("href=\"http://10.1.2.3/\"")));

    // Neither a second click nor a way back and forth loads it again.
    m_application->queues.find("Labeller")->portName = QStringLiteral("10.9.9.9:80");
    clickTab(frame, 1);
    clickTab(frame, 0);
    EXPECT_EQ(tabs(frame).currentIndex(), 0);
    clickTab(frame, 1);
    EXPECT_EQ(view.location(), QStringLiteral(R"(http:\\10.1.2.3)"));

    // A port without a colon is taken whole; without a host there is nothing to open.
    const std::tuple<const char*, const char*, bool> ports[] = {
        {"printer7", R"(http:\\printer7)", true},
        {":9100", R"(http:\\)", false},
        {"", R"(http:\\)", false}};
    for (const auto& [port, location, opens] : ports) {
        QWidget& other = pageOf(printer(QStringLiteral("Port %1").arg(port), 900, port));
        clickTab(other, 1);
        EXPECT_EQ(settingsView(other).location(), QLatin1String(location)) << port;
        EXPECT_EQ(settingsView(other).url().isValid(), opens) << port;
        EXPECT_EQ(settingsView(other).text().contains(QStringLiteral("href")), opens) << port;
    }
}

TEST_F(PagesTest, FramesKeepTheirSmallestSizeAndMoveNothingBeforeSetup)
{
    ctlLBXPrinterUI early;
    early.show();
    const QRect designed = tabs(early).geometry();
    EXPECT_EQ(early.DoResize(9000, 6000), std::optional<bool>(true));
    EXPECT_EQ(early.size(), QSize(600, 400));
    EXPECT_EQ(tabs(early).geometry(), designed);

    PrinterFrame& local = frameOf(printer("Labeller", 900, "x:1"));
    const QSize margins = local.size() - tabs(local).size();
    EXPECT_EQ(local.DoResize(3000, 2000), std::optional<bool>(true));
    EXPECT_EQ(local.size(), QSize(467, 300));
    EXPECT_EQ(local.DoResize(9000, 6000), std::optional<bool>(true));
    EXPECT_EQ(local.size(), QSize(600, 400));
    EXPECT_EQ(local.size() - tabs(local).size(), margins);

    PrinterFrame& coder = frameOf(printer("Coder", 2100));
    const QSize coderSize = coder.size();
    EXPECT_EQ(coder.DoResize(9000, 6000), std::nullopt);
    EXPECT_EQ(coder.size(), coderSize);
}

TEST_F(PagesTest, EachKindGetsItsTabsAndTheCodersTellWhyTheyDontAnswer)
{
    clsComponent& coderNode = printer("Coder", 2100, "10.0.4.21:9100");
    QWidget& coder = pageOf(coderNode);
    EXPECT_EQ(tabs(coder).count(), 1);
    EXPECT_EQ(tabs(coder).tabText(0), QStringLiteral("C general"));
    EXPECT_EQ(text(coder, "lblTimeout"), QString());
    auto& handler = *qobject_cast<clsDominoHandlerC*>(coderNode.GetComponent());
    handler.Process();
    m_clock->setNow(m_clock->now().addSecs(5));
    handler.ProcessTimeout(5);
    EXPECT_EQ(text(coder, "lblTimeout"), QStringLiteral("no answer to stage 0 sent at 06:30:00"));
    EXPECT_EQ(statusColour(coder), dashboardColour(StateNoAnswer, coder));

    QWidget& aSeries = pageOf(printer("A-series", 2010));
    EXPECT_EQ(tabs(aSeries).tabText(0), QStringLiteral("A general"));
    EXPECT_NE(aSeries.findChild<QLabel*>(QStringLiteral("lblTimeout")), nullptr);

    QWidget& avery = pageOf(printer("Avery", 780));
    EXPECT_EQ(tabs(avery).tabText(1), QStringLiteral("settings"));
    EXPECT_EQ(avery.findChild<QLabel*>(QStringLiteral("lblTimeout")), nullptr);
}

TEST_F(PagesTest, RegisteredPagesAreMadeByNameAndRefuseHandlersTheyCantShow)
{
    const QStringList classes{"KorvexVigil.ctlLBXPrinterUI", "KorvexVigil.ctlDominoCUI",
                              "KorvexVigil.ctlDominoAUI", "KorvexVigil.ctlAveryUI",
                              "KorvexVigil.GroupUI"};
    for (const QString& pageClass : classes) {
        SCOPED_TRACE(pageClass.toStdString());
        std::unique_ptr<IPage> page = PageFactory::create(pageClass);
        ASSERT_NE(page, nullptr);
        EXPECT_NE(dynamic_cast<QWidget*>(page.get()), nullptr);
        // A dashboard's handler suits no printer frame, and a printer's no group page.
        clsComponent& node = printer(pageClass, pageClass.endsWith("GroupUI") ? 900 : 0);
        try {
            node.InitialiseControl(*page);
            ADD_FAILURE() << "took a handler of another kind";
        } catch (const VigilError& error) {
            EXPECT_EQ(error.number(), VigilError::TypeMismatch);
        }
        EXPECT_THROW(page->Setup(QString(), nullptr), VigilError);
    }

    // The group page shows its group's name and follows a rename at the next poll.
    g_oComponents->CreateUI();
    clsComponent& dashboard = *g_oComponents->DisplayComponent();
    QWidget& group = pageOf(dashboard);
    EXPECT_EQ(text(group, "lblName"), QStringLiteral("All Printers"));
    dashboard.m_sName = QStringLiteral("Hall 2");
    dashboard.Process();
    EXPECT_EQ(text(group, "lblName"), QStringLiteral("Hall 2"));

    UnregisterPages();
    for (const QString& pageClass : classes)
        EXPECT_FALSE(PageFactory::isRegistered(pageClass)) << pageClass.toStdString();
}
} // namespace
