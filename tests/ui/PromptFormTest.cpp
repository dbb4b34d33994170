#include "printing/ui/frmPromptVars.h"
#include "support/ServicesFixture.h"
#include "ui/WidgetApplication.h"

#include <QComboBox>
#include <QFocusEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollBar>
#include <QSqlDatabase>
#include <QSqlQuery>
#include <QTemporaryDir>
#include <QTest>

namespace {
class PromptFormTest : public ServicesFixture
{
protected:
    static void SetUpTestSuite() { EnsureWidgetApplication(); }

    void SetUp() override
    {
        ServicesFixture::SetUp();
        writeCatalogue(435, {}, "m");
    }

    clsPrompt& edit(const QString& name, const QString& data, const QString& mask = {},
                    qint32 maxLen = -1)
    {
        auto prompt = std::make_shared<clsPrompt>();
        prompt->m_sVarName = name;
        prompt->m_sData = data;
        prompt->m_sMask = mask;
        prompt->m_nMaxLen = maxLen;
        m_prompts.add(name.trimmed(), prompt);
        return *prompt;
    }

    clsPrompt& database(const QString& name, const QString& source, const QString& keyField)
    {
        clsPrompt& prompt = edit(name, QStringLiteral("offered"));
        prompt.m_sDataSource = source;
        prompt.m_sKeyField = keyField;
        return prompt;
    }

    // An SQLite file with a table of products, made through a connection of the test's own.
    QString productsDatabase()
    {
        const QString path = m_folder.filePath(QStringLiteral("products.sqlite"));
        {
            QSqlDatabase db = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), "maker");
            db.setDatabaseName(path);
            EXPECT_TRUE(db.open());
            QSqlQuery query(db);
            EXPECT_TRUE(query.exec("CREATE TABLE Products (Code TEXT, Name TEXT)"));
            EXPECT_TRUE(query.exec("INSERT INTO Products VALUES ('BX20', 'Box'), "
                                   "('AJ1000', 'Jar'), ('CT7', 'Crate')"));
            EXPECT_TRUE(query.exec("CREATE TABLE Lines (Code TEXT)"));
            EXPECT_TRUE(query.exec("INSERT INTO Lines VALUES ('L2'), ('L1')"));
        }
        QSqlDatabase::removeDatabase("maker");
        return path;
    }

    static QStringList formConnections()
    {
        return QSqlDatabase::connectionNames().filter(QStringLiteral("frmPromptVars"));
    }

    static void focus(QWidget& control)
    {
        QFocusEvent event(QEvent::FocusIn, Qt::TabFocusReason);
        QApplication::sendEvent(&control, &event);
    }

    QTemporaryDir m_folder;
    PromptList m_prompts;
};

TEST_F(PromptFormTest, EditRowsTakeMaskAndLimitOfferTheValueAndSaveWhatIsTyped)
{
    clsPrompt& lot = edit(" Lot ", QStringLiteral("L0001"), QStringLiteral("A9999"), 5);
    lot.m_sPrompt = QStringLiteral("Lot number");
    lot.m_bMaskForcedUpper = true;
    edit(QStringLiteral("Note"), QStringLiteral("hand packed"), {}, 12);
    clsPrompt& code = edit(QStringLiteral("Code"), QString(), QStringLiteral("aa-00"));
    code.m_bMaskForceAllChars = true;
    clsPrompt& line = edit(QStringLiteral("Line"), QString(), QStringLiteral("aaa"));
    line.m_bMaskForcedLower = true;
    line.m_bMaskAllowSpaces = false;
    edit(QStringLiteral("Free"), QString());

    frmPromptVars form;
    form.DisplayPromptedVars(m_prompts);

    auto& txtLot = ChildOf<QLineEdit>(form, "txtPrompt1");
    EXPECT_EQ(ChildOf<QLabel>(form, "lblPrompt1").text(), "Lot number");
    EXPECT_TRUE(txtLot.inputMask().startsWith(">A9999"));
    EXPECT_EQ(txtLot.text(), "L0001");
    // A prompt without its own text is labelled by its name; without a mask the limit holds.
    EXPECT_EQ(ChildOf<QLabel>(form, "lblPrompt2").text(), "Note");
    auto& txtNote = ChildOf<QLineEdit>(form, "txtPrompt2");
    EXPECT_EQ(txtNote.maxLength(), 12);
    EXPECT_TRUE(txtNote.inputMask().isEmpty());
    // Every position required; lower case; no limit given keeps the field's own.
    EXPECT_TRUE(ChildOf<QLineEdit>(form, "txtPrompt3").inputMask().startsWith("AA-99"));
    auto& txtLine = ChildOf<QLineEdit>(form, "txtPrompt4");
    EXPECT_TRUE(txtLine.inputMask().startsWith("<AAA"));
    EXPECT_EQ(ChildOf<QLineEdit>(form, "txtPrompt5").maxLength(), QLineEdit().maxLength());
    EXPECT_TRUE(form.findChildren<QComboBox*>().isEmpty());

    // Focus selects the field's text, so typing replaces it.
    focus(txtLot);
    QTest::keyClicks(&txtLot, "q4321");
    focus(txtLine);
    QTest::keyClicks(&txtLine, "ABC");
    ASSERT_EQ(form.Prompts().Count(), 5);
    EXPECT_EQ(form.Prompts().Item(QStringLiteral("1"))->LBXPrompt, "Lot");
    ASSERT_TRUE(form.SaveValues(m_prompts));
    EXPECT_EQ(lot.m_sData, "Q4321");
    // A row left alone hands on what it offered.
    EXPECT_EQ(m_prompts.item("Note")->m_sData, "hand packed");
    EXPECT_EQ(line.m_sData, "abc");
    EXPECT_TRUE(m_dialogs->boxes().isEmpty());

    // A row whose prompt is no longer in the list: a box naming it, and false.
    PromptList fewer;
    fewer.add(QStringLiteral("Lot"), std::make_shared<clsPrompt>());
    EXPECT_FALSE(form.SaveValues(fewer));
    ASSERT_EQ(m_dialogs->boxes().size(), 1);
    EXPECT_TRUE(m_dialogs->boxes()[0].text.endsWith("\r\nPrompt Name: Note"));
    EXPECT_TRUE(m_dialogs->boxes()[0].title.startsWith("SaveValues - "));
}

