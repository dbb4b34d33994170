#include "core/ImageList.h"
#include "platform/qt/ControlHelpers.h"
#include "platform/qt/FormPosition.h"
#include "platform/qt/HelpWindow.h"
#include "platform/qt/QtForms.h"
#include "platform/qt/frmOptions.h"
#include "printing/ui/frmDownloads.h"
#include "services/ApplicationOptions.h"
#include "services/NoticeOptions.h"
#include "services/SettingsAccess.h"
#include "services/VigilError.h"
#include "support/ServicesFixture.h"
#include "ui/WidgetApplication.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QPointer>
#include <QPushButton>
#include <QScreen>
#include <QSpinBox>
#include <QTest>
#include <QTextBrowser>
#include <QTreeWidget>

namespace {
const QString Root = QStringLiteral("Software\\Orvane\\Vigil\\");
const QString FormsKey = Root + QStringLiteral("Forms\\");

class FormsTest : public ServicesFixture
{
protected:
    static void SetUpTestSuite() { EnsureWidgetApplication(); }

    void SetUp() override
    {
        ServicesFixture::SetUp();
        writeCatalogue(444,
                       {{30, "Between %1 and %2"},
                        {398, "Downloading"},
                        {399, "Complete"},
                        {400, "Printing"},
                        {401, "Waiting"},
                        {438, "Print Progress"}},
                       "m");
    }

    static QRect screen(const QWidget& form) { return form.screen()->availableGeometry(); }
};

class OptionsDialogTest : public FormsTest
{
protected:
    void SetUp() override
    {
        FormsTest::SetUp();
        m_form = std::make_unique<frmOptions>();
        m_field = &ChildOf<QLineEdit>(*m_form, "txtInterval");
        m_upDown = &ChildOf<QSpinBox>(*m_form, "spnInterval");
        m_ok = &ChildOf<QPushButton>(*m_form, "cmdOK");
        m_form->show();
    }

    QString afterKey(const QString& text, Qt::Key key, Qt::KeyboardModifiers modifiers = {})
    {
        m_field->setText(text);
        QTest::keyClick(m_field, key, modifiers);
        return m_field->text();
    }

