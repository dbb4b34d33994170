#include "pages/ctlDominoCShift.h"

#include "pages/PrinterPage.h"

#include <QGroupBox>
#include <QVBoxLayout>

namespace {
constexpr qint32 MsgFirstShiftFrame = 229;
} // namespace

ctlDominoCShift::ctlDominoCShift(QWidget* parent)
    : QWidget(parent)
{
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    for (qint32 slot = 0; slot < clsShift::Slots; ++slot) {
        const QString number = QString::number(slot + 1);
        auto* frame = new QGroupBox(this);
        frame->setObjectName(QStringLiteral("fraShift") + number);
        Caption(*frame, MsgFirstShiftFrame + slot, QStringLiteral("shift ") + number);
        auto* shift = new ctlShift(frame);
        shift->setObjectName(QStringLiteral("ctlShift") + number);
        (new QVBoxLayout(frame))->addWidget(shift);
        column->addWidget(frame);
        shift->SetShift(m_oShifts, slot);
        m_fraShift[size_t(slot)] = frame;
        m_ctlShift[size_t(slot)] = shift;
    }
}

const clsShift& ctlDominoCShift::Shifts()
{
    Validate();
    return m_oShifts;
}

void ctlDominoCShift::setShifts(const clsShift& shifts)
{
    m_oShifts = shifts;
}

bool ctlDominoCShift::Validate()
{
    for (const ctlShift* shift : m_ctlShift) {
        if (!shift->GetShift(m_oShifts))
            return false;
    }
    return true;
}

std::optional<ctlDominoCShift::Fault> ctlDominoCShift::FirstFault() const
{
    for (size_t slot = 0; slot < m_ctlShift.size(); ++slot) {
        if (const auto field = m_ctlShift[slot]->InvalidField())
            return Fault{m_fraShift[slot]->title(), *field, &m_ctlShift[slot]->box(*field)};
    }
    return std::nullopt;
}