TEST_F(PromptFormTest, DatabaseRowsListTheKeyFieldEachOnItsOwnConnectionUntilTheFormGoes)
{
    const QString products = productsDatabase();
    database(QStringLiteral("Products"), products, QStringLiteral("Code"));
    database(QStringLiteral("Lines"), products, QStringLiteral("Code"));
    {
        frmPromptVars form;
        form.DisplayPromptedVars(m_prompts);
        auto& combo = ChildOf<QComboBox>(form, "dbcmbDatabasePrompt1");
        ASSERT_EQ(combo.count(), 3);
        EXPECT_EQ(combo.itemText(0), "AJ1000");
        EXPECT_EQ(combo.itemText(2), "CT7");
        // The job's value isn't offered: nothing is chosen until the operator chooses.
        EXPECT_EQ(combo.currentIndex(), -1);
        EXPECT_EQ(form.Prompts().Item(1)->Value, "");
        EXPECT_EQ(formConnections().size(), 2);

        EXPECT_EQ(ChildOf<QComboBox>(form, "dbcmbDatabasePrompt2").itemText(0), "L1");

        combo.setCurrentIndex(1);
        ASSERT_TRUE(form.SaveValues(m_prompts));
        EXPECT_EQ(m_prompts.item("Products")->m_sData, "BX20");
        EXPECT_EQ(m_prompts.item("Lines")->m_sData, "");
        EXPECT_TRUE(form.findChildren<QLineEdit*>().isEmpty());
    }
    EXPECT_TRUE(formConnections().isEmpty());
    EXPECT_TRUE(m_dialogs->boxes().isEmpty());
}

TEST_F(PromptFormTest, ADatabaseThatCantBeReadShowsItsErrorInItsRowAndTheFormStaysUsable)
{
    const QString notADatabase = m_folder.filePath(QStringLiteral("notes.txt"));
    QFile file(notADatabase);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(QByteArray(2048, 'x'));
    file.close();
    const QString missing = m_folder.filePath(QStringLiteral("gone.sqlite"));
    database(QStringLiteral("Lots"), missing, QStringLiteral("LotNo"));
    database(QStringLiteral("Batches"), notADatabase, QStringLiteral("Batch"));
    database(QStringLiteral("Pallets"), QStringLiteral("QNODRIVER:host=db"), QStringLiteral("Id"));
    edit(QStringLiteral("Lot"), QStringLiteral("L7"));

    frmPromptVars form;
    form.DisplayPromptedVars(m_prompts);

    ASSERT_EQ(m_dialogs->boxes().size(), 3);
    for (const auto& box : m_dialogs->boxes())
        EXPECT_TRUE(box.title.startsWith("AddDBListPrompt - ")) << box.title.toStdString();
    EXPECT_TRUE(
        ChildOf<QComboBox>(form, "dbcmbDatabasePrompt1").placeholderText().contains(missing));
    EXPECT_EQ(ChildOf<QComboBox>(form, "dbcmbDatabasePrompt2").count(), 0);
    EXPECT_TRUE(
        ChildOf<QComboBox>(form, "dbcmbDatabasePrompt3").placeholderText().contains("QNODRIVER"));
    // A missing file is not made into an empty database.
    EXPECT_FALSE(QFile::exists(missing));
    EXPECT_EQ(formConnections().size(), 0);

    auto& lot = ChildOf<QLineEdit>(form, "txtPrompt4");
    lot.end(false);
    QTest::keyClicks(&lot, "9");
    ASSERT_TRUE(form.SaveValues(m_prompts));
    EXPECT_EQ(m_prompts.item("Lot")->m_sData, "L79");
}

