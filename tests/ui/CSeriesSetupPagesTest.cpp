// The C-series general, printer set-up and interface set-up pages, and the shift editor
// placed on the set-up page.

#include "pages/ctlDominoCPage1.h"
#include "pages/ctlDominoCPage1_1.h"
#include "pages/ctlDominoCShift.h"
#include "pages/ctlGeneralCSeriesPage.h"
#include "platform/qt/ControlHelpers.h"
#include "ui/PageFixture.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDateEdit>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

namespace {
const QByteArray SetupList = QByteArrayLiteral("a,b,c,100,1000,x,4,0,0,1,1\xFE");

class CSeriesSetupPagesTest : public PageFixture
{
protected:
    void SetUp() override
    {
        PageFixture::SetUp();
        writeCatalogue(260, {{82, "Send Now"},
                             {131, "Name"},
                             {132, "Port"},
                             {136, "Please select a printer type."},
                             {139, "0 - Not configured"},
                             {140, "1 - Configured"},
                             {144, "Printer Clock"},
                             {148, "English"},
                             {149, "German"},
                             {150, "French"},
                             {151, "Spanish"},
                             {152, "Italian"},
                             {153, "Dutch"},
                             {154, "Portuguese"},
                             {155, "Swedish"},
                             {159, "Internal"},
                             {160, "External"},
                             {161, "Shaft encoder enabled"},
                             {229, "Shift 1"},
                             {230, "Shift 2"},
                             {231, "Shift 3"},
                             {232, "Shift 4"},
                             {233, "%1: the start hour must be a number from 0 to 23."},
                             {234, "%1: the start minute must be a number from 0 to 59."}});
    }

