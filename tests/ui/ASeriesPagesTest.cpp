// The A-series properties, alarms and print set-up pages against a real handler whose queue
// is fed reply frames written out by hand.

#include "drivers/ASeriesFrames.h"
#include "drivers/HandlerFixture.h"
#include "drivers/clsAlarms.h"
#include "drivers/clsDominoHandlerA.h"
#include "pages/ctlDominoAPage1.h"
#include "pages/ctlDominoAPage3.h"
#include "pages/ctlDominoAPage4.h"
#include "ui/WidgetApplication.h"

#include <QDateEdit>
#include <QLineEdit>
#include <QListWidget>
#include <QLocale>
#include <QTest>

namespace {
// Stands in for the A-series frame: the page looks for its owner by this class name, and
// the frame answers CheckApply by asking the properties page whether anything is changed.
class ctlDominoAUI : public QWidget
{
    Q_OBJECT

public:
    Q_INVOKABLE void CheckApply()
    {
        answers.append(findChild<ctlDominoAPage1*>()->IsPageModified());
    }

    QList<bool> answers;
};

QByteArray clockData(const QDateTime& when)
{
    const QDate date = when.date();
    const QTime time = when.time();
    QByteArray data;
    for (const int part : {date.year() / 100, date.year() % 100, date.month(), date.day(),
                           time.hour(), time.minute(), time.second()})
        data += char(part);
    return data;
}

class ASeriesPagesTest : public HandlerFixture
{
protected:
    static void SetUpTestSuite() { EnsureWidgetApplication(); }

    void SetUp() override
    {
        HandlerFixture::SetUp();
        // The long time of this locale has a 12-hour clock and a time zone, both of which
        // the box must write and read back.
        QLocale::setDefault(QLocale(QLocale::English, QLocale::UnitedStates));
        writeCatalogue(300, {{276, "Please enter a valid time."}, {283, "Processing..."}});
        writeFile(QStringLiteral("MSGen/ASeriesAlerts.txt"),
                  "1\t0\tInk refill due\n3\t2\tHigh voltage trip, the head is switched off "
                  "until an engineer has checked the deflection plates\n");
        ResetAlarmLookup();
        m_printer = &node<clsDominoHandlerA>(QStringLiteral("A1"), 2011);
        m_tab = new QWidget(&m_owner);
    }

    void TearDown() override
    {
        QLocale::setDefault(QLocale::system());
        ResetAlarmLookup();
        HandlerFixture::TearDown();
    }

    template <typename Page> Page& page()
    {
        auto* made = new Page(m_tab);
        made->Setup(QStringLiteral("A1"), m_printer);
        return *made;
    }

    // A whole round, the printer's clock showing `printerTime`.
    void answerRound(const QDateTime& printerTime, const char* alarms = "00")
    {
        m_printer->Process();
        m_queue->inject(reply(97, QByteArray("xxxxa\0b\0c\0Mk7\0CIJ\0Std\0", 22)));
        m_queue->inject(reply(74, QByteArray("\0x\0 16 dot \0", 12)));
        m_queue->inject(reply(34, clockData(printerTime)));
        m_queue->inject(reply(64, hex("0A00000039300000")));
        m_queue->inject(reply(233, hex(alarms)));
        m_queue->inject(reply(69, QByteArray(12, '\0')));
        ASSERT_EQ(m_printer->currentStage(), clsDominoHandlerA::StageIdle);
    }

    static QDateTime at(int day, int hour, int minute, int second)
    {
        return QDateTime(QDate(2026, 11, day), QTime(hour, minute, second));
    }

    static void type(QLineEdit& box, const char* text)
    {
        box.selectAll();
        QTest::keyClicks(&box, QString::fromLatin1(text));
    }