    std::unique_ptr<frmOptions> m_form;
    QLineEdit* m_field = nullptr;
    QSpinBox* m_upDown = nullptr;
    QPushButton* m_ok = nullptr;
};

TEST_F(OptionsDialogTest, KeysStepByOneOrTenAndWrapWhileTheUpDownFollowsTheField)
{
    EXPECT_EQ(m_field->text(), QStringLiteral("20"));
    EXPECT_EQ(afterKey("65000", Qt::Key_Up), QStringLiteral("4"));
    EXPECT_EQ(afterKey("4", Qt::Key_Down), QStringLiteral("65000"));
    EXPECT_EQ(afterKey("64995", Qt::Key_Up, Qt::ShiftModifier), QStringLiteral("4"));
    EXPECT_EQ(afterKey("8", Qt::Key_Down, Qt::ShiftModifier), QStringLiteral("65000"));
    EXPECT_EQ(afterKey("20", Qt::Key_Up, Qt::ControlModifier), QStringLiteral("30"));
    EXPECT_EQ(afterKey("30", Qt::Key_Down, Qt::AltModifier), QStringLiteral("20"));
    EXPECT_EQ(afterKey("4.5", Qt::Key_Up), QStringLiteral("5.5"));
    EXPECT_EQ(afterKey("abc", Qt::Key_Up), QStringLiteral("abc"));

    m_field->setText(QStringLiteral("120"));
    EXPECT_EQ(m_upDown->value(), 120);
    m_field->setText(QStringLiteral("3")); // out of range: the arrows stay where they were
    EXPECT_EQ(m_upDown->value(), 120);
    m_upDown->stepUp();
    EXPECT_EQ(m_field->text(), QStringLiteral("121"));
}

TEST_F(OptionsDialogTest, AnIntervalInMillisecondsShowsAsSecondsWithItsFraction)
{
    ASSERT_EQ(WriteValue(HKEY_LOCAL_MACHINE, OptionsKey, "PollInterval", REG_DWORD, 4500), 0);
    ApplicationOptions::process() = ApplicationOptions();
    frmOptions form;
    EXPECT_EQ(ChildOf<QLineEdit>(form, "txtInterval").text(), QStringLiteral("4.5"));
    EXPECT_EQ(ChildOf<QSpinBox>(form, "spnInterval").value(), 4);
}

TEST_F(OptionsDialogTest, OkRefusesWhatIsNotAWholeNumberOfSecondsInRangeAndSavesTheRest)
{
    for (const char* text : {"3", "65001", "abc", "", "99999999999"}) {
        SCOPED_TRACE(text);
        m_dialogs->clear();
        m_field->setText(QString::fromLatin1(text));
        m_ok->setFocus();
        m_ok->click();
        ASSERT_EQ(m_dialogs->boxes().size(), 1);
        const IDialogs::Box& box = m_dialogs->boxes().first();
        EXPECT_EQ(box.text, QStringLiteral("Between 4 and 65000"));
        EXPECT_TRUE(box.title.isEmpty());
        EXPECT_EQ(box.icon, IDialogs::Icon::None);
        EXPECT_EQ(box.buttons, IDialogs::Buttons::Ok);
        EXPECT_TRUE(m_form->isVisible());
        EXPECT_EQ(m_form->focusWidget(), m_field);
    }
    EXPECT_EQ(GetPollInterval(), 20000);
    EXPECT_FALSE(storedValue(OptionsKey, "PollInterval").isValid());

    m_dialogs->clear();
    m_field->setText(QStringLiteral("3.6")); // rounded into range
    m_ok->click();
    EXPECT_TRUE(m_dialogs->boxes().isEmpty());
    EXPECT_EQ(m_form->result(), QDialog::Accepted);
    EXPECT_FALSE(m_form->isVisible());
    EXPECT_EQ(storedValue(OptionsKey, "PollInterval"), QVariant(4000));
    EXPECT_EQ(GetPollInterval(), 4000);
}

TEST_F(OptionsDialogTest, TheNoticesShowWhatIsKeptAndOkKeepsWhatTheyShow)
{
    NoticeOptions{true, 45, QStringLiteral("/tmp/bell.wav")}.save();
    frmOptions form;
    auto& notify = ChildOf<QCheckBox>(form, "chkNotify");
    auto& delay = ChildOf<QSpinBox>(form, "spnDelay");
    auto& sound = ChildOf<QLineEdit>(form, "txtSound");
    EXPECT_TRUE(notify.isChecked());
    EXPECT_EQ(delay.value(), 45);
    EXPECT_EQ(sound.text(), QStringLiteral("/tmp/bell.wav"));

    notify.setChecked(false);
    EXPECT_FALSE(delay.isEnabled());
    delay.setValue(0);
    sound.setText(QStringLiteral("  "));
    ChildOf<QPushButton>(form, "cmdCancel").click();
    EXPECT_EQ(NoticeOptions::load().delaySeconds, 45);

    frmOptions again;
    ChildOf<QCheckBox>(again, "chkNotify").setChecked(false);
    ChildOf<QSpinBox>(again, "spnDelay").setValue(0);
    ChildOf<QLineEdit>(again, "txtSound").setText(QStringLiteral("  "));
    ChildOf<QPushButton>(again, "cmdOK").click();
    const NoticeOptions kept = NoticeOptions::load();
    EXPECT_FALSE(kept.enabled);
    EXPECT_EQ(kept.delaySeconds, 0);
    EXPECT_TRUE(kept.soundFile.isEmpty());
}

TEST_F(FormsTest, TheOptionsOpenModalAndGoWhenClosed)
{
    QtForms().ShowOptions();
    QPointer<frmOptions> form = qobject_cast<frmOptions*>(QApplication::activeModalWidget());
    ASSERT_TRUE(form);
    EXPECT_TRUE(form->isVisible());
    form->reject();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_TRUE(form.isNull());
}

TEST_F(FormsTest, HelpShowsTheFileInOneWindowAndNamesAMissingFile)
{
    writeFile("Vigil.html",
              "<html><head><title>Vigil help</title></head><body>Polling the line</body></html>");
    const QString path = programFolder() + QStringLiteral("/Vigil.html");
    std::unique_ptr<HelpWindow> window(HelpWindow::showFile(path));
    ASSERT_TRUE(window);
    EXPECT_TRUE(window->isVisible());
    EXPECT_TRUE(window->browser().toPlainText().contains(QStringLiteral("Polling the line")));
    EXPECT_EQ(window->windowTitle(), QStringLiteral("Vigil help"));
    EXPECT_EQ(HelpWindow::showFile(path), window.get());
    EXPECT_TRUE(m_dialogs->boxes().isEmpty());

    const QString missing = programFolder() + QStringLiteral("/MSGde/Vigil.html");
    QtForms().ShowHelp(missing);
    ASSERT_EQ(m_dialogs->boxes().size(), 1);
    EXPECT_TRUE(m_dialogs->boxes().first().text.contains(missing));
    EXPECT_EQ(m_dialogs->boxes().first().icon, IDialogs::Icon::Warning);
}

TEST_F(FormsTest, APlaceIsKeptOnlyWhileTheFormIsInsideTheScreenAndComesBack)
{
    QWidget form;
    form.resize(200, 100);
    const QRect area = screen(form);
    const QString kept = QStringLiteral("1,1200,1500,3000,1500,");
    // Inside; half off the right edge; touching the top: the last good place stays.
    for (const QPoint at : {QPoint(100, 80), QPoint(area.width() - 100, 80), QPoint(100, 0)}) {
        form.move(area.topLeft() + at);
        SaveFormPosition(form, "frmTest", Root);
        EXPECT_EQ(storedValue(FormsKey, "frmTest"), QVariant(kept));
    }

    form.move(area.topLeft() + QPoint(5, 5));
    form.resize(50, 50);
    RestoreFormPosition(form, "frmTest", Root);
    EXPECT_EQ(QRect(form.pos(), form.size()),
              QRect(area.topLeft() + QPoint(100, 80), QSize(200, 100)));

    // A value without its last comma doesn't count: the form is centred instead.
    ASSERT_EQ(WriteValue(HKEY_LOCAL_MACHINE, FormsKey, "frmTest", REG_SZ, kept.chopped(1)), 0);
    RestoreFormPosition(form, "frmTest", Root);
    EXPECT_EQ(form.pos(),
              area.topLeft() + QPoint((area.width() - 200) / 2, (area.height() - 100) / 2));
}

TEST_F(FormsTest, AFormCentredOverAWindowAtTheEdgeStaysOnTheScreen)
{
    QWidget owner;
    owner.setGeometry(QRect(screen(owner).topLeft(), QSize(100, 100)));
    QWidget form;
    form.resize(300, 200);
    CentreOverWindow(&owner, form);
    EXPECT_EQ(form.pos(), screen(form).topLeft());
}

TEST_F(FormsTest, CombosCarryNumbersAndIconsAreLoadedOnceByNameAndSize)
{
    QComboBox combo;
    EXPECT_THROW(GetComboData(combo), VigilError);
    AddComboItem(combo, "Slow", 10);
    AddComboItem(combo, "Fast", 20);
    AddComboItem(combo, "Slow", 30); // the number goes to the first entry of that text
    SelectComboByData(combo, 20);
    EXPECT_EQ(GetComboData(combo), 20);
    SelectComboByData(combo, 30);
    EXPECT_EQ(GetComboData(combo), 30);
    EXPECT_EQ(combo.currentIndex(), 0);
    SelectComboByData(combo, 99);
    EXPECT_EQ(combo.currentIndex(), 0);

    writeFile(QStringLiteral("Icons/Time.ico"), "icon");
    ImageList images;
    EXPECT_EQ(LoadIconImage(images, "Time.ico", 0), 1);
    EXPECT_EQ(LoadIconImage(images, "Time.ico", 3), 2);
    EXPECT_EQ(LoadIconImage(images, "Time.ico", 0), 1);
    EXPECT_EQ(GetImageIndex(images, "Time.ico_3"), 2);
    EXPECT_EQ(LoadIconImage(images, "Missing.ico", 0), 0);
    EXPECT_EQ(images.count(), 2);
}

class ProgressLogTest : public FormsTest
{
protected:
    void SetUp() override
    {
        FormsTest::SetUp();
        m_log = std::make_unique<frmDownloads>();
        m_list = &ChildOf<QTreeWidget>(*m_log, "lvwDownloads");
    }

