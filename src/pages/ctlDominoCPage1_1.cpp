#include "pages/ctlDominoCPage1_1.h"

#include "pages/PageControls.h"
#include "platform/qt/ControlHelpers.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QLabel>

namespace {
constexpr qint32 MsgPhotocell = 158;
constexpr qint32 MsgShaftEncoder = 161;
constexpr qint32 ShaftEncoderOn = 1;

// The coder gives its photocell as a position in this list.
constexpr ComboEntry PhotocellPositions[] = {{159, "internal", 0}, {160, "external", 1}};
} // namespace

ctlDominoCPage1_1::ctlDominoCPage1_1(QWidget* parent)
    : HandlerPage(parent)
    , m_lblPhotocell(NamedControl<QLabel>("lblPhotocell", this))
    , m_cboPhotocell(NamedControl<QComboBox>("cboPhotocell", this))
    , m_chkShaft(NamedControl<QCheckBox>("chkShaft", this))
{
    MakeReadOnly(*m_cboPhotocell);
    m_chkShaft->setEnabled(false);

    auto* grid = new QGridLayout(this);
    grid->addWidget(m_lblPhotocell, 0, 0);
    grid->addWidget(m_cboPhotocell, 0, 1);
    grid->addWidget(m_chkShaft, 1, 0, 1, 2);
    grid->setColumnStretch(1, 1);
    grid->setRowStretch(2, 1);
}

void ctlDominoCPage1_1::Setup(const QString&, ComponentHandler* oHandler)
{
    bind(oHandler);
    Caption(*m_lblPhotocell, MsgPhotocell, QStringLiteral("photocell position"));
    Caption(*m_chkShaft, MsgShaftEncoder, QStringLiteral("shaft encoder enabled"));
    FillCombo(*m_cboPhotocell, PhotocellPositions);
    SetTag(*m_cboPhotocell, false);
    SetTag(*m_chkShaft, false);
    m_Handler_StatusChanged();
}

void ctlDominoCPage1_1::m_Handler_StatusChanged()
{
    if (!m_Handler)
        return;
    if (!IsTagSet(*m_cboPhotocell)) {
        // A position the list doesn't have leaves it without a selection rather than
        // showing a place the photocell isn't in.
        const qint32 position = m_Handler->Photocell();
        const bool listed = position >= 0 && position < m_cboPhotocell->count();
        m_cboPhotocell->setCurrentIndex(listed ? position : -1);
    }
    if (!IsTagSet(*m_chkShaft))
        m_chkShaft->setChecked(m_Handler->ShaftEncoder() == ShaftEncoderOn);
}
