#include "pages/ctlShift.h"

#include "drivers/clsShift.h"
#include "pages/PageControls.h"
#include "pages/PrinterPage.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>

namespace {
constexpr qint32 MsgId = 226;
constexpr qint32 MsgStartHour = 227;
constexpr qint32 MsgStartMinute = 228;
constexpr qint32 LastHour = 23;
constexpr qint32 LastMinute = 59;

std::optional<qint32> hourOf(const QLineEdit& box)
{
    return WholeNumberWithin(box.text(), 0, LastHour);
}

std::optional<qint32> minuteOf(const QLineEdit& box)
{
    return WholeNumberWithin(box.text(), 0, LastMinute);
}
} // namespace

ctlShift::ctlShift(QWidget* parent)
    : QWidget(parent)
{
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    row->addWidget(addLabel("lblId", MsgId, "id"));
    row->addWidget(m_txtId = addBox("txtId"), 2);
    row->addWidget(addLabel("lblStartHour", MsgStartHour, "start hour"));
    row->addWidget(m_txtStartHour = addBox("txtStartHour"), 1);
    row->addWidget(addLabel("lblStartMinute", MsgStartMinute, "start minute"));
    row->addWidget(m_txtStartMinute = addBox("txtStartMinute"), 1);
}

QLabel* ctlShift::addLabel(const char* objectName, qint32 messageId, const char* fallback)
{
    auto* label = NamedControl<QLabel>(objectName, this);
    Caption(*label, messageId, QLatin1String(fallback));
    return label;
}

QLineEdit* ctlShift::addBox(const char* objectName)
{
    auto* box = NamedControl<QLineEdit>(objectName, this);
    SelectAllOnFocus(*box);
    return box;
}

void ctlShift::SetShift(const clsShift& shifts, qint32 index)
{
    m_txtId->setText(shifts.GetID(index));
    m_txtStartHour->setText(QString::number(shifts.GetHour(index)));
    m_txtStartMinute->setText(QString::number(shifts.GetMinute(index)));
    m_nIndex = index;
}

bool ctlShift::GetShift(clsShift& shifts) const
{
    const auto hour = hourOf(*m_txtStartHour);
    const auto minute = minuteOf(*m_txtStartMinute);
    if (!hour || !minute)
        return false;
    shifts.SetID(m_txtId->text(), m_nIndex);
    shifts.SetHour(*hour, m_nIndex);
    shifts.SetMinute(*minute, m_nIndex);
    return true;
}

std::optional<ctlShift::Field> ctlShift::InvalidField() const
{
    if (!hourOf(*m_txtStartHour))
        return Field::StartHour;
    if (!minuteOf(*m_txtStartMinute))
        return Field::StartMinute;
    return std::nullopt;
}

QLineEdit& ctlShift::box(Field field) const
{
    switch (field) {
    case Field::StartHour:
        return *m_txtStartHour;
    case Field::StartMinute:
        return *m_txtStartMinute;
    case Field::Id:
        break;
    }
    return *m_txtId;
}
