// The C-series alerts, files and logos tabs against real handlers over fake queues.

#include "core/ErrorColours.h"
#include "drivers/HandlerFixture.h"
#include "drivers/clsDominoHandlerC.h"
#include "pages/ctlDominoCPage2.h"
#include "pages/ctlDominoCPage3.h"
#include "pages/ctlDominoCPage3_1.h"
#include "platform/qt/QtTreeView.h"
#include "ui/WidgetApplication.h"

#include <QBuffer>
#include <QCheckBox>
#include <QImage>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTest>

namespace {
const QByteArray SetupList = QByteArrayLiteral("a,b,c,300,12,x,4,12345\xFE");
const QByteArray Count = QByteArrayLiteral("\x15\x01");

QByteArray statusWithInk(const QByteArray& ink)
{
    return "Ink status : " + ink + "\r\xFE";
}

QByteArray icon(Qt::GlobalColor colour)
{
    QImage image(32, 32, QImage::Format_ARGB32);
    image.fill(colour);
    QBuffer file;
    file.open(QIODevice::WriteOnly);
    image.save(&file, "ICO");
    return file.data();
}

class CSeriesPagesTest : public HandlerFixture
{
protected:
    static void SetUpTestSuite() { EnsureWidgetApplication(); }

    void SetUp() override
    {
        HandlerFixture::SetUp();
        writeCatalogue(300, {{107, "The port is busy."},
                             {108, "Wait for it."},
                             {115, "comms error %1"},
                             {168, "Ink OK"},
                             {169, "Ink low: %1 prints left"},
                             {170, "Bottle empty"},
                             {171, "Refused (NAK)"},
                             {172, "Comms OK"},
                             {173, "Comms fault (SOH)"},
                             {181, "Set"},
                             {283, "Processing..."}});
        writeFile(QStringLiteral("Icons/InkOk.ico"), icon(Qt::green));
        writeFile(QStringLiteral("Icons/InkOut.ico"), icon(Qt::red));
        qputenv("LC_TIME", "en_GB.UTF-8");
    }

    clsDominoHandlerC& coder(bool checkErrorLog = false)
    {
        return node<clsDominoHandlerC>(QStringLiteral("Coder"), 2100, [&](clsComponent& made) {
            if (checkErrorLog)
                made.AddStoredSetting(QStringLiteral("GetErrorLog"), QStringLiteral("True"));
        });
    }

    // A round from the status request to the file list, the error log not asked for.
    void answerRound(clsDominoHandlerC& handler, const QByteArray& logos, const QByteArray& files)
    {
        handler.ResetCurrentCommand();
        handler.Process();
        m_queue->inject(statusWithInk("0"));
        m_queue->inject(SetupList);
        for (const QByteArray& reply : {logos, QByteArray("\xC1\x42\x43\r"), Count, files})
            m_queue->inject(reply);
        sent();
    }

    void reportInk(clsDominoHandlerC& handler, const QByteArray& ink)
    {
        handler.ResetCurrentCommand();
        handler.Process();
        m_queue->inject(statusWithInk(ink));
    }

