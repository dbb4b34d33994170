#include "core/Globals.h"
#include "printing/ui/frmEditIdentifier.h"
#include "printing/ui/frmIdentifiers.h"
#include "support/ServicesFixture.h"
#include "ui/WidgetApplication.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>
#include <QTimer>
#include <QTreeWidget>

namespace {
const QString Clash =
    QStringLiteral("unable to add identifier because one with that name already exists.");

class IdentifierDialogTest : public ServicesFixture
{
protected:
    static void SetUpTestSuite() { EnsureWidgetApplication(); }

    void SetUp() override
    {
        ServicesFixture::SetUp();
        writeCatalogue(462, {}, "m");
        g_sNoPrinter = QStringLiteral("(No printer)");
    }

    // Runs `step` on the edit dialog once it is open, inside its own loop.
    template <typename Step> static void whenEditOpens(Step step)
    {
        QTimer::singleShot(0, [step] {
            auto* form = qobject_cast<frmEditIdentifier*>(QApplication::activeModalWidget());
            ASSERT_NE(form, nullptr);
            step(*form);
        });
    }

    // Answers the edit dialog with an identifier and a printer, from all printers if asked.
    static void answerEdit(const QString& identifier, const QString& printer, bool allPrinters)
    {
        whenEditOpens([=](frmEditIdentifier& form) {
            if (ChildOf<QCheckBox>(form, "chkAllPrinters").isChecked() != allPrinters)
                ChildOf<QCheckBox>(form, "chkAllPrinters").click();
            ChildOf<QLineEdit>(form, "txtPrinterIdentifier").setText(identifier);
            auto& printers = ChildOf<QComboBox>(form, "cboPrinter");
            printers.setCurrentIndex(printers.findText(printer));
            ChildOf<QPushButton>(form, "cmdOK").click();
        });
    }

    static QStringList rows(const QTreeWidget& list)
    {
        QStringList texts;
        for (int i = 0; i < list.topLevelItemCount(); ++i)
            texts.append(list.topLevelItem(i)->text(0) + '=' + list.topLevelItem(i)->text(1));
        return texts;
    }