TEST_F(PromptFormTest, RowsScrollIntoViewSmoothlyFasterWhileTabbingOnAndButtonsSayHowItWasLeft)
{
    for (int i = 1; i <= 10; ++i)
        edit(QStringLiteral("V%1").arg(i), QString::number(i));
    frmPromptVars form;
    form.DisplayPromptedVars(m_prompts);
    form.show();
    // The first row has the focus once the window is in front.
    ASSERT_TRUE(QTest::qWaitForWindowActive(&form));
    EXPECT_EQ(QApplication::focusWidget(), form.findChild<QLineEdit*>("txtPrompt1"));
    // Below the minimum the window stays at the minimum, which leaves room for less than two rows.
    form.resize(10, 10);
    EXPECT_EQ(form.size(), QSize(3975 / 15, 1500 / 15));

    auto& bar = ChildOf<QScrollBar>(form, "vsbarPrompts");
    auto& frame = ChildOf<QWidget>(form, "fraPrompts");
    auto& viewport = ChildOf<QWidget>(form, "picPrompts");
    auto& timer = ChildOf<QTimer>(form, "timScroll");
    const auto row = [&](int n) -> QLineEdit& {
        return ChildOf<QLineEdit>(form, QStringLiteral("txtPrompt%1").arg(n).toLatin1());
    };
    const int pitch = row(2).y() - row(1).y();
    ASSERT_TRUE(bar.isVisible());
    EXPECT_EQ(bar.singleStep(), pitch);
    EXPECT_EQ(bar.pageStep(), 3 * pitch);
    EXPECT_EQ(bar.maximum(), frame.height() - viewport.height());

    // Without smooth scrolling a row comes into view at once.
    focus(row(5));
    EXPECT_GT(bar.value(), 0);
    EXPECT_EQ(frame.y(), -bar.value());
    EXPECT_LE(row(5).geometry().bottom() + frame.y(), viewport.height());
    focus(row(1));
    EXPECT_EQ(bar.value(), 0);

    // Smoothly: each row tabbed to while the rows still move shortens the interval.
    form.setSmoothScroll(true);
    QList<int> intervals;
    for (int n = 3; n <= 8; ++n) {
        focus(row(n));
        intervals.append(timer.interval());
    }
    EXPECT_EQ(intervals, (QList<int>{50, 20, 8, 3, 1, 1}));
    EXPECT_EQ(bar.value(), 0);
    ASSERT_TRUE(QTest::qWaitFor([&] { return !timer.isActive(); }));
    EXPECT_EQ(timer.interval(), 0);
    EXPECT_LE(row(8).geometry().bottom() + frame.y(), viewport.height());
    EXPECT_GE(row(8).y() + frame.y(), 0);

    // Upwards a running scroll speeds up less, and the first row takes it to the top.
    const int top = bar.value();
    focus(row(3));
    EXPECT_EQ(timer.interval(), 50);
    focus(row(2));
    EXPECT_EQ(timer.interval(), 33);
    focus(row(1));
    EXPECT_EQ(timer.interval(), 13);
    EXPECT_EQ(bar.value(), top);
    ASSERT_TRUE(QTest::qWaitFor([&] { return !timer.isActive(); }));
    EXPECT_EQ(bar.value(), 0);

    // Two rows fit a taller window: no bar.
    PromptList two;
    two.add("A", std::make_shared<clsPrompt>());
    two.add("B", std::make_shared<clsPrompt>());
    form.DisplayPromptedVars(two);
    form.resize(400, 300);
    EXPECT_FALSE(bar.isVisible());

    ChildOf<QPushButton>(form, "cmdCancel").click();
    EXPECT_TRUE(form.Cancelled());
    EXPECT_FALSE(form.IsVisible());
    form.show();
    ChildOf<QPushButton>(form, "cmdOK").click();
    EXPECT_FALSE(form.Cancelled());
    form.show();
    form.close();
    EXPECT_TRUE(form.Cancelled());
}
} // namespace