    static QColor stripColour(const QWidget& page, const char* strip)
    {
        return ChildOf<QPushButton>(page, strip).palette().color(QPalette::Button);
    }
    static QColor colourOf(qint32 state, const QWidget& page)
    {
        return QtTreeView::toColor(LookUpColour(state, DashboardPalette, false), page.palette());
    }
    static QColor pictureColour(const QWidget& page)
    {
        const QPixmap picture = ChildOf<QLabel>(page, "imgInk").pixmap();
        return picture.isNull() ? QColor() : picture.toImage().pixelColor(16, 16);
    }
    static QString labelText(const QWidget& page, const char* label)
    {
        return ChildOf<QLabel>(page, label).text();
    }
    static QStringList rows(const QWidget& page, const char* list)
    {
        QStringList texts;
        const auto& widget = ChildOf<QListWidget>(page, list);
        for (int row = 0; row < widget.count(); ++row)
            texts.append(widget.item(row)->text());
        return texts;
    }
};

TEST_F(CSeriesPagesTest, TheAlertsPageShowsTheInkInTheColourOfItsOwnState)
{
    clsDominoHandlerC& handler = coder();
    ctlDominoCPage2 page;
    page.Setup(QStringLiteral("Coder"), &handler);

    reportInk(handler, "210");
    EXPECT_EQ(labelText(page, "lblInk"), QStringLiteral("Ink low: 10 prints left"));
    EXPECT_EQ(stripColour(page, "cmdErrInk"), colourOf(StateWarning, page));
    EXPECT_EQ(pictureColour(page), QColor(Qt::red));
    // The whole alert can be read, whatever the printer's state says of it.
    EXPECT_EQ(ChildOf<QPlainTextEdit>(page, "txtErrMsg").toPlainText(),
              QStringLiteral("Ink low: 10 prints left"));
    reportInk(handler, "20");
    EXPECT_EQ(stripColour(page, "cmdErrInk"), colourOf(StateFault, page));

    reportInk(handler, "0");
    EXPECT_EQ(labelText(page, "lblInk"), QStringLiteral("Ink OK"));
    EXPECT_EQ(stripColour(page, "cmdErrInk"), colourOf(StateGood, page));
    EXPECT_EQ(pictureColour(page), QColor(Qt::green));
    // Without its picture file the bottle keeps the picture shown.
    reportInk(handler, "3");
    EXPECT_EQ(labelText(page, "lblInk"), QStringLiteral("Bottle empty"));
    EXPECT_EQ(stripColour(page, "cmdErrInk"), colourOf(StateFault, page));
    EXPECT_EQ(pictureColour(page), QColor(Qt::green));
    reportInk(handler, "7");
    EXPECT_EQ(labelText(page, "lblInk"), QString());
    EXPECT_EQ(stripColour(page, "cmdErrInk"), colourOf(StateNoAnswer, page));
    EXPECT_TRUE(ChildOf<QLabel>(page, "imgInk").pixmap().isNull());
    EXPECT_TRUE(m_dialogs->boxes().isEmpty());
}

TEST_F(CSeriesPagesTest, TheCommsStripShowsWhatToClearOrWaitForAndClearsIt)
{
    // The printer keeps one kind of comms error at a time; a fault outranks a refusal.
    EXPECT_EQ(
        ctlDominoCPage2::CommsText(clsDominoHandlerC::NakBit | clsDominoHandlerC::SohBit, false),
        QStringLiteral("Comms fault (SOH)"));
    EXPECT_EQ(ctlDominoCPage2::CommsText(clsDominoHandlerC::NakBit, false),
              QStringLiteral("Refused (NAK)"));

    clsDominoHandlerC& handler = coder();
    ctlDominoCPage2 page;
    page.Setup(QStringLiteral("Coder"), &handler);
    auto& strip = ChildOf<QPushButton>(page, "cmdErrComms");
    EXPECT_TRUE(strip.isHidden());
    EXPECT_EQ(labelText(page, "lblComms"), QStringLiteral("Comms OK"));

    handler.Process();
    m_queue->inject("\x15");
    EXPECT_FALSE(strip.isHidden());
    EXPECT_EQ(stripColour(page, "cmdErrComms"), colourOf(StateWarning, page));
    EXPECT_EQ(labelText(page, "lblComms"), QStringLiteral("Refused (NAK)"));
    EXPECT_EQ(ChildOf<QLineEdit>(page, "txtErrID").text(), QStringLiteral("comms error 2"));
    handler.Process();
    m_queue->inject("\x01");
    EXPECT_EQ(labelText(page, "lblComms"), QStringLiteral("Comms fault (SOH)"));

    QTest::mouseClick(&strip, Qt::LeftButton);
    EXPECT_EQ(handler.CommsErrors(), 0);
    EXPECT_TRUE(strip.isHidden());
    EXPECT_EQ(labelText(page, "lblComms"), QStringLiteral("Comms OK"));

    // A busy port without a comms error: two lines, and the strip in the busy colour.
    handler.setPortBusy(true);
    EXPECT_EQ(labelText(page, "lblComms"), QStringLiteral("The port is busy.\nWait for it."));
    EXPECT_FALSE(strip.isHidden());
    EXPECT_EQ(stripColour(page, "cmdErrComms"), colourOf(StatePortBusy, page));
}

TEST_F(CSeriesPagesTest, TheErrorLogIsShownAfterTheNextReplyAndItsChoicesReachTheHandler)
{
    clsDominoHandlerC& handler = coder();
    ctlDominoCPage2 page;
    page.Setup(QStringLiteral("Coder"), &handler);
    page.show();
    auto& list = ChildOf<QListWidget>(page, "lstAlarm");
    // An item view takes a double click as the second click on the item the first one hit.
    const auto doubleClick = [&list](int row) {
        const QPoint at =
            row < list.count() ? list.visualItemRect(list.item(row)).center() : QPoint(5, 5);
        QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, at);
        QTest::mouseDClick(list.viewport(), Qt::LeftButton, {}, at);
    };
    EXPECT_EQ(rows(page, "lstAlarm"), QStringList{"Processing..."});
    handler.setDisabled(false);
    EXPECT_EQ(rows(page, "lstAlarm"), QStringList());
    doubleClick(0);
    EXPECT_TRUE(m_dialogs->boxes().isEmpty());