    // The row's printer, status, message, whether dated, icon, and bold in printer and status.
    QStringList row(int index) const
    {
        const QTreeWidgetItem* item = m_list->topLevelItem(index);
        if (!item)
            return {};
        const auto bold = [item](int column) {
            return item->font(column).bold() ? "B" : "-";
        };
        return {item->text(frmDownloads::Printer),
                item->text(frmDownloads::Status),
                item->text(frmDownloads::Message),
                item->text(frmDownloads::DateTime).isEmpty() ? "undated" : "dated",
                item->data(frmDownloads::Printer, frmDownloads::IconKeyRole).toString(),
                QString::fromLatin1(bold(frmDownloads::Printer)) + bold(frmDownloads::Status)};
    }

    std::unique_ptr<frmDownloads> m_log;
    QTreeWidget* m_list = nullptr;
};

TEST_F(ProgressLogTest, EachPrinterHasOneRowThatTheLatestEventRewrites)
{
    m_log->AddStatusItem("Line 1", "LABEL.FMT\nsecond", 2);
    m_log->AddStatusItem("Line 1", "LABEL.FMT", 1);
    EXPECT_TRUE(m_log->isVisible());
    EXPECT_EQ(row(0), (QStringList{"Line 1", "Waiting", "LABEL.FMT", "dated", "Neutral", "--"}));
    m_log->AddErrorItem("Line 1", "Head\nopen", 1234);
    EXPECT_EQ(row(0), (QStringList{"Line 1", "1234", "Head open", "dated", "Error", "BB"}));
    m_log->AddStatusItem("Line 1", "LABEL.FMT", 4);
    EXPECT_EQ(row(0), (QStringList{"Line 1", "Complete", "LABEL.FMT", "dated", "Success", "--"}));
    // A status without a word blanks the cell and keeps the icon.
    m_log->AddStatusItem("Line 1", "OTHER.FMT", 9);
    EXPECT_EQ(row(0), (QStringList{"Line 1", "", "OTHER.FMT", "dated", "Success", "--"}));
    EXPECT_EQ(m_list->topLevelItemCount(), 1);
}

TEST_F(ProgressLogTest, QuietEventsAddNoRowAndNamesCompareWithCase)
{
    m_log->AddMessageItem("Coder", QString());
    EXPECT_EQ(m_list->topLevelItemCount(), 0);
    EXPECT_FALSE(m_log->isVisible());
    m_log->AddStatusItem("Coder", "LABEL.FMT", 0);
    EXPECT_EQ(m_list->topLevelItemCount(), 0);
    EXPECT_TRUE(m_log->isVisible());

    m_log->AddMessageItem("Coder", "Ribbon low");
    m_log->AddMessageItem("coder", "Ribbon low");
    ASSERT_EQ(m_list->topLevelItemCount(), 2);
    EXPECT_EQ(row(0).first(), QStringLiteral("Coder"));
    EXPECT_EQ(row(1), (QStringList{"coder", "", "Ribbon low", "dated", "Neutral", "--"}));
}

TEST_F(ProgressLogTest, ClosingHidesKeepingRowsAndPlaceAndClearEmpties)
{
    m_log->AddMessageItem("Coder", "Ribbon low");
    const QPoint inside = screen(*m_log).topLeft() + QPoint(40, 30);
    m_log->move(inside);
    m_log->close();
    EXPECT_FALSE(m_log->isVisible());
    EXPECT_EQ(m_list->topLevelItemCount(), 1);
    EXPECT_TRUE(storedValue(FormsKey, "frmDownloads").isValid());

    m_log->move(inside + QPoint(10, 10));
    m_log->ShowMe();
    EXPECT_TRUE(m_log->isVisible());
    EXPECT_EQ(m_log->pos(), inside);

    ChildOf<QPushButton>(*m_log, "cmdClear").click();
    EXPECT_EQ(m_list->topLevelItemCount(), 0);
    ChildOf<QPushButton>(*m_log, "cmdOK").click();
    EXPECT_FALSE(m_log->isVisible());
}
} // namespace
