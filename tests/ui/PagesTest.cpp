// The properties frames and the group page against real handlers over fake queues.

#include "ui/PageFixture.h"

#include "drivers/clsDominoHandlerC.h"
#include "pages/ctlGeneralPage.h"
#include "pages/ctlLBXPrinterUI.h"

#include <QLabel>
#include <QPushButton>
#include <QTabBar>

namespace {
using PagesTest = PageFixture;

TEST_F(PagesTest, TheLocalPrinterFrameShowsItsHandlerAndFollowsItsStatus)
{
    clsComponent& node = printer("Labeller 3", 900, "10.1.2.3:9100");
    QWidget& frame = pageOf(node);
    EXPECT_EQ(tabs(frame).tabText(0), QStringLiteral("General"));
    EXPECT_EQ(tabs(frame).tabText(1), QStringLiteral("Settings"));
    EXPECT_EQ(shownPage(frame)->objectName(), QStringLiteral("ctlGeneralPage_Page"));
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
    EXPECT_EQ(shownPage(frame), &view);
    EXPECT_EQ(view.location(), QStringLiteral(R"(http:\\10.1.2.3)"));
    EXPECT_EQ(view.url(), QUrl(QStringLiteral("http://10.1.2.3/")));
    EXPECT_TRUE(view.text().contains(QStringLiteral("href=\"http://10.1.2.3/\"")));

    // Neither a second click nor a way back and forth loads it again.
    m_application->queues.find("Labeller")->portName = QStringLiteral("10.9.9.9:80");
    clickTab(frame, 1);
    clickTab(frame, 0);
    EXPECT_EQ(shownPage(frame)->objectName(), QStringLiteral("ctlGeneralPage_Page"));
    clickTab(frame, 1);
    EXPECT_EQ(view.location(), QStringLiteral(R"(http:\\10.1.2.3)"));

    // Where no browser opens, the page says so and gives the address to copy.
    view.setOpener([](const QUrl&) { return false; });
    emit view.linkActivated(view.url().toString());
    EXPECT_TRUE(view.text().contains(QStringLiteral("No web browser"))) << view.text().toStdString();
    EXPECT_TRUE(view.text().contains(QStringLiteral("at http://10.1.2.3/")));

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
    const QRect designed = tabSheet(early).geometry();
    EXPECT_EQ(early.DoResize(9000, 6000), std::optional<bool>(true));
    EXPECT_EQ(early.size(), QSize(600, 400));
    EXPECT_EQ(tabSheet(early).geometry(), designed);

    PrinterFrame& local = frameOf(printer("Labeller", 900, "x:1"));
    const QSize margins = local.size() - tabSheet(local).size();
    EXPECT_EQ(local.DoResize(3000, 2000), std::optional<bool>(true));
    EXPECT_EQ(local.size(), QSize(467, 300));
    EXPECT_EQ(local.DoResize(9000, 6000), std::optional<bool>(true));
    EXPECT_EQ(local.size(), QSize(600, 400));
    EXPECT_EQ(local.size() - tabSheet(local).size(), margins);

    // A coder's frame keeps its size whatever the pane asks; a size given to it moves its
    // buttons with the tab strip's corner.
    PrinterFrame& coder = frameOf(printer("Coder", 2100));
    const QSize coderSize = coder.size();
    EXPECT_EQ(coder.DoResize(9000, 6000), std::nullopt);
    EXPECT_EQ(coder.size(), coderSize);
    coder.resize(coderSize + QSize(100, 50));
    const auto& cancel = ChildOf<QPushButton>(coder, "cmdCancel");
    EXPECT_EQ(cancel.geometry().right(), tabSheet(coder).geometry().right());
    EXPECT_GT(cancel.y(), tabSheet(coder).geometry().bottom());
    EXPECT_EQ(ChildOf<QPushButton>(coder, "cmdApply").y(), cancel.y());
}

TEST_F(PagesTest, EachKindGetsItsTabsAndTheCodersTellWhyTheyDontAnswer)
{
    clsComponent& coderNode = printer("Coder", 2100, "10.0.4.21:9100");
    QWidget& coder = pageOf(coderNode);
    QTabBar& coderTabs = tabs(coder);
    ASSERT_EQ(coderTabs.count(), 8);
    EXPECT_EQ(coderTabs.tabText(0), QStringLiteral("C general"));
    EXPECT_EQ(coderTabs.tabData(5), QStringLiteral("ctlDominoCPage3_1"));
    EXPECT_EQ(shownPage(coder)->objectName(), QStringLiteral("ctlGeneralCSeriesPage_Page"));
    // The logos' tag also holds the files' key: the longer name is found first.
    clickTab(coder, 5);
    EXPECT_EQ(shownPage(coder)->objectName(), QStringLiteral("ctlDominoCPage3_1_Page"));
    clickTab(coder, 4);
    EXPECT_EQ(shownPage(coder)->objectName(), QStringLiteral("ctlDominoCPage3_Page"));
    clickTab(coder, 2);
    EXPECT_EQ(shownPage(coder)->objectName(), QStringLiteral("ctlDominoCPage1_1_Page"));
    // A tag that names no page changes nothing.
    coderTabs.setTabData(7, QStringLiteral("ctlNowhere"));
    clickTab(coder, 7);
    EXPECT_EQ(shownPage(coder)->objectName(), QStringLiteral("ctlDominoCPage1_1_Page"));
    EXPECT_FALSE(ChildOf<QPushButton>(coder, "cmdApply").isEnabled());

    EXPECT_EQ(text(coder, "lblTimeout"), QString());
    auto& handler = *qobject_cast<clsDominoHandlerC*>(coderNode.GetComponent());
    handler.Process();
    m_clock->setNow(m_clock->now().addSecs(5));
    handler.ProcessTimeout(5);
    EXPECT_EQ(text(coder, "lblTimeout"), QStringLiteral("no answer to stage 0 sent at 06:30:00"));
    EXPECT_EQ(statusColour(coder), dashboardColour(StateNoAnswer, coder));

    QWidget& aSeries = pageOf(printer("A-series", 2010));
    ASSERT_EQ(tabs(aSeries).count(), 5);
    EXPECT_EQ(tabs(aSeries).tabText(0), QStringLiteral("A general"));
    clickTab(aSeries, 3);
    EXPECT_EQ(shownPage(aSeries)->objectName(), QStringLiteral("ctlDominoAPage3_Page"));
    EXPECT_NE(aSeries.findChild<QLabel*>(QStringLiteral("lblTimeout")), nullptr);

    QWidget& avery = pageOf(printer("Avery", 780));
    EXPECT_EQ(tabs(avery).tabText(1), QStringLiteral("settings"));
    EXPECT_EQ(shownPage(avery)->objectName(), QStringLiteral("ctlAveryPage1_Page"));
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