    const QStringList m_group{"Filler C1", "Capper A1"};
    const QStringList m_all{"Filler C1", "Capper A1", "Filler C3"};
    const IdentifierTable m_table{{{"FILLER1", "Filler C1"}, {"CAPPER1", "Gone printer"}}, false};
};

TEST_F(IdentifierDialogTest, RowsAreAddedEditedAndRemovedWithoutTwoOfTheSameIdentifier)
{
    frmIdentifiers form;
    form.Setup(m_table, m_group, m_all);
    form.show();
    auto& list = ChildOf<QTreeWidget>(form, "lvwIdentifiers");
    auto& add = ChildOf<QPushButton>(form, "cmdAdd");

    // The edit dialog offers "no printer" first, then the group's printers, or all of them.
    whenEditOpens([](frmEditIdentifier& edit) {
        auto& printers = ChildOf<QComboBox>(edit, "cboPrinter");
        EXPECT_EQ(printers.currentText(), "(No printer)");
        EXPECT_EQ(printers.count(), 3);
        ChildOf<QCheckBox>(edit, "chkAllPrinters").click();
        EXPECT_EQ(printers.itemText(3), "Filler C3");
        ChildOf<QLineEdit>(edit, "txtPrinterIdentifier").setText("CASES");
        printers.setCurrentIndex(3);
        ChildOf<QPushButton>(edit, "cmdOK").click();
    });
    add.click();
    EXPECT_EQ(rows(list),
              (QStringList{"FILLER1=Filler C1", "CAPPER1=Gone printer", "CASES=Filler C3"}));

    // The same identifier is refused; one that differs in case is another.
    answerEdit("FILLER1", "Capper A1", true);
    add.click();
    ASSERT_EQ(m_dialogs->boxes().size(), 1);
    EXPECT_EQ(m_dialogs->boxes()[0].text, Clash);
    EXPECT_TRUE(m_dialogs->boxes()[0].title.startsWith("cmdAdd_Click - "));
    answerEdit("filler1", "Capper A1", true);
    add.click();
    EXPECT_EQ(list.topLevelItemCount(), 4);

    // Editing: a printer the list lacks shows as none; a row keeps its own identifier; taking
    // another row's is refused and the row stays.
    list.setCurrentItem(list.topLevelItem(1));
    whenEditOpens([](frmEditIdentifier& edit) {
        EXPECT_EQ(ChildOf<QComboBox>(edit, "cboPrinter").currentIndex(), 0);
        EXPECT_EQ(ChildOf<QLineEdit>(edit, "txtPrinterIdentifier").text(), "CAPPER1");
        ChildOf<QComboBox>(edit, "cboPrinter").setCurrentIndex(2);
        ChildOf<QPushButton>(edit, "cmdOK").click();
    });
    ChildOf<QPushButton>(form, "cmdEdit").click();
    EXPECT_EQ(list.topLevelItem(1)->text(1), "Capper A1");
    list.setCurrentItem(list.topLevelItem(3));
    answerEdit("CASES", "Filler C1", false);
    ChildOf<QPushButton>(form, "cmdEdit").click();
    ASSERT_EQ(m_dialogs->boxes().size(), 2);
    EXPECT_TRUE(m_dialogs->boxes()[1].title.startsWith("cmdEdit_Click - "));
    EXPECT_EQ(list.topLevelItem(3)->text(0), "filler1");

    // Removing selects the row before, or the first.
    list.setCurrentItem(list.topLevelItem(2));
    ChildOf<QPushButton>(form, "cmdRemove").click();
    EXPECT_EQ(list.indexOfTopLevelItem(list.currentItem()), 1);
    list.setCurrentItem(list.topLevelItem(0));
    ChildOf<QPushButton>(form, "cmdRemove").click();
    EXPECT_EQ(list.indexOfTopLevelItem(list.currentItem()), 0);

    ChildOf<QPushButton>(form, "cmdOK").click();
    EXPECT_FALSE(form.CancelledByUser());
    EXPECT_EQ(form.ComponentGIDInfo(),
              (GroupIdentifiers{{"CAPPER1", "Capper A1"}, {"filler1", "Capper A1"}}));
    // As the last edit dialog left by its OK had it, although its row was refused.
    EXPECT_FALSE(form.UseAllPrinters());
}

TEST_F(IdentifierDialogTest, CancelKeepsTheTableAndTheWindowCloseKeepsOnlyItsRows)
{
    const auto closeAfterAdding = [](bool byCancel) {
        QTimer::singleShot(0, [byCancel] {
            auto* form = qobject_cast<frmIdentifiers*>(QApplication::activeModalWidget());
            ASSERT_NE(form, nullptr);
            answerEdit("CASES", "Filler C3", true);
            ChildOf<QPushButton>(*form, "cmdAdd").click();
            if (byCancel)
                ChildOf<QPushButton>(*form, "cmdCancel").click();
            else
                form->close();
        });
    };
    IdentifierTable table = m_table;
    frmIdentifiers cancelled;
    closeAfterAdding(true);
    EXPECT_FALSE(cancelled.Edit(table, m_group, m_all));
    EXPECT_EQ(table.entries, m_table.entries);
    EXPECT_FALSE(table.useAllPrinters);

    // Closed by the window's button: accepted, with the rows as they came.
    frmIdentifiers closed;
    closeAfterAdding(false);
    EXPECT_TRUE(closed.Edit(table, m_group, m_all));
    EXPECT_EQ(table.entries, m_table.entries);
    EXPECT_TRUE(table.useAllPrinters);

    // A cancelled edit dialog changes nothing.
    bool showAll = false;
    QString printer = "Filler C1";
    QString identifier = "FILLER1";
    whenEditOpens([](frmEditIdentifier& edit) {
        ChildOf<QCheckBox>(edit, "chkAllPrinters").click();
        ChildOf<QLineEdit>(edit, "txtPrinterIdentifier").setText("OTHER");
        ChildOf<QPushButton>(edit, "cmdCancel").click();
    });
    EXPECT_FALSE(frmEditIdentifier::CreateAndShow_AddIdentifier(m_all, m_group, nullptr, showAll,
                                                                printer, identifier));
    EXPECT_EQ(std::tie(showAll, printer, identifier),
              std::make_tuple(false, QString("Filler C1"), QString("FILLER1")));
}
} // namespace