    // Switched on, the log is asked for in the next round, and stays on for the node.
    auto& check = ChildOf<QCheckBox>(page, "chkGetErrorLog");
    EXPECT_FALSE(check.isChecked());
    // On its box, as the line beside it is wider than its text.
    const QPoint box(8, check.height() / 2);
    QTest::mouseClick(&check, Qt::LeftButton, {}, box);
    EXPECT_TRUE(handler.bCheckErrorLog());
    QString stored;
    ASSERT_TRUE(m_node->GetStoredSetting(QStringLiteral("GetErrorLog"), stored));
    EXPECT_EQ(stored, QStringLiteral("True"));
    handler.Process();
    m_queue->inject(statusWithInk("0"));
    m_queue->inject(SetupList);
    EXPECT_EQ(sent(), (QList<QByteArray>{"\x0E", "\x80", "\x1D"}));
    m_queue->inject("E2 ink 21/11/2026 10:00:00\nE3 head 21/11/2026 11:00:00\n\xFE");
    EXPECT_EQ(rows(page, "lstAlarm"),
              (QStringList{"E3 head 21/11/2026 11:00:00", "E2 ink 21/11/2026 10:00:00"}));
    EXPECT_EQ(ChildOf<QPlainTextEdit>(page, "txtErrMsg").toPlainText(),
              QStringLiteral("E3 head 21/11/2026 11:00:00"));

    // The newest entry dealt with, the printer is healthy again; the log stays on show.
    EXPECT_EQ(handler.GetErrorState(), StateWarning);
    QTest::mouseClick(&ChildOf<QPushButton>(page, "cmdIgnoreErrLog"), Qt::LeftButton);
    EXPECT_EQ(handler.GetErrorState(), StateGood);
    EXPECT_EQ(rows(page, "lstAlarm").size(), 2);

    doubleClick(1);
    ASSERT_EQ(m_dialogs->boxes().size(), 1);
    EXPECT_EQ(m_dialogs->boxes()[0].text, QStringLiteral("E2 ink 21/11/2026 10:00:00"));
    EXPECT_EQ(m_dialogs->boxes()[0].icon, IDialogs::Icon::Information);

    QTest::mouseClick(&check, Qt::LeftButton, {}, box);
    EXPECT_FALSE(handler.bCheckErrorLog());
    ASSERT_TRUE(m_node->GetStoredSetting(QStringLiteral("GetErrorLog"), stored));
    EXPECT_EQ(stored, QStringLiteral("False"));
}

TEST_F(CSeriesPagesTest, FilesShowCleanedButTheRawNameIsSelectedAndTheRowIsKept)
{
    clsDominoHandlerC& handler = coder();
    ctlDominoCPage3 files;
    files.Setup(QStringLiteral("Coder"), &handler);
    ctlDominoCPage3_1 logos;
    logos.Setup(QStringLiteral("Coder"), &handler);
    auto& list = ChildOf<QListWidget>(files, "lstFileList");
    auto& set = ChildOf<QPushButton>(files, "cmdSetMessage");
    auto& logoText = ChildOf<QPlainTextEdit>(logos, "txtLogoList");
    EXPECT_EQ(rows(files, "lstFileList"), QStringList{""});
    EXPECT_EQ(logoText.toPlainText(), QString());
    EXPECT_EQ(set.text(), QStringLiteral("Set"));

    answerRound(handler, "LOGO1\rLOGO2\r", "\xC1\x42\x43\r DEF \r");
    EXPECT_EQ(ChildOf<QLineEdit>(files, "txtCurrentFile").text(), QStringLiteral("ABC"));
    EXPECT_EQ(rows(files, "lstFileList"), (QStringList{"ABC", "DEF", ""}));
    EXPECT_EQ(logoText.toPlainText(), QStringLiteral("LOGO1\nLOGO2\n"));
    EXPECT_FALSE(set.isEnabled());

    list.setCurrentRow(1);
    ASSERT_TRUE(set.isEnabled());
    QTest::mouseClick(&set, Qt::LeftButton);
    EXPECT_EQ(sent(), QList<QByteArray>{"\x09 DEF \r"});
    m_queue->inject("\x06");

    // The selection goes by row number, whatever the row now holds.
    answerRound(handler, "\r", "XYZ\rQRS\rTUV\r");
    EXPECT_EQ(list.currentRow(), 1);
    EXPECT_EQ(list.currentItem()->text(), QStringLiteral("QRS"));
    EXPECT_EQ(logoText.toPlainText(), QString());

    // An empty printer: one empty row, which selects nothing on the printer.
    answerRound(handler, "\r", "\r");
    EXPECT_EQ(rows(files, "lstFileList"), QStringList{""});
    EXPECT_EQ(list.currentRow(), -1);
    list.setCurrentRow(0);
    EXPECT_FALSE(set.isEnabled());
}
} // namespace
