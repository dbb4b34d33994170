// The command test console: its reading of the data field, its display of replies, and a
// session with a real coder over a fake queue, the modal window driven by timers.

#include "drivers/HandlerFixture.h"
#include "drivers/clsDominoHandlerC.h"
#include "pages/ctlCommands.h"
#include "pages/ctlDominoCPage5.h"
#include "pages/frmCommandTest.h"
#include "ui/WidgetApplication.h"

#include <QCheckBox>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPointer>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <QTreeWidget>

namespace {
class CommandConsoleTest : public HandlerFixture
{
protected:
    static void SetUpTestSuite() { EnsureWidgetApplication(); }

    void SetUp() override
    {
        HandlerFixture::SetUp();
        writeCatalogue(260, {{18, "Close"},
                             {77, "Command"},
                             {81, "Type"},
                             {85, "Write"},
                             {86, "Read"},
                             {87, "Write accepted"},
                             {92, "Header"},
                             {93, "Data (hex)"},
                             {94, "Data (text)"},
                             {95, "Length"},
                             {96, "Checksum"},
                             {235, "Command 26"}});
    }

    void TearDown() override
    {
        ICommandConsole::installFactory(nullptr);
        HandlerFixture::TearDown();
    }

    static QString received(const QWidget& commands)
    {
        return ChildOf<QPlainTextEdit>(commands, "txtReceive").toPlainText();
    }
    static void click(QWidget& button) { QTest::mouseClick(&button, Qt::LeftButton); }
    static void choose(ctlCommands& commands, int row)
    {
        auto& list = ChildOf<QTreeWidget>(commands, "lstCmd");
        list.setCurrentItem(list.topLevelItem(row));
    }