    clsDominoHandlerA* m_printer = nullptr;
    ctlDominoAUI m_owner;
    QWidget* m_tab = nullptr;
};

TEST_F(ASeriesPagesTest, ATypedTimeOutlivesTheRefreshesUntilItIsDropped)
{
    auto& properties = page<ctlDominoAPage1>();
    auto& time = ChildOf<QLineEdit>(properties, "txtTime");
    auto& date = ChildOf<QDateEdit>(properties, "dtpDate");
    // Before the printer's clock is known there is nothing to show or to type against.
    EXPECT_EQ(time.text(), QString());
    EXPECT_TRUE(time.isReadOnly());
    EXPECT_EQ(date.text().trimmed(), QString());

    answerRound(at(22, 6, 30, 15));
    EXPECT_EQ(time.text(), QStringLiteral("6:30:15 AM"));
    EXPECT_FALSE(time.isReadOnly());
    EXPECT_EQ(date.date(), QDate(2026, 11, 22));
    EXPECT_FALSE(properties.IsPageModified()); // the refresh's own writing changes nothing
    ASSERT_FALSE(m_owner.answers.isEmpty());
    EXPECT_FALSE(m_owner.answers.last());
    const char* const config[] = {"txtMachineType", "txtInkType", "txtNozzleType", "txtRasterType"};
    QStringList configTexts;
    for (const char* box : config)
        configTexts.append(ChildOf<QLineEdit>(properties, box).text());
    EXPECT_EQ(configTexts, (QStringList{"Mk7", "CIJ", "Std", "16 dot"}));

    // A date can't be picked: it is the printer's.
    date.setDate(QDate(2030, 1, 1));
    EXPECT_EQ(date.date(), QDate(2026, 11, 22));

    m_owner.answers.clear();
    type(time, "12:00:00");
    EXPECT_TRUE(properties.IsPageModified());
    ASSERT_FALSE(m_owner.answers.isEmpty());
    EXPECT_TRUE(m_owner.answers.last());
    answerRound(at(22, 6, 31, 0));
    EXPECT_EQ(time.text(), QStringLiteral("12:00:00"));
    EXPECT_TRUE(properties.IsPageModified());

    // The printer's own time again, here as H:mm, is no change.
    type(time, "6:31");
    EXPECT_FALSE(properties.IsPageModified());
    EXPECT_FALSE(m_owner.answers.last());

    // A new day on the printer moves the date and leaves the typed time alone.
    type(time, "12:00:00");
    answerRound(at(23, 0, 0, 5));
    EXPECT_EQ(date.date(), QDate(2026, 11, 23));
    EXPECT_EQ(time.text(), QStringLiteral("12:00:00"));
    EXPECT_TRUE(properties.IsPageModified());

    // Dropped: the box waits for the next refresh to show the printer's time.
    properties.ClearModified();
    EXPECT_FALSE(properties.IsPageModified());
    EXPECT_EQ(time.text(), QStringLiteral("12:00:00"));
    answerRound(at(23, 0, 0, 10));
    EXPECT_EQ(time.text(), QStringLiteral("12:00:10 AM"));
    EXPECT_FALSE(properties.IsPageModified());
    EXPECT_TRUE(m_dialogs->boxes().isEmpty());
}

TEST_F(ASeriesPagesTest, ApplyingSetsThePrintersClockOnItsOwnDate)
{
    auto& properties = page<ctlDominoAPage1>();
    auto& time = ChildOf<QLineEdit>(properties, "txtTime");
    // The printer is a day behind the workstation; its own date is the one kept.
    answerRound(at(21, 6, 30, 15));
    sent();

    EXPECT_TRUE(properties.ApplyModified()); // nothing changed: nothing sent
    EXPECT_TRUE(sent().isEmpty());

    type(time, "abc");
    EXPECT_TRUE(properties.IsPageModified()); // not a time, so not the printer's time
    EXPECT_TRUE(properties.ApplyModified());
    ASSERT_EQ(m_dialogs->boxes().size(), 1);
    EXPECT_EQ(m_dialogs->boxes().at(0).text, QStringLiteral("Please enter a valid time."));
    EXPECT_EQ(m_dialogs->boxes().at(0).icon, IDialogs::Icon::Warning);
    EXPECT_EQ(m_owner.focusWidget(), &time);
    EXPECT_TRUE(properties.IsPageModified());
    EXPECT_TRUE(sent().isEmpty());

    type(time, "14:07:30");
    EXPECT_TRUE(properties.ApplyModified());
    EXPECT_EQ(sent(), (QList<QByteArray>{hex("020000000009002200141A0B150E071EAE00"),
                                         hex("0200000000020061208500")}));
    EXPECT_FALSE(properties.IsPageModified());
    EXPECT_EQ(time.text(), QStringLiteral("14:07:30"));
    // The round the clock started brings the printer's time back into the box.
    answerRound(at(21, 14, 7, 31));
    EXPECT_EQ(time.text(), QStringLiteral("2:07:31 PM"));
    EXPECT_EQ(m_dialogs->boxes().size(), 1);
}

TEST_F(ASeriesPagesTest, AlarmsWaitForTheFirstStatusAndCountsShowAtOnce)
{
    answerRound(at(22, 6, 30, 15), "0201000300");
    auto& alarms = page<ctlDominoAPage3>();
    auto& counts = page<ctlDominoAPage4>();
    auto& list = ChildOf<QListWidget>(alarms, "lstAlarm");
    ASSERT_EQ(list.count(), 1);
    EXPECT_EQ(list.item(0)->text(), QStringLiteral("Processing..."));
    EXPECT_EQ(ChildOf<QLineEdit>(counts, "txtPrinted").text(), QStringLiteral("12345"));
    EXPECT_EQ(ChildOf<QLineEdit>(counts, "txtDetected").text(), QStringLiteral("10"));

    answerRound(at(22, 6, 31, 0), "0201000300");
    ASSERT_EQ(list.count(), 2);
    EXPECT_EQ(list.item(0)->text(), QStringLiteral("Ink refill due (1)"));
    // A long alarm can be read whole.
    const QListWidgetItem& longest = *list.item(1);
    EXPECT_TRUE(longest.text().endsWith(QStringLiteral("deflection plates (3)")));
    EXPECT_EQ(longest.toolTip(), longest.text());
    EXPECT_TRUE(list.wordWrap());

    answerRound(at(22, 6, 32, 0));
    EXPECT_EQ(list.count(), 0);
}
} // namespace

#include "ASeriesPagesTest.moc"
