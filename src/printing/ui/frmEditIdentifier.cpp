#include "printing/ui/frmEditIdentifier.h"

#include "core/Globals.h"
#include "services/ErrorBox.h"
#include "services/MessageCatalogue.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace {
const QString Context = QStringLiteral("frmEditIdentifier - ");
constexpr int FieldWidthInCharacters = 28;
} // namespace

frmEditIdentifier::frmEditIdentifier(QWidget* parent)
    : QDialog(parent)
    , lblPrinterIdentifier(new QLabel(GetMessage(458), this))
    , txtPrinterIdentifier(new QLineEdit(this))
    , lblPrinter(new QLabel(GetMessage(459), this))
    , cboPrinter(new QComboBox(this))
    , chkAllPrinters(new QCheckBox(GetMessage(460), this))
    , cmdOK(new QPushButton(GetMessage(461), this))
    , cmdCancel(new QPushButton(GetMessage(462), this))
{
    setObjectName(QStringLiteral("frmEditIdentifier"));
    txtPrinterIdentifier->setObjectName(QStringLiteral("txtPrinterIdentifier"));
    cboPrinter->setObjectName(QStringLiteral("cboPrinter"));
    chkAllPrinters->setObjectName(QStringLiteral("chkAllPrinters"));
    cmdOK->setObjectName(QStringLiteral("cmdOK"));
    cmdCancel->setObjectName(QStringLiteral("cmdCancel"));
    setWindowTitle(GetMessage(457));
    lblPrinterIdentifier->setBuddy(txtPrinterIdentifier);
    lblPrinter->setBuddy(cboPrinter);
    txtPrinterIdentifier->setMinimumWidth(txtPrinterIdentifier->fontMetrics().averageCharWidth() *
                                          FieldWidthInCharacters);
    cboPrinter->setSizeAdjustPolicy(QComboBox::AdjustToContents);

    auto* fields = new QFormLayout;
    fields->addRow(lblPrinterIdentifier, txtPrinterIdentifier);
    fields->addRow(lblPrinter, cboPrinter);
    fields->addRow(QString(), chkAllPrinters);
    auto* buttons = new QDialogButtonBox(this);
    buttons->addButton(cmdOK, QDialogButtonBox::AcceptRole);
    buttons->addButton(cmdCancel, QDialogButtonBox::RejectRole);
    cmdOK->setDefault(true);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(fields);
    layout->addWidget(buttons);
    layout->setSizeConstraint(QLayout::SetFixedSize);

    connect(chkAllPrinters, &QCheckBox::clicked, this, &frmEditIdentifier::chkAllPrinters_Click);
    connect(cboPrinter, &QComboBox::currentTextChanged, this,
            [this](const QString& text) { m_sPrinter = text; });
    connect(cmdOK, &QPushButton::clicked, this, &frmEditIdentifier::cmdOK_Click);
    connect(cmdCancel, &QPushButton::clicked, this, &frmEditIdentifier::cmdCancel_Click);
}

bool frmEditIdentifier::CreateAndShow_AddIdentifier(const QStringList& colAllPrinters,
                                                    const QStringList& colGroupPrinters,
                                                    QWidget* frmParent, bool& bShowAllPrinters,
                                                    QString& sPrinter, QString& sIdentifier)
{
    bool accepted = false;
    RunTrapped(Context + QStringLiteral("CreateAndShow_AddIdentifier"), [&] {
        frmEditIdentifier form(frmParent);
        form.setPrinter(sPrinter);
        form.setIdentifier(sIdentifier);
        form.Setup(colAllPrinters, colGroupPrinters);
        form.setShowAllPrinters(bShowAllPrinters);
        form.exec();
        if (form.Cancelled())
            return;
        sPrinter = form.Printer();
        sIdentifier = form.Identifier();
        bShowAllPrinters = form.ShowAllPrinters();
        accepted = true;
    });
    return accepted;
}

void frmEditIdentifier::Setup(const QStringList& colAllPrinters,
                              const QStringList& colGroupPrinters)
{
    m_colAllPrinters = colAllPrinters;
    m_colGroupPrinters = colGroupPrinters;
}

void frmEditIdentifier::setIdentifier(const QString& identifier)
{
    m_sIdentifier = identifier;
    txtPrinterIdentifier->setText(identifier);
}

void frmEditIdentifier::setShowAllPrinters(bool showAll)
{
    m_bShowAllPrinters = showAll;
    SetAvailablePrinters();
}

void frmEditIdentifier::SetAvailablePrinters()
{
    RunTrapped(Context + QStringLiteral("SetAvailablePrinters"), [this] {
        // Filling the box changes its text: the chosen printer is kept aside meanwhile.
        const QString printer = m_sPrinter;
        chkAllPrinters->setChecked(m_bShowAllPrinters);
        cboPrinter->clear();
        cboPrinter->addItem(g_sNoPrinter);
        cboPrinter->addItems(m_bShowAllPrinters ? m_colAllPrinters : m_colGroupPrinters);
        // A printer the list doesn't have shows as no printer.
        const int index = printer.isEmpty() ? 0 : cboPrinter->findText(printer, Qt::MatchExactly);
        cboPrinter->setCurrentIndex(qMax(0, index));
        m_sPrinter = printer.isEmpty() ? printer : cboPrinter->currentText();
    });
}

void frmEditIdentifier::chkAllPrinters_Click()
{
    RunTrapped(Context + QStringLiteral("chkAllPrinters_Click"), [this] {
        m_bShowAllPrinters = chkAllPrinters->isChecked();
        SetAvailablePrinters();
    });
}

void frmEditIdentifier::cmdOK_Click()
{
    RunTrapped(Context + QStringLiteral("cmdOK_Click"), [this] {
        m_sIdentifier = txtPrinterIdentifier->text();
        m_sPrinter = cboPrinter->currentText();
        m_bCancelled = false;
        accept();
    });
}

void frmEditIdentifier::cmdCancel_Click()
{
    RunTrapped(Context + QStringLiteral("cmdCancel_Click"), [this] {
        m_bCancelled = true;
        reject();
    });
}