    // Clicks the button that opens the console, and runs `inside` in the console's own loop.
    // A console left open is closed after a while, as a failure.
    static void whileConsoleOpen(QWidget& opener,
                                 const std::function<void(frmCommandTest&)>& inside)
    {
        bool opened = false;
        QTimer step;
        step.setSingleShot(true);
        QObject::connect(&step, &QTimer::timeout, [&] {
            auto* form = qobject_cast<frmCommandTest*>(QApplication::activeModalWidget());
            opened = form != nullptr;
            if (form)
                inside(*form);
        });
        QTimer guard;
        guard.setSingleShot(true);
        QObject::connect(&guard, &QTimer::timeout, [] {
            if (QWidget* left = QApplication::activeModalWidget()) {
                ADD_FAILURE() << "the console stayed open";
                left->close();
            }
        });
        step.start(0);
        guard.start(5000);
        click(opener);
        EXPECT_TRUE(opened);
    }
};

TEST_F(CommandConsoleTest, TheDataFieldIsTextOrAListOfBytes)
{
    const std::pair<const char*, QByteArray> cases[] = {
        {"", {}},
        {"AB", "AB"},
        {"7", "7"},
        {"1,2,255", "\x01\x02\xFF"},
        {"1, x,256,-1, 7 ", QByteArray("\x01\0\0\0\x07", 5)},
        {",", QByteArray(2, '\0')},
    };
    for (const auto& [text, bytes] : cases)
        EXPECT_EQ(ctlCommands::ParseCommandData(QString::fromLatin1(text)), bytes) << text;

    ctlCommands commands;
    commands.AddCommand(7, QStringLiteral("bell"));
    commands.AddCommand(quint8(char(255)), QStringLiteral("last"));
    auto& list = ChildOf<QTreeWidget>(commands, "lstCmd");
    EXPECT_EQ(list.topLevelItem(0)->text(0), QStringLiteral("0x07"));
    EXPECT_EQ(list.topLevelItem(1)->text(0), QStringLiteral("0xFF"));
    EXPECT_EQ(list.topLevelItem(1)->text(1), QStringLiteral("last"));

    EXPECT_FALSE(commands.GetCommand());
    commands.EnableType(false);
    choose(commands, 1);
    ASSERT_TRUE(commands.GetCommand());
    EXPECT_EQ(commands.GetCommand()->code, 255);
    EXPECT_TRUE(commands.GetCommand()->data.isEmpty());
    EXPECT_FALSE(commands.UsesData());
    // With the type selector on, a type must be chosen too.
    commands.EnableType(true);
    EXPECT_FALSE(commands.GetCommand());
    auto& types = ChildOf<QListWidget>(commands, "lstType");
    EXPECT_EQ(types.item(0)->text(), QStringLiteral("Write"));
    types.setCurrentRow(1);
    ChildOf<QPlainTextEdit>(commands, "txtData").setPlainText(QStringLiteral("1,2,255"));
    ASSERT_TRUE(commands.GetCommand());
    EXPECT_EQ(commands.GetCommand()->type, 1);
    EXPECT_EQ(commands.GetCommand()->data, QByteArray("\x01\x02\xFF"));
    EXPECT_TRUE(commands.UsesData());
}

TEST_F(CommandConsoleTest, RepliesShowEachByteWithItsCode)
{
    ctlCommands commands;
    commands.SetResponseString(QString::fromLatin1("A\x07"));
    EXPECT_EQ(received(commands), QStringLiteral("A (0x41)   (0x07) "));
    // As text, without the line ends and zeros around it.
    ChildOf<QCheckBox>(commands, "chkShowAsText").click();
    EXPECT_EQ(received(commands), QStringLiteral("A\x07"));
    commands.SetResponseString(QString::fromLatin1("\r\nOK\r\n\0", 7));
    EXPECT_EQ(received(commands), QStringLiteral("OK"));
    commands.SetResponseBytes(QByteArray("\x02\0", 2));
    EXPECT_EQ(received(commands), QStringLiteral("(0x02) (0x00) "));

    // An A-series reply is read as its frame: write accepted, for command 0x10, data "A" 0.
    commands.m_bASeries = true;
    const QByteArray frame = QByteArray::fromHex("02000000000400104041009700");
    commands.SetResponseBytes(frame);
    EXPECT_EQ(received(commands), QStringLiteral("Header: (0x02) (0x00) (0x00) (0x00) (0x00) \n"
                                                 "Command: (0x10) \n"
                                                 "Type: Write accepted\n"
                                                 "\n"
                                                 "Data (text): A\n"
                                                 "\n"
                                                 "\n"
                                                 "Data (hex): (0x41) (0x00) \n"
                                                 "\n"
                                                 "Length: 4\n"
                                                 "Checksum: 151"));
    QByteArray broken = frame;
    broken[9] = 'B';
    commands.SetResponseBytes(broken);
    EXPECT_EQ(received(commands), QString());
}

TEST_F(CommandConsoleTest, SendingClearsTheLastReplyBeforeTheHandlerIsAsked)
{
    // Without a window to send through, the button does nothing.
    ctlCommands alone;
    alone.SetResponseString(QStringLiteral("old"));
    click(ChildOf<QPushButton>(alone, "cmdSend"));
    EXPECT_EQ(received(alone), QStringLiteral("o (0x6F) l (0x6C) d (0x64) "));

    frmCommandTest form;
    QStringList shownAtSend;
    form.Setup(
        {.send = [&] { shownAtSend.append(received(form.Cmd())); }, .end = {}, .closed = {}});
    form.Cmd().SetResponseString(QStringLiteral("old"));
    click(ChildOf<QPushButton>(form, "cmdSend"));
    EXPECT_EQ(shownAtSend, QStringList{QString()});
}

TEST_F(CommandConsoleTest, ACoderSendsTheChosenCommandAndItsReplyLandsInTheConsole)
{
    InstallCommandConsole();
    auto& coder = node<clsDominoHandlerC>(QStringLiteral("Coder"), 2100);
    ctlDominoCPage5 page;
    auto& start = ChildOf<QPushButton>(page, "cmdTest");
    EXPECT_FALSE(start.isEnabled()); // until the page has its printer
    page.Setup(QString(), &coder);
    QPointer<frmCommandTest> window;
    whileConsoleOpen(start, [&](frmCommandTest& form) {
        window = &form;
        ctlCommands& commands = form.Cmd();
        EXPECT_EQ(ChildOf<QTreeWidget>(commands, "lstCmd").topLevelItemCount(), 18);
        EXPECT_FALSE(ChildOf<QListWidget>(commands, "lstType").isEnabled());
        EXPECT_TRUE(ChildOf<QCheckBox>(commands, "chkShowAsText").isEnabled());
        choose(commands, 0);
        ChildOf<QPlainTextEdit>(commands, "txtData").setPlainText(QStringLiteral("AB"));
        click(ChildOf<QPushButton>(commands, "cmdSend"));
        EXPECT_EQ(sent(), QList<QByteArray>{QByteArray("\x1A") + "AB"});
        // Polling waits for the test command's reply.
        coder.Process();
        EXPECT_TRUE(sent().isEmpty());
        m_queue->inject("OK\x07");
        EXPECT_EQ(received(commands), QStringLiteral("O (0x4F) K (0x4B)   (0x07) "));
        click(ChildOf<QPushButton>(form, "cmdClose"));
    });
    EXPECT_EQ(coder.currentStage(), clsDominoHandlerC::StageIdle);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_TRUE(window.isNull());
    coder.Process();
    EXPECT_EQ(sent(), QList<QByteArray>{"\x0E"});

    // Closed by its window's own means, the pending command is dropped as well; opened again,
    // the console starts afresh.
    whileConsoleOpen(start, [&](frmCommandTest& form) {
        choose(form.Cmd(), 0);
        click(ChildOf<QPushButton>(form.Cmd(), "cmdSend"));
        EXPECT_EQ(coder.currentStage(), clsDominoHandlerC::StageConsole);
        QTest::keyClick(&form, Qt::Key_Escape);
    });
    EXPECT_EQ(coder.currentStage(), clsDominoHandlerC::StageIdle);
    whileConsoleOpen(start, [&](frmCommandTest& form) {
        EXPECT_EQ(ChildOf<QTreeWidget>(form.Cmd(), "lstCmd").topLevelItemCount(), 18);
        EXPECT_EQ(received(form.Cmd()), QString());
        form.close();
    });
    EXPECT_TRUE(m_dialogs->boxes().isEmpty());
}

TEST_F(CommandConsoleTest, APrinterThatGoesWhileItsConsoleIsOpenTakesTheConsoleWithIt)
{
    InstallCommandConsole();
    auto& coder = node<clsDominoHandlerC>(QStringLiteral("Coder"), 2100);
    ctlDominoCPage5 page;
    page.Setup(QString(), &coder);
    QPointer<frmCommandTest> window;
    whileConsoleOpen(ChildOf<QPushButton>(page, "cmdTest"), [&](frmCommandTest& form) {
        window = &form;
        m_node->ReleaseComponent();
    });
    EXPECT_TRUE(!window || window->isHidden());
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_TRUE(window.isNull());
    EXPECT_TRUE(m_dialogs->boxes().isEmpty());
}
} // namespace
