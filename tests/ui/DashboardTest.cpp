// A group's dashboard and its shortcuts, against scripted printers of a tree.

#include "dashboard/DragDelay.h"
#include "dashboard/GroupUI.h"
#include "dashboard/ctlShortcut.h"
#include "platform/qt/Twips.h"
#include "ui/PageFixture.h"

#include <QAction>
#include <QDir>
#include <QFileDialog>
#include <QMenu>
#include <QMimeData>
#include <QTimer>

namespace {
// A dashboard that notes the drags it would begin instead of running the platform's.
class DashboardUnderTest : public GroupUI
{
public:
    QStringList dragged;

protected:
    void beginShortcutDrag(ctlShortcut& element) override { dragged.append(element.tag()); }
};

class DashboardTest : public PageFixture
{
protected:
    void SetUp() override
    {
        PageFixture::SetUp();
        m_line = group(QStringLiteral("GP1"), QStringLiteral("Line 1"), *g_oComponents);
        m_line->CreateUI();
        m_filler = TreeFixture::printer(QStringLiteral("ID11"), QStringLiteral("Filler"), *m_line);
        m_capper = TreeFixture::printer(QStringLiteral("ID12"), QStringLiteral("Capper"), *m_line);
    }

    clsComponent& dashboard() { return *m_line->DisplayComponent(); }

    std::unique_ptr<DashboardUnderTest> showDashboard()
    {
        auto page = std::make_unique<DashboardUnderTest>();
        dashboard().InitialiseControl(*page);
        page->show();
        return page;
    }

    static QString stored(clsComponent& node, const QString& name)
    {
        QString value;
        return node.GetStoredSetting(name, value) ? value : QStringLiteral("<none>");
    }
    QStringList keysOf(const QString& id)
    {
        QStringList values;
        for (const char* edge : {"top", "left", "width", "height"})
            values.append(stored(dashboard(), QStringLiteral("Shortcut:%1.%2").arg(id, edge)));
        return values;
    }

    // A drag from the tree, or of a shortcut, over the surface: whether it was taken, and how.
    static Qt::DropAction dragOver(QWidget& page, const QMimeData& data)
    {
        QDragEnterEvent enter(QPoint(50, 50), Qt::CopyAction | Qt::MoveAction, &data,
                              Qt::LeftButton, {});
        QApplication::sendEvent(&page, &enter);
        return enter.isAccepted() ? enter.dropAction() : Qt::IgnoreAction;
    }
    static void drop(QWidget& page, const QMimeData& data, QPoint at)
    {
        dragOver(page, data);
        QDropEvent event(at, Qt::CopyAction | Qt::MoveAction, &data, Qt::LeftButton, {});
        QApplication::sendEvent(&page, &event);
    }
    static std::unique_ptr<QMimeData> fromTree(const QString& id)
    {
        auto data = std::make_unique<QMimeData>();
        data->setText(QStringLiteral("MSComponent ") + id);
        return data;
    }
    static std::unique_ptr<QMimeData> movedShortcut(const QString& id)
    {
        auto data = std::make_unique<QMimeData>();
        data->setData(GroupUI::ShortcutMimeType, id.toUtf8());
        return data;
    }

    static QAction& menuItem(const QWidget& page, const char* name)
    {
        return ChildOf<QAction>(page, name);
    }

    // A picture file of that size in the program folder.
    QString pictureFile(const QString& name, QSize size)
    {
        QImage picture(size, QImage::Format_RGB32);
        picture.fill(Qt::darkGreen);
        const QString path = QDir(programFolder()).filePath(name);
        picture.save(path);
        return path;
    }

