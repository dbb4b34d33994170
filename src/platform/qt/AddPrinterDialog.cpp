#include "platform/qt/AddPrinterDialog.h"

#include "platform/lbx/PortAddress.h"
#include "platform/lbx/QueueStore.h"
#include "platform/qt/PrinterFamily.h"
#include "sim/SimPrinter.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QSignalBlocker>
#include <QSpinBox>
#include <QVBoxLayout>
#include <limits>

AddPrinterDialog::AddPrinterDialog(QWidget* parent)
    : QDialog(parent)
    , m_name(new QLineEdit(this))
    , m_nameProblem(new QLabel(this))
    , m_port(new QLineEdit(this))
    , m_portProblem(new QLabel(this))
    , m_family(new QComboBox(this))
    , m_number(new QSpinBox(this))
    , m_friendlyName(new QLineEdit(this))
{
    setWindowTitle(tr("Add printer"));
    m_name->setObjectName(QStringLiteral("name"));
    m_nameProblem->setObjectName(QStringLiteral("nameProblem"));
    m_port->setObjectName(QStringLiteral("port"));
    m_portProblem->setObjectName(QStringLiteral("portProblem"));
    m_family->setObjectName(QStringLiteral("family"));
    m_number->setObjectName(QStringLiteral("printerNumber"));
    m_friendlyName->setObjectName(QStringLiteral("friendlyName"));

    const QString hint = tr("host:port, /dev/ttyUSB0:9600 or sim:c-series?ink=1");
    m_port->setPlaceholderText(hint);
    m_port->setToolTip(hint);
    m_friendlyName->setPlaceholderText(tr("the name, unless you give another"));

    auto* form = new QFormLayout;
    form->addRow(tr("&Name:"), fieldWithProblem(m_name, m_nameProblem));
    form->addRow(tr("&Port:"), fieldWithProblem(m_port, m_portProblem));
    form->addRow(QString(), new QLabel(tr("For example %1").arg(hint), this));
    form->addRow(tr("Printer &type:"), typeField());
    form->addRow(tr("&Friendly name:"), m_friendlyName);

    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    connect(buttons, &QDialogButtonBox::accepted, this, &AddPrinterDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &AddPrinterDialog::reject);

    auto* layout = new QVBoxLayout(this);
    layout->addLayout(form);
    layout->addWidget(buttons);
}

QWidget* AddPrinterDialog::fieldWithProblem(QLineEdit* field, QLabel* problem)
{
    auto* row = new QWidget(this);
    auto* layout = new QHBoxLayout(row);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(field, 1);
    layout->addWidget(problem);
    QPalette palette = problem->palette();
    palette.setColor(QPalette::WindowText, Qt::red);
    problem->setPalette(palette);
    problem->hide();
    // What was wrong may be right once the user changes it.
    connect(field, &QLineEdit::textEdited, problem, &QLabel::hide);
    return row;
}

QWidget* AddPrinterDialog::typeField()
{
    for (const PrinterFamily::Kind family : PrinterFamily::all())
        m_family->addItem(PrinterFamily::displayName(family), family);
    // Printer numbers are 16 bits wide; 0 is a group's.
    m_number->setRange(1, std::numeric_limits<qint16>::max());
    m_number->setToolTip(tr("The exact printer type, for a model the family doesn't give"));
    connect(m_family, &QComboBox::currentIndexChanged, this, &AddPrinterDialog::chooseFamily);
    connect(m_number, &QSpinBox::valueChanged, this, &AddPrinterDialog::followNumber);
    chooseFamily(0);

    auto* row = new QWidget(this);
    auto* layout = new QHBoxLayout(row);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_family, 1);
    layout->addWidget(m_number);
    return row;
}

void AddPrinterDialog::chooseFamily(int index)
{
    const auto family = PrinterFamily::Kind(m_family->itemData(index).toInt());
    m_number->setValue(PrinterFamily::firstNumber(family));
}

void AddPrinterDialog::followNumber(int number)
{
    const std::optional<PrinterFamily::Kind> family = PrinterFamily::of(number);
    if (!family)
        return;
    const QSignalBlocker blocker(m_family);
    m_family->setCurrentIndex(m_family->findData(*family));
}

QString AddPrinterDialog::nameProblem(const QString& name)
{
    // The name is stored without the blanks at its ends.
    return QueueStore::nameProblem(name.trimmed());
}

QString AddPrinterDialog::portProblem(const QString& port)
{
    const PortAddress address = PortAddress::parse(port);
    if (address.kind == PortAddress::Kind::Unusable)
        return tr("Not a port: %1").arg(address.problem);
    // A simulated printer's knobs are checked now rather than when it first fails to answer.
    QString refusal;
    if (address.kind == PortAddress::Kind::Simulated &&
        !SimPrinter::fromAddress(address.simAddress, refusal))
        return tr("Not a port: %1").arg(refusal);
    return {};
}

void AddPrinterDialog::showProblem(QLabel* label, const QString& problem)
{
    label->setText(problem);
    label->setVisible(!problem.isEmpty());
}

void AddPrinterDialog::accept()
{
    const QString nameWrong = nameProblem(m_name->text());
    const QString portWrong = portProblem(m_port->text());
    showProblem(m_nameProblem, nameWrong);
    showProblem(m_portProblem, portWrong);
    if (!nameWrong.isEmpty())
        m_name->setFocus();
    else if (!portWrong.isEmpty())
        m_port->setFocus();
    else
        QDialog::accept();
}

QueueRecord AddPrinterDialog::record() const
{
    QueueRecord record;
    record.name = m_name->text().trimmed();
    record.portName = m_port->text().trimmed();
    record.printerNumber = qint16(m_number->value());
    record.friendlyName = m_friendlyName->text().trimmed();
    if (record.friendlyName.isEmpty())
        record.friendlyName = record.name;
    return record;
}
