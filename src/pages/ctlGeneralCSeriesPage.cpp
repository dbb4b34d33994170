#include "pages/ctlGeneralCSeriesPage.h"

#include "pages/PageControls.h"
#include "services/ErrorBox.h"
#include "services/MessageCatalogue.h"

#include <QComboBox>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>

namespace {
constexpr qint32 MsgName = 131;
constexpr qint32 MsgPort = 132;
constexpr qint32 MsgType = 133;
constexpr qint32 MsgNoTypeSelected = 136;
constexpr qint32 MsgFpgaStatus = 138;
// Followed by one text for each FPGA status the coder reports: 0, then 1.
constexpr qint32 MsgFirstFpgaState = 139;
constexpr qint32 FpgaStates = 2;
constexpr qint32 MsgFpgaVersion = 141;
} // namespace

ctlGeneralCSeriesPage::ctlGeneralCSeriesPage(QWidget* parent)
    : HandlerPage(parent)
    , m_grid(new QGridLayout(this))
{
    m_txtName = NamedControl<QLineEdit>("txtName", this);
    m_txtPort = NamedControl<QLineEdit>("txtPort", this);
    m_cboType = NamedControl<QComboBox>("cboType", this);
    m_txtFpgaStatus = NamedControl<QLineEdit>("txtFpgaStatus", this);
    m_txtFpgaStatus->setReadOnly(true);
    m_txtFpgaVersion = NamedControl<QLineEdit>("txtFpgaVersion", this);
    m_txtFpgaVersion->setReadOnly(true);

    m_lblName = addCaptionedRow("lblName", m_txtName);
    m_lblPort = addCaptionedRow("lblPort", m_txtPort);
    m_lblType = addCaptionedRow("lblType", m_cboType);
    m_lblFpgaStatus = addCaptionedRow("lblFpgaStatus", m_txtFpgaStatus);
    m_lblFpgaVersion = addCaptionedRow("lblFpgaVersion", m_txtFpgaVersion);
    m_grid->setColumnStretch(1, 1);
    m_grid->setRowStretch(m_grid->rowCount(), 1);
}

QLabel* ctlGeneralCSeriesPage::addCaptionedRow(const char* labelName, QWidget* field)
{
    auto* label = NamedControl<QLabel>(labelName, this);
    label->setBuddy(field);
    const int row = m_grid->rowCount();
    m_grid->addWidget(label, row, 0);
    m_grid->addWidget(field, row, 1);
    return label;
}

void ctlGeneralCSeriesPage::Setup(const QString& sName, ComponentHandler* oHandler)
{
    clsDominoHandlerC& handler = bind(oHandler, Follow::Nothing);
    Setup(sName, oHandler, handler.Port(), handler.HandlerFreindlyName(), handler.PortBusy(),
          handler.Disabled());
}

void ctlGeneralCSeriesPage::Setup(const QString& sName, ComponentHandler* oHandler,
                                  const QString& sPort, const QString& sType, bool, bool)
{
    // The frame follows the status and hands it on here.
    bind(oHandler, Follow::Nothing);
    m_txtName->setText(sName);
    m_txtPort->setText(sPort);
    AddTypes({sType});
    m_cboType->setCurrentIndex(m_cboType->findText(sType));

    Caption(*m_lblName, MsgName, QStringLiteral("name"));
    Caption(*m_lblPort, MsgPort, QStringLiteral("group"));
    Caption(*m_lblType, MsgType, QStringLiteral("type"));
    Caption(*m_lblFpgaStatus, MsgFpgaStatus, QStringLiteral("fpga status"));
    Caption(*m_lblFpgaVersion, MsgFpgaVersion, QStringLiteral("fpga version"));
    for (QWidget* fixed : std::initializer_list<QWidget*>{m_txtName, m_txtPort, m_cboType})
        fixed->setEnabled(false);

    m_Handler_StatusChanged();
}

void ctlGeneralCSeriesPage::m_Handler_StatusChanged()
{
    if (!m_Handler)
        return;
    const qint32 fpga = m_Handler->FPGA();
    // A status the catalogue has no text for is shown as the coder gave it.
    m_txtFpgaStatus->setText(fpga >= 0 && fpga < FpgaStates ? GetMessage(MsgFirstFpgaState + fpga)
                                                            : QString::number(fpga));
    m_txtFpgaVersion->setText(m_Handler->PritnerVersion());
}

void ctlGeneralCSeriesPage::AddTypes(const QStringList& types)
{
    for (const QString& type : types) {
        if (!type.isEmpty() && m_cboType->findText(type) < 0)
            m_cboType->addItem(type);
    }
}

void ctlGeneralCSeriesPage::GetValues(QString& sName, QString& sPort, QString& sType) const
{
    sName = m_txtName->text();
    sPort = m_txtPort->text();
    sType = m_cboType->currentText();
}

bool ctlGeneralCSeriesPage::Validate(bool bShow)
{
    if (m_cboType->currentIndex() >= 0)
        return true;
    if (bShow)
        ShowError(GetMessage(MsgNoTypeSelected), QString());
    m_cboType->setFocus();
    return false;
}
