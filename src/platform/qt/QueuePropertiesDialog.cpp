#include "platform/qt/QueuePropertiesDialog.h"

#include "platform/qt/PrinterFamily.h"

#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLabel>
#include <QVBoxLayout>

QueuePropertiesDialog::QueuePropertiesDialog(const QueueRecord& record, const QString& reachability,
                                             QWidget* parent)
    : QDialog(parent)
{
    setWindowTitle(tr("Properties of %1").arg(record.name));
    auto* form = new QFormLayout;
    const auto addRow = [this, form](const QString& label, const QString& value,
                                     const QString& name) {
        auto* text = new QLabel(value, this);
        text->setObjectName(name);
        text->setTextInteractionFlags(Qt::TextSelectableByMouse);
        text->setWordWrap(true);
        form->addRow(label, text);
    };
    addRow(tr("Name:"), record.name, QStringLiteral("name"));
    addRow(tr("Port:"), record.portName, QStringLiteral("port"));
    addRow(tr("Printer type:"), typeText(record.printerNumber), QStringLiteral("printerType"));
    addRow(tr("Friendly name:"), record.friendlyName, QStringLiteral("friendlyName"));
    addRow(tr("Reachable:"), reachability, QStringLiteral("reachability"));

    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Close, this);
    connect(buttons, &QDialogButtonBox::rejected, this, &QueuePropertiesDialog::reject);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(form);
    layout->addWidget(buttons);
}

QString QueuePropertiesDialog::typeText(qint32 printerNumber)
{
    const std::optional<PrinterFamily::Kind> family = PrinterFamily::of(printerNumber);
    return QStringLiteral("%1 (%2)")
        .arg(printerNumber)
        .arg(family ? PrinterFamily::displayName(*family) : tr("no printer handler serves it"));
}
