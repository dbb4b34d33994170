#include "platform/qt/AddPrinterDialog.h"

#include "core/HandlerTable.h"
#include "platform/qt/PrinterFamily.h"
#include "platform/qt/QtQueueDialogs.h"
#include "platform/qt/QueuePropertiesDialog.h"
#include "ui/WidgetApplication.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSpinBox>
#include <QTimer>

namespace {
class AddPrinterDialogTest : public ::testing::Test
{
protected:
    static void SetUpTestSuite() { EnsureWidgetApplication(); }

    static void submit(QDialog& dialog, const QString& name, const QString& port)
    {
        ChildOf<QLineEdit>(dialog, "name").setText(name);
        ChildOf<QLineEdit>(dialog, "port").setText(port);
        ChildOf<QDialogButtonBox>(dialog, nullptr).button(QDialogButtonBox::Ok)->click();
    }

    static QString problemOf(QDialog& dialog, const char* name)
    {
        const auto& label = ChildOf<QLabel>(dialog, name);
        return label.isHidden() ? QString() : label.text();
    }
};

TEST_F(AddPrinterDialogTest, OkIsRefusedWithTheReasonUntilNameAndPortCanBeUsed)
{
    AddPrinterDialog dialog;
    const std::tuple<QString, QString, bool> refused[] = {
        {"  ", "10.0.4.21:9100", true},
        {"Line\\1", "10.0.4.21:9100", true},
        {"Filler 9", "", false},
        {"Filler 9", "coder-7:99999", false},
        {"Filler 9", "sim:", false},
        {"Filler 9", "/dev/ttyUSB0:fast", false},
        {"Filler 9", "sim:c-series?ink=9", false}};
    for (const auto& [name, port, nameRefused] : refused) {
        submit(dialog, name, port);
        SCOPED_TRACE((name + QLatin1Char(' ') + port).toStdString());
        EXPECT_EQ(dialog.result(), QDialog::Rejected);
        EXPECT_EQ(problemOf(dialog, "nameProblem").isEmpty(), !nameRefused);
        EXPECT_EQ(problemOf(dialog, "portProblem").isEmpty(), nameRefused);
    }
    // The simulator's own reason for a knob it won't take.
    EXPECT_TRUE(problemOf(dialog, "portProblem").startsWith("Not a port: the knob \"ink\""));
    // A name the store can't take back from a backup.
    submit(dialog, "Line\r1", "10.0.4.21:9100");
    EXPECT_EQ(dialog.result(), QDialog::Rejected);
    EXPECT_TRUE(problemOf(dialog, "nameProblem").contains("carriage return"));

    submit(dialog, " Filler 9 ", "sim:c-series?ink=1");
    EXPECT_EQ(dialog.result(), QDialog::Accepted);
    EXPECT_EQ(problemOf(dialog, "nameProblem") + problemOf(dialog, "portProblem"), QString());
    const QueueRecord record = dialog.record();
    EXPECT_EQ(record,
              (QueueRecord{"Filler 9", "sim:c-series?ink=1", record.printerNumber, "Filler 9"}));
}

TEST_F(AddPrinterDialogTest, AFamilyGivesANumberItsHandlerClaimsAndANumberShowsItsFamily)
{
    const std::pair<PrinterFamily::Kind, QString> handlers[] = {
        {PrinterFamily::DominoCSeries, "clsDominoHandlerC"},
        {PrinterFamily::DominoASeries, "clsDominoHandlerA"},
        {PrinterFamily::Avery, "clsAveryHandler"},
        {PrinterFamily::LocalLabelPrinter, "clsLBXPrinterHandler"}};
    AddPrinterDialog dialog;
    auto& family = ChildOf<QComboBox>(dialog, "family");
    auto& number = ChildOf<QSpinBox>(dialog, "printerNumber");
    for (const auto& [kind, handlerName] : handlers) {
        family.setCurrentIndex(family.findData(kind));
        const auto handler = HandlerTable::createFor(number.value());
        ASSERT_NE(handler, nullptr);
        EXPECT_EQ(handler->GetObjectName(), handlerName);
    }

    number.setValue(2150);
    EXPECT_EQ(family.currentData(), QVariant(PrinterFamily::DominoCSeries));
    number.setValue(784); // between two Avery ranges, yet no Avery
    EXPECT_EQ(family.currentData(), QVariant(PrinterFamily::LocalLabelPrinter));
    ChildOf<QLineEdit>(dialog, "friendlyName").setText("Avery, line 3");
    submit(dialog, "Labeller 3", "/dev/ttyUSB0:9600:8N1");
    EXPECT_EQ(dialog.record(),
              (QueueRecord{"Labeller 3", "/dev/ttyUSB0:9600:8N1", 784, "Avery, line 3"}));

    EXPECT_EQ(QueuePropertiesDialog::typeText(2015), QStringLiteral("2015 (Domino A-series)"));
    EXPECT_EQ(QueuePropertiesDialog::typeText(0),
              QStringLiteral("0 (no printer handler serves it)"));
}

TEST_F(AddPrinterDialogTest, TheQueueDialogsGiveTheRecordOnOkAndNoneOnCancel)
{
    QtQueueDialogs dialogs;
    for (const bool ok : {true, false}) {
        QTimer::singleShot(0, [ok] {
            auto* dialog = qobject_cast<AddPrinterDialog*>(QApplication::activeModalWidget());
            ASSERT_NE(dialog, nullptr);
            ChildOf<QLineEdit>(*dialog, "friendlyName").setText("Case line");
            if (ok)
                submit(*dialog, "Case labeller 2", "10.0.4.30:9100");
            else
                dialog->reject();
        });
        const std::optional<QueueRecord> record = dialogs.askForNewQueue();
        ASSERT_EQ(record.has_value(), ok);
        if (record) {
            EXPECT_EQ(*record, (QueueRecord{"Case labeller 2", "10.0.4.30:9100",
                                            record->printerNumber, "Case line"}));
        }
    }
}
} // namespace
