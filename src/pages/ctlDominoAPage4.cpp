#include "pages/ctlDominoAPage4.h"

#include "pages/NamedControl.h"

#include <QFormLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QVBoxLayout>

namespace {
constexpr qint32 MsgCounts = 286;
constexpr qint32 MsgPrinted = 287;
constexpr qint32 MsgDetected = 288;
} // namespace

ctlDominoAPage4::ctlDominoAPage4(QWidget* parent)
    : HandlerPage(parent)
    , m_fraCounts(NamedControl<QGroupBox>("fraCounts", this))
    , m_lblPrinted(NamedControl<QLabel>("lblPrinted", m_fraCounts))
    , m_txtPrinted(NamedControl<QLineEdit>("txtPrinted", m_fraCounts))
    , m_lblDetected(NamedControl<QLabel>("lblDetected", m_fraCounts))
    , m_txtDetected(NamedControl<QLineEdit>("txtDetected", m_fraCounts))
{
    auto* counts = new QFormLayout(m_fraCounts);
    for (const auto& [caption, box] :
         {std::pair{m_lblPrinted, m_txtPrinted}, std::pair{m_lblDetected, m_txtDetected}}) {
        box->setReadOnly(true);
        counts->addRow(caption, box);
    }
    auto* page = new QVBoxLayout(this);
    page->addWidget(m_fraCounts);
    page->addStretch();
}

void ctlDominoAPage4::Setup(const QString&, ComponentHandler* oHandler)
{
    bind(oHandler);
    Caption(*m_fraCounts, MsgCounts, QStringLiteral("counts"));
    Caption(*m_lblPrinted, MsgPrinted, QStringLiteral("printed"));
    Caption(*m_lblDetected, MsgDetected, QStringLiteral("detected"));
    m_Handler_StatusChanged();
}

void ctlDominoAPage4::m_Handler_StatusChanged()
{
    if (!m_Handler)
        return;
    m_txtPrinted->setText(QString::number(m_Handler->PrintCount()));
    m_txtDetected->setText(QString::number(m_Handler->PrintDetected()));
}
