#include "platform/qt/AddPrinterDialog.h"

#include "core/HandlerTable.h"
#include "platform/qt/PrinterFamily.h"
#include "platform/qt/QtQueueDialogs.h"
#include "platform/qt/QueuePropertiesDialog.h"
#include "ui/WidgetApplication.h"

#include <QApplication>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSpinBox>
#include <QTimer>
#include <gtest/gtest.h>

namespace {
class AddPrinterDialogTest : public ::testing::Test
{
protected:
    static void SetUpTestSuite() { EnsureWidgetApplication(); }

    template <typename Widget> static Widget* field(QDialog& dialog, const char* name)
    {
        auto* widget = dialog.findChild<Widget*>(QString::fromLatin1(name));
        EXPECT_NE(widget, nullptr) << name;
        return widget;
    }

    static void fill(QDialog& dialog, const QString& name, const QString& port)
    {
        field<QLineEdit>(dialog, "name")->setText(name);
        field<QLineEdit>(dialog, "port")->setText(port);
    }

    static void clickOk(QDialog& dialog)
    {
        field<QDialogButtonBox>(dialog, nullptr)->button(QDialogButtonBox::Ok)->click();
    }

    static QString problemOf(QDialog& dialog, const char* name)
    {
        auto* label = field<QLabel>(dialog, name);
        return label->isHidden() ? QString() : label->text();
    }
};

TEST_F(AddPrinterDialogTest, OkIsRefusedWithTheReasonUntilNameAndPortCanBeUsed)
{
    AddPrinterDialog dialog;
    struct Entry
    {
        QString name;
        QString port;
        bool nameRefused;
    };
    const Entry refused[] = {
        {"  ", "10.0.4.21:9100", true},
        {"Line\\1", "10.0.4.21:9100", true},
        {"Filler 9", "", false},
        {"Filler 9", "coder-7:99999", false},
        {"Filler 9", "sim:", false},
        {"Filler 9", "/dev/ttyUSB0:fast", false},
        {"Filler 9", "sim:c-series?ink=9", false},
    };
    for (const Entry& entry : refused) {
        fill(dialog, entry.name, entry.port);
        clickOk(dialog);
        SCOPED_TRACE((entry.name + QLatin1Char(' ') + entry.port).toStdString());
        EXPECT_EQ(dialog.result(), QDialog::Rejected);
        EXPECT_EQ(problemOf(dialog, "nameProblem").isEmpty(), !entry.nameRefused);
        EXPECT_EQ(problemOf(dialog, "portProblem").isEmpty(), entry.nameRefused);
    }
    // The simulator's own reason for a knob it won't take.
    EXPECT_TRUE(problemOf(dialog, "portProblem").startsWith("Not a port: the knob \"ink\""));

    fill(dialog, " Filler 9 ", "sim:c-series?ink=1");
    clickOk(dialog);
    EXPECT_EQ(dialog.result(), QDialog::Accepted);
    EXPECT_TRUE(problemOf(dialog, "nameProblem").isEmpty());
    EXPECT_TRUE(problemOf(dialog, "portProblem").isEmpty());
    const QueueRecord record = dialog.record();
    EXPECT_EQ(record.name, QStringLiteral("Filler 9"));
    EXPECT_EQ(record.portName, QStringLiteral("sim:c-series?ink=1"));
    EXPECT_EQ(record.friendlyName, record.name);
}

TEST_F(AddPrinterDialogTest, AFamilyGivesANumberItsHandlerClaimsAndANumberShowsItsFamily)
{
    const std::pair<PrinterFamily::Kind, QString> handlers[] = {
        {PrinterFamily::DominoCSeries, "clsDominoHandlerC"},
        {PrinterFamily::DominoASeries, "clsDominoHandlerA"},
        {PrinterFamily::Avery, "clsAveryHandler"},
        {PrinterFamily::LocalLabelPrinter, "clsLBXPrinterHandler"},
    };
    AddPrinterDialog dialog;
    auto* family = field<QComboBox>(dialog, "family");
    auto* number = field<QSpinBox>(dialog, "printerNumber");
    for (const auto& [kind, handlerName] : handlers) {
        family->setCurrentIndex(family->findData(kind));
        const auto handler = HandlerTable::createFor(number->value());
        ASSERT_NE(handler, nullptr);
        EXPECT_EQ(handler->GetObjectName(), handlerName);
    }

    number->setValue(2150);
    EXPECT_EQ(family->currentData(), QVariant(PrinterFamily::DominoCSeries));
    // Between two Avery ranges, yet no Avery.
    number->setValue(784);
    EXPECT_EQ(family->currentData(), QVariant(PrinterFamily::LocalLabelPrinter));
    field<QLineEdit>(dialog, "friendlyName")->setText("Avery, line 3");
    fill(dialog, "Labeller 3", "/dev/ttyUSB0:9600:8N1");
    clickOk(dialog);
    EXPECT_EQ(dialog.record(),
              (QueueRecord{"Labeller 3", "/dev/ttyUSB0:9600:8N1", 784, "Avery, line 3"}));

    EXPECT_EQ(QueuePropertiesDialog::typeText(2015), QStringLiteral("2015 (Domino A-series)"));
    EXPECT_EQ(QueuePropertiesDialog::typeText(0),
              QStringLiteral("0 (no printer handler serves it)"));
}

TEST_F(AddPrinterDialogTest, TheQueueDialogsGiveTheRecordOnOkAndNoneOnCancel)
{
    QtQueueDialogs dialogs;
    const auto answerWith = [](bool ok) {
        QTimer::singleShot(0, [ok] {
            auto* dialog = qobject_cast<AddPrinterDialog*>(QApplication::activeModalWidget());
            ASSERT_NE(dialog, nullptr);
            fill(*dialog, "Case labeller 2", "10.0.4.30:9100");
            if (ok)
                clickOk(*dialog);
            else
                dialog->reject();
        });
    };
    answerWith(true);
    const std::optional<QueueRecord> record = dialogs.askForNewQueue();
    ASSERT_TRUE(record.has_value());
    EXPECT_EQ(record->name, QStringLiteral("Case labeller 2"));
    EXPECT_EQ(record->portName, QStringLiteral("10.0.4.30:9100"));

    answerWith(false);
    EXPECT_FALSE(dialogs.askForNewQueue().has_value());
}
} // namespace
