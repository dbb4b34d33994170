#include "platform/qt/QtQueueDialogs.h"

#include "platform/qt/AddInWindow.h"
#include "platform/qt/AddPrinterDialog.h"
#include "platform/qt/QueuePropertiesDialog.h"

#include <QPointer>

std::optional<QueueRecord> QtQueueDialogs::askForNewQueue()
{
    // On the heap: a parent that goes during exec() takes the dialog with it.
    QPointer<AddPrinterDialog> dialog = new AddPrinterDialog(AddInWindow());
    const bool accepted = dialog->exec() == QDialog::Accepted;
    if (!dialog)
        return std::nullopt;
    const std::optional<QueueRecord> record =
        accepted ? std::optional<QueueRecord>(dialog->record()) : std::nullopt;
    delete dialog;
    return record;
}

void QtQueueDialogs::showProperties(const QueueRecord& record, const QString& reachability)
{
    QPointer<QueuePropertiesDialog> dialog =
        new QueuePropertiesDialog(record, reachability, AddInWindow());
    dialog->exec();
    delete dialog;
}