    // Types a shift into the editor's boxes.
    static void typeShift(QWidget& editor, int number, const char* id, const char* hour,
                          const char* minute)
    {
        const QByteArray shift = "ctlShift" + QByteArray::number(number);
        auto& boxes = ChildOf<QWidget>(editor, shift.constData());
        ChildOf<QLineEdit>(boxes, "txtId").setText(QString::fromLatin1(id));
        ChildOf<QLineEdit>(boxes, "txtStartHour").setText(QString::fromLatin1(hour));
        ChildOf<QLineEdit>(boxes, "txtStartMinute").setText(QString::fromLatin1(minute));
    }
};

TEST_F(CSeriesSetupPagesTest, TheGeneralPageIsRepeatableAndTellsTheFpgaAndAMissingType)
{
    clsDominoHandlerC& handler = coder(QStringLiteral("Coder"));
    ctlGeneralCSeriesPage page;
    page.Setup(QStringLiteral("Coder"), &handler);
    page.Setup(QStringLiteral("Coder"), &handler, QStringLiteral("10.0.4.21:9100"),
               QStringLiteral("Coder (friendly)"), true, true);
    auto& types = ChildOf<QComboBox>(page, "cboType");
    EXPECT_EQ(types.count(), 1);
    EXPECT_EQ(types.currentText(), QStringLiteral("Coder (friendly)"));
    for (const char* fixed : {"txtName", "txtPort", "cboType"})
        EXPECT_FALSE(ChildOf<QWidget>(page, fixed).isEnabled()) << fixed;
    QString name, port, type;
    page.GetValues(name, port, type);
    EXPECT_EQ((QStringList{name, port, type}),
              (QStringList{"Coder", "10.0.4.21:9100", "Coder (friendly)"}));
    EXPECT_EQ(ChildOf<QLabel>(page, "lblPort").text(), QStringLiteral("Port"));
    EXPECT_EQ(ChildOf<QLineEdit>(page, "txtFpgaStatus").text(),
              QStringLiteral("0 - Not configured"));
    EXPECT_TRUE(page.Validate(true));

    // The page doesn't follow the status itself: the frame's next Setup brings the change.
    answerRound(handler, statusReport({"Fpga status : 1", "Merlin version : B0042"}), SetupList);
    EXPECT_EQ(ChildOf<QLineEdit>(page, "txtFpgaStatus").text(),
              QStringLiteral("0 - Not configured"));
    page.Setup(QStringLiteral("Coder"), &handler);
    EXPECT_EQ(ChildOf<QLineEdit>(page, "txtFpgaStatus").text(), QStringLiteral("1 - Configured"));
    EXPECT_EQ(ChildOf<QLineEdit>(page, "txtFpgaVersion").text(), QStringLiteral("B.042"));
    EXPECT_TRUE(m_dialogs->boxes().isEmpty());

    // Without a type there is nothing to select; the warning is only shown when asked for.
    ctlGeneralCSeriesPage untyped;
    EXPECT_FALSE(untyped.Validate(false));
    EXPECT_EQ(untyped.focusWidget(), &ChildOf<QComboBox>(untyped, "cboType"));
    EXPECT_TRUE(m_dialogs->boxes().isEmpty());
    EXPECT_FALSE(untyped.Validate(true));
    ASSERT_EQ(m_dialogs->boxes().size(), 1);
    EXPECT_EQ(m_dialogs->boxes().first().text, QStringLiteral("Please select a printer type."));
    EXPECT_EQ(m_dialogs->boxes().first().icon, IDialogs::Icon::Warning);
    untyped.Setup(QStringLiteral("Coder"), &handler, QString(), QString(), false, false);
    EXPECT_EQ(ChildOf<QComboBox>(untyped, "cboType").count(), 0);
    EXPECT_FALSE(untyped.Validate(false));
}

TEST_F(CSeriesSetupPagesTest, ThePrinterSetUpPageShowsTheClockAndLanguageAndKeepsTheDate)
{
    clsDominoHandlerC& handler = coder(QStringLiteral("Coder"));
    ctlDominoCPage1 page;
    page.Setup(QStringLiteral("Coder"), &handler);
    auto& date = ChildOf<QDateEdit>(page, "dtpDate");
    auto& languages = ChildOf<QComboBox>(page, "cboLanguage");
    EXPECT_EQ(ChildOf<QLineEdit>(page, "txtTime").text(), QString());
    EXPECT_EQ(date.date(), date.minimumDate());
    ASSERT_EQ(languages.count(), 8);
    EXPECT_EQ(languages.itemText(7), QStringLiteral("Swedish"));
    EXPECT_EQ(languages.itemData(7).toInt(), 7);
    EXPECT_EQ(ChildOf<QGroupBox>(page, "fraTime").title(), QStringLiteral("Printer Clock"));

    answerRound(handler, statusReport({"Date : 22/11/2026", "Time : 14:05:09", "Language : 7"}),
                SetupList);
    EXPECT_EQ(date.date(), QDate(2026, 11, 22));
    const QString time = ChildOf<QLineEdit>(page, "txtTime").text();
    EXPECT_TRUE(time.contains(QStringLiteral(":05:09"))) << time.toStdString();
    EXPECT_FALSE(time.contains(QStringLiteral("UTC"))) << time.toStdString();
    EXPECT_EQ(languages.currentIndex(), 7);

    // A language the list doesn't have leaves the last one shown.
    answerRound(handler, statusReport({"Language : 8"}), SetupList);
    EXPECT_EQ(languages.currentIndex(), 7);

    // A date picked springs back to the printer's.
    date.setDate(QDate(2027, 1, 3));
    EXPECT_EQ(date.date(), QDate(2026, 11, 22));
    EXPECT_TRUE(m_dialogs->boxes().isEmpty());
}

TEST_F(CSeriesSetupPagesTest, TheInterfacePageFollowsThePrinterButNotWhatTheUserChanged)
{
    clsDominoHandlerC& handler = coder(QStringLiteral("Coder"));
    ctlDominoCPage1_1 page;
    page.Setup(QStringLiteral("Coder"), &handler);
    auto& photocell = ChildOf<QComboBox>(page, "cboPhotocell");
    auto& shaft = ChildOf<QCheckBox>(page, "chkShaft");
    EXPECT_EQ((QStringList{photocell.itemText(0), photocell.itemText(1), shaft.text()}),
              (QStringList{"Internal", "External", "Shaft encoder enabled"}));
    EXPECT_FALSE(shaft.isEnabled());
    EXPECT_EQ(photocell.currentIndex(), 0);
    EXPECT_FALSE(shaft.isChecked());

    answerRound(handler, statusReport({"Photocell : 1", "Shaft encoder : 1"}), SetupList);
    EXPECT_EQ(photocell.currentIndex(), 1);
    EXPECT_TRUE(shaft.isChecked());

    // A position the list doesn't have shows none rather than a wrong one.
    answerRound(handler, statusReport({"Photocell : 5", "Shaft encoder : 2"}), SetupList);
    EXPECT_EQ(photocell.currentIndex(), -1);
    EXPECT_FALSE(shaft.isChecked());

    SetTag(photocell, true);
    SetTag(shaft, true);
    answerRound(handler, statusReport({"Photocell : 0", "Shaft encoder : 1"}), SetupList);
    EXPECT_EQ(photocell.currentIndex(), -1);
    EXPECT_FALSE(shaft.isChecked());
    EXPECT_TRUE(m_dialogs->boxes().isEmpty());
}

TEST_F(CSeriesSetupPagesTest, AShiftTakesHoursAndMinutesOfTheDayRoundedAndAnyId)
{
    clsShift record;
    record.SetHour(7, 2);
    ctlShift shift;
    shift.SetShift(record, 2);
    EXPECT_EQ(ChildOf<QLineEdit>(shift, "txtStartHour").text(), QStringLiteral("7"));
    EXPECT_EQ(ChildOf<QLineEdit>(shift, "txtStartMinute").text(), QStringLiteral("0"));

    // The hour taken; none for a shift that isn't valid.
    const std::tuple<const char*, const char*, std::optional<qint32>> times[] = {
        {"23", "59", 23}, {"0", "0", 0},    {"22.6", "58.5", 23}, {"24", "0", {}},
        {"0", "60", {}},  {"-1", "0", {}},  {"0", "-1", {}},      {"", "0", {}},
        {"ab", "0", {}},  {"23.5", "0", {}}};
    for (const auto& [hour, minute, taken] : times) {
        SCOPED_TRACE(std::string(hour) + ":" + minute);
        ChildOf<QLineEdit>(shift, "txtId").setText(QStringLiteral("night"));
        ChildOf<QLineEdit>(shift, "txtStartHour").setText(QString::fromLatin1(hour));
        ChildOf<QLineEdit>(shift, "txtStartMinute").setText(QString::fromLatin1(minute));
        clsShift written = record;
        EXPECT_EQ(shift.GetShift(written), taken.has_value());
        // Nothing is written unless the whole shift is good, and then into its own slot.
        EXPECT_EQ(written.GetHour(2), taken.value_or(7));
        EXPECT_EQ(written.GetID(2), taken ? QStringLiteral("night") : QString());
        EXPECT_EQ(written.GetID(0), QString());
    }
}

TEST_F(CSeriesSetupPagesTest, TheEditorTakesShiftsUpToTheFirstBadOneAndSaysWhich)
{
    ctlDominoCShift editor;
    EXPECT_EQ(ChildOf<QGroupBox>(editor, "fraShift4").title(), QStringLiteral("Shift 4"));
    clsShift old;
    for (int slot = 0; slot < clsShift::Slots; ++slot)
        old.SetID(QStringLiteral("old"), slot);
    editor.setShifts(old);
    typeShift(editor, 1, "A", "6", "0");
    typeShift(editor, 2, "B", "14", "60");
    typeShift(editor, 3, "C", "22", "0");
    EXPECT_FALSE(editor.Validate());
    // Read all the same, the record holds the first shift and the old others.
    const clsShift& read = editor.Shifts();
    EXPECT_EQ((QStringList{read.GetID(0), read.GetID(1), read.GetID(2), read.GetID(3)}),
              (QStringList{"A", "old", "old", "old"}));
    EXPECT_EQ(read.GetHour(0), 6);

    const auto fault = editor.FirstFault();
    ASSERT_TRUE(fault.has_value());
    EXPECT_EQ(fault->shiftCaption, QStringLiteral("Shift 2"));
    EXPECT_EQ(fault->field, ctlShift::Field::StartMinute);
    EXPECT_EQ(fault->box,
              &ChildOf<QLineEdit>(ChildOf<QWidget>(editor, "ctlShift2"), "txtStartMinute"));

    typeShift(editor, 2, "B", "14", "30");
    EXPECT_TRUE(editor.Validate());
    EXPECT_FALSE(editor.FirstFault().has_value());
    EXPECT_EQ(editor.Shifts().GetMinute(1), 30);
}

TEST_F(CSeriesSetupPagesTest, SendNowSendsValidShiftsAndWarnsOfABadOneWithoutSending)
{
    clsDominoHandlerC& handler = coder(QStringLiteral("Coder"));
    ctlDominoCPage1 page;
    page.Setup(QStringLiteral("Coder"), &handler);
    auto& editor = ChildOf<ctlDominoCShift>(page, "ctlDominoCShift");
    auto& send = ChildOf<QPushButton>(page, "cmdSendShifts");
    EXPECT_EQ(send.text(), QStringLiteral("Send Now"));

    typeShift(editor, 1, "A", "6", "0");
    typeShift(editor, 2, "B", "14", "5");
    typeShift(editor, 3, "C", "x", "0");
    send.click();
    EXPECT_TRUE(sent(handler).isEmpty());
    ASSERT_EQ(m_dialogs->boxes().size(), 1);
    EXPECT_EQ(m_dialogs->boxes().first().text,
              QStringLiteral("Shift 3: the start hour must be a number from 0 to 23."));
    EXPECT_EQ(page.focusWidget(),
              &ChildOf<QLineEdit>(ChildOf<QWidget>(editor, "ctlShift3"), "txtStartHour"));

    m_dialogs->clear();
    typeShift(editor, 3, "C", "22", "0");
    send.click();
    // The fourth shift as the editor started it: no id, 00:00.
    const QByteArray setShifts = QByteArray(1, '\x13') + "A06:00B14:05C22:0000:00";
    EXPECT_EQ(sent(handler), QList<QByteArray>{setShifts});
    EXPECT_TRUE(m_dialogs->boxes().isEmpty());

    // While print work waits on the queue the handler holds the shifts back.
    queueOf(handler).pendingItems = 1;
    send.click();
    EXPECT_TRUE(sent(handler).isEmpty());
}
} // namespace