    std::shared_ptr<clsComponents> m_line;
    std::shared_ptr<clsComponent> m_filler;
    std::shared_ptr<clsComponent> m_capper;
};

TEST_F(DashboardTest, AShortcutShowsItsPrintersStateAndSizesItselfToItsText)
{
    ScriptedHandler& handler = handlerOf(*m_filler);
    handler.currentFile = QStringLiteral("BESTBY");
    handler.printCount = 1520;
    emit handler.StatusChanged();
    ctlShortcut shortcut;
    shortcut.setComponent(m_filler.get());
    EXPECT_EQ(shortcut.Name(), QStringLiteral("Filler"));
    EXPECT_EQ(shortcut.Text(), QStringLiteral("BESTBY\r\n1520"));
    EXPECT_EQ(shortcut.BackColor(), dashboardColour(StateGood, shortcut));
    const QSize quiet = shortcut.size();

    // A new alert adds a line in the alert's colour; when it has gone, the height comes back.
    handler.state = StateWarning;
    handler.alert = QStringLiteral("Ink low");
    emit handler.StatusChanged();
    EXPECT_EQ(shortcut.Text(), QStringLiteral("BESTBY\r\n1520\r\nInk low"));
    EXPECT_EQ(shortcut.BackColor(), dashboardColour(StateWarning, shortcut));
    EXPECT_GT(shortcut.height(), quiet.height());
    handler.state = StateGood;
    handler.alert.clear();
    emit handler.StatusChanged();
    EXPECT_EQ(shortcut.size(), quiet);

    // The text fits the width; a long name widens it; an equal text leaves the width alone.
    shortcut.setName(QStringLiteral("Filler of the north hall, second head"));
    EXPECT_GT(shortcut.width(), quiet.width());
    shortcut.resize(20, shortcut.height());
    shortcut.setText(shortcut.Text());
    EXPECT_EQ(shortcut.width(), 20);

    // The inner labels pass the mouse on: a click anywhere is the shortcut's own.
    int presses = 0;
    QObject::connect(&shortcut, &ctlShortcut::MouseDown,
                     [&](int button, int, QPointF) { presses += button == 1; });
    shortcut.show();
    for (const char* inner : {"imgIcon", "lblText", "lblName"})
        QTest::mouseClick(&shortcut, Qt::LeftButton, {},
                          ChildOf<QWidget>(shortcut, inner).geometry().center());
    EXPECT_EQ(presses, 3);
}

TEST_F(DashboardTest, PrintersDroppedFromTheTreeArePlacedCentredAndKeptAfterARestart)
{
    auto page = showDashboard();
    EXPECT_EQ(dragOver(*page, *fromTree("ID11")), Qt::CopyAction);
    EXPECT_EQ(dragOver(*page, *fromTree("GP1")), Qt::IgnoreAction);
    EXPECT_EQ(dragOver(*page, *movedShortcut("ID11")), Qt::MoveAction);

    // The free element 0 is taken first, then a new one follows.
    ASSERT_EQ(page->shctPrinters().size(), 1);
    drop(*page, *fromTree("ID11"), QPoint(200, 150));
    drop(*page, *fromTree("ID12"), QPoint(300, 250));
    ASSERT_EQ(page->shctPrinters().size(), 2);
    ctlShortcut* filler = page->shctPrinters().at(0);
    EXPECT_EQ(filler->tag(), QStringLiteral("ID11"));
    EXPECT_TRUE(filler->isVisible());
    EXPECT_LE((filler->geometry().center() - QPoint(200, 150)).manhattanLength(), 2);
    const QRect placed = filler->geometry();
    EXPECT_EQ(
        keysOf("ID11"),
        (QStringList{QString::number(placed.top() * 15), QString::number(placed.left() * 15),
                     QString::number(placed.width() * 15), QString::number(placed.height() * 15)}));
    EXPECT_EQ(m_filler->RegisteredGLVs().first(), QStringLiteral("IDGP1"));

    // A printer already there moves, centred on the new point.
    drop(*page, *fromTree("ID11"), QPoint(400, 300));
    EXPECT_EQ(page->shctPrinters().size(), 2);
    EXPECT_LE((filler->geometry().center() - QPoint(400, 300)).manhattanLength(), 2);
    drop(*page, *movedShortcut("ID12"), QPoint(120, 90));
    EXPECT_LE((page->FindShortcut("ID12")->geometry().center() - QPoint(120, 90)).manhattanLength(),
              2);
    const QPoint fillerAt = filler->pos();
    const QPoint capperAt = page->FindShortcut("ID12")->pos();
    page.reset();

    // Each placing saved the tree: a restart finds both where they were left.
    auto root = std::make_shared<clsComponents>();
    root->m_sID = AddInControl::RootId;
    root->CreateUI();
    root->LoadState(QStringLiteral("Printers"));
    g_oComponents = root;
    m_line = std::dynamic_pointer_cast<clsComponents>(root->Item(QStringLiteral("GP1")));
    ASSERT_NE(m_line, nullptr);
    auto again = showDashboard();
    ASSERT_NE(again->FindShortcut("ID11"), nullptr);
    EXPECT_EQ(again->FindShortcut("ID11")->pos(), fillerAt);
    EXPECT_EQ(again->FindShortcut("ID12")->pos(), capperAt);
    EXPECT_TRUE(m_dialogs->boxes().isEmpty());
}

TEST_F(DashboardTest, AShortcutMovesOnlyAfterTheDragDelayWithTheLeftButtonHeldUnchanged)
{
    auto page = showDashboard();
    drop(*page, *fromTree("ID11"), QPoint(200, 150));
    ctlShortcut& filler = *page->FindShortcut("ID11");
    const QPoint inside = filler.rect().center();

    QTest::mousePress(&filler, Qt::LeftButton, {}, inside);
    page->tmrDragDelay_Timer();
    EXPECT_EQ(page->dragged, QStringList{"ID11"});
    QTest::mouseRelease(&filler, Qt::LeftButton, {}, inside);

    // Shift pressed during the delay, a release before it is over, or the right button: a click.
    QTest::mousePress(&filler, Qt::LeftButton, {}, inside);
    QMouseEvent shifted(QEvent::MouseMove, inside, filler.mapToGlobal(inside), Qt::NoButton,
                        Qt::LeftButton, Qt::ShiftModifier);
    QApplication::sendEvent(&filler, &shifted);
    page->tmrDragDelay_Timer();
    QTest::mouseRelease(&filler, Qt::LeftButton, {}, inside);
    QTest::mousePress(&filler, Qt::LeftButton, {}, inside);
    QTest::mouseRelease(&filler, Qt::LeftButton, {}, inside);
    page->tmrDragDelay_Timer();
    QTest::mousePress(&filler, Qt::RightButton, {}, inside);
    page->tmrDragDelay_Timer();
    QTest::mouseRelease(&filler, Qt::RightButton, {}, inside);
    EXPECT_EQ(page->dragged, QStringList{"ID11"});
    ChildOf<QMenu>(*page, "mnuBtn").close();

    // The delay is the store's when it holds one, else 200 ms.
    EXPECT_EQ(DragDelay::GetDragDelay(), 200);
    WriteValue(HKEY_LOCAL_MACHINE, DragDelay::DragDelayKey, DragDelay::DragDelayValue, REG_DWORD,
               450);
    EXPECT_EQ(DragDelay::GetDragDelay(), 450);
    WriteValue(HKEY_LOCAL_MACHINE, DragDelay::DragDelayKey, DragDelay::DragDelayValue, REG_SZ,
               QStringLiteral("slow"));
    EXPECT_EQ(DragDelay::GetDragDelay(), 200);
}

TEST_F(DashboardTest, RemovingAShortcutTakesItsKeysAndFreesElementZero)
{
    auto page = showDashboard();
    drop(*page, *fromTree("ID11"), QPoint(200, 150));
    drop(*page, *fromTree("ID12"), QPoint(300, 250));

    // The Delete key on element 0 hides it and frees it.
    ctlShortcut* first = page->shctPrinters().at(0);
    first->setFocus();
    QTest::keyClick(first, Qt::Key_Delete);
    EXPECT_TRUE(first->isHidden());
    EXPECT_TRUE(first->tag().isEmpty());
    EXPECT_EQ(keysOf("ID11"), QStringList(4, QStringLiteral("<none>")));
    EXPECT_FALSE(m_filler->RegisteredGLVs().contains(QStringLiteral("IDGP1")));
    // It isn't the last element, so a new drop loads another one behind.
    drop(*page, *fromTree("ID11"), QPoint(200, 150));
    EXPECT_EQ(page->shctPrinters().size(), 3);

    // The shortcut's menu after a right click: disable, then remove.
    ctlShortcut& capper = *page->FindShortcut("ID12");
    QTest::mouseClick(&capper, Qt::RightButton, {}, capper.rect().center());
    QMenu& menu = ChildOf<QMenu>(*page, "mnuBtn");
    EXPECT_TRUE(menu.isVisible());
    EXPECT_FALSE(menuItem(*page, "mnuBtn_Disable").isChecked());
    EXPECT_FALSE(menuItem(*page, "mnuBtn_ListAlarms").isVisible());
    menu.close();
    menuItem(*page, "mnuBtn_Disable").trigger();
    EXPECT_TRUE(m_capper->Disabled());
    EXPECT_EQ(capper.BackColor(), dashboardColour(StateDisabled, capper));
    menuItem(*page, "mnuBtn_PrinterProperties").trigger();
    EXPECT_TRUE(handlerOf(*m_capper).calls.contains(QStringLiteral("ShowProperties")));
    menuItem(*page, "mnuBtn_Remove").trigger();
    EXPECT_EQ(page->FindShortcut("ID12"), nullptr);
    EXPECT_EQ(keysOf("ID12"), QStringList(4, QStringLiteral("<none>")));

    // A printer deleted from the tree takes its shortcut and keys once the deletion is over.
    m_line->Remove(QStringLiteral("ID11"));
    m_filler.reset();
    QCoreApplication::processEvents();
    EXPECT_EQ(page->FindShortcut("ID11"), nullptr);
    EXPECT_EQ(keysOf("ID11"), QStringList(4, QStringLiteral("<none>")));

    // Replace offers the printers not on the surface; the one chosen takes the same place.
    drop(*page, *fromTree("ID12"), QPoint(300, 250));
    TreeFixture::printer(QStringLiteral("ID13"), QStringLiteral("Labeller"), *m_line);
    ctlShortcut& replaced = *page->FindShortcut("ID12");
    const QPoint place = replaced.pos();
    QTest::mouseClick(&replaced, Qt::RightButton, {}, replaced.rect().center());
    ChildOf<QMenu>(*page, "mnuBtn").close();
    menuItem(*page, "mnuBtn_Replace").trigger();
    QMenu& choice = ChildOf<QMenu>(*page, "mnuReplaceWith");
    ASSERT_EQ(choice.actions().size(), 1);
    EXPECT_EQ(choice.actions().first()->text(), QStringLiteral("Labeller"));
    choice.actions().first()->trigger();
    EXPECT_EQ(page->FindShortcut("ID12"), nullptr);
    ASSERT_NE(page->FindShortcut("ID13"), nullptr);
    EXPECT_EQ(page->FindShortcut("ID13")->pos(), place);
}

TEST_F(DashboardTest, RestoringPlacesStoredShortcutsDropsGoneOnesAndBringsStrayOnesIntoView)
{
    const auto keep = [this](const QString& id, const QString& left, const QString& top) {
        dashboard().AddStoredSetting("Shortcut:" + id + ".top", top);
        dashboard().AddStoredSetting("Shortcut:" + id + ".left", left);
        dashboard().AddStoredSetting("Shortcut:" + id + ".width", "1935");
        dashboard().AddStoredSetting("Shortcut:" + id + ".height", "700");
    };
    keep("ID11", "1500.4", "750");
    keep("ID99", "300", "300");
    keep("ID12", "-4500", "garbled");
    TreeFixture::printer(QStringLiteral("ID13"), QStringLiteral("Labeller"), *m_line);
    keep("ID13", "99999999", "600");

    auto page = showDashboard();
    EXPECT_EQ(page->FindShortcut("ID11")->pos(), QPoint(100, 50));
    EXPECT_EQ(page->FindShortcut("ID12")->pos(), QPoint(0, 0));
    const ctlShortcut& far = *page->FindShortcut("ID13");
    EXPECT_LE((far.x() + far.width()) * 15, GroupUI::SurfaceLimit);
    EXPECT_EQ(far.y(), 40);
    // A printer gone from the tree shows nothing, says nothing, and its keys go.
    EXPECT_EQ(page->FindShortcut("ID99"), nullptr);
    EXPECT_EQ(keysOf("ID99"), QStringList(4, QStringLiteral("<none>")));
    EXPECT_EQ(keysOf("ID12").mid(0, 2), (QStringList{"0", "0"}));
    EXPECT_TRUE(m_dialogs->boxes().isEmpty());
    // The surface reaches the farthest shortcut.
    EXPECT_EQ(page->width(), far.x() + far.width());
}

TEST_F(DashboardTest, TheBackgroundComesFromTheDialogIsClearedAndABadOneIsSaidOnce)
{
    auto page = showDashboard();
    // An empty dashboard shows only its name, and keeps its size.
    EXPECT_EQ(page->extent(), GroupUI::EmptySurface);
    EXPECT_EQ(text(*page, "lblName"), QStringLiteral("Line 1"));

    const QString picture = pictureFile(QStringLiteral("hall.png"), QSize(900, 600));
    auto& dialog = ChildOf<QFileDialog>(*page, "dlgCommon");
    EXPECT_EQ(dialog.windowTitle(), QStringLiteral("Open Background"));
    QTimer::singleShot(0, &dialog, [&] {
        dialog.selectFile(picture);
        QMetaObject::invokeMethod(&dialog, "accept");
    });
    menuItem(*page, "mnuGroupCtx_Open").trigger();
    EXPECT_EQ(page->backgroundPath(), picture);
    EXPECT_EQ(stored(dashboard(), "Background"), picture);
    EXPECT_EQ(page->extent(), QSize(900 * 15, 600 * 15));
    EXPECT_EQ(page->size(), QSize(900, 600));

    // Cancelling changes nothing; clearing keeps the surface as large as it was.
    QTimer::singleShot(0, &dialog, [&] { dialog.reject(); });
    menuItem(*page, "mnuGroupCtx_Open").trigger();
    EXPECT_EQ(page->backgroundPath(), picture);
    menuItem(*page, "mnuGroupCtx_Clear").trigger();
    EXPECT_EQ(stored(dashboard(), "Background"), QString());
    EXPECT_EQ(page->size(), QSize(900, 600));
    EXPECT_TRUE(m_dialogs->boxes().isEmpty());

    // A missing file and a file that isn't a picture: the surface shows without them, and each
    // is said once, however often the group is shown.
    const QString notAPicture = QDir(programFolder()).filePath("notes.png");
    writeFile(QStringLiteral("notes.png"), "shift notes, not a picture");
    for (const QString& path : {QDir(programFolder()).filePath("gone.png"), notAPicture}) {
        dashboard().AddStoredSetting(QStringLiteral("Background"), path);
        m_dialogs->clear();
        for (int showing = 0; showing < 2; ++showing) {
            auto shown = showDashboard();
            EXPECT_EQ(shown->backgroundPath(), path);
            EXPECT_EQ(shown->extent(), GroupUI::EmptySurface);
        }
        ASSERT_EQ(m_dialogs->boxes().size(), 1) << path.toStdString();
        EXPECT_TRUE(m_dialogs->boxes().first().text.contains(path));
        EXPECT_EQ(stored(dashboard(), "Background"), path);
    }
}
} // namespace
