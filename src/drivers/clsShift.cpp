#include "drivers/clsShift.h"

const clsShift::Slot* clsShift::slot(qint32 index) const
{
    return index >= 0 && index < Slots ? &m_slots[size_t(index)] : nullptr;
}

clsShift::Slot* clsShift::slot(qint32 index)
{
    return index >= 0 && index < Slots ? &m_slots[size_t(index)] : nullptr;
}

void clsShift::SetID(const QString& id, qint32 index)
{
    if (Slot* found = slot(index))
        found->id = id;
}

void clsShift::SetHour(qint32 hour, qint32 index)
{
    if (Slot* found = slot(index))
        found->hour = hour;
}

void clsShift::SetMinute(qint32 minute, qint32 index)
{
    if (Slot* found = slot(index))
        found->minute = minute;
}

QString clsShift::GetID(qint32 index) const
{
    const Slot* found = slot(index);
    return found ? found->id : QString();
}

qint32 clsShift::GetHour(qint32 index) const
{
    const Slot* found = slot(index);
    return found ? found->hour : 0;
}

qint32 clsShift::GetMinute(qint32 index) const
{
    const Slot* found = slot(index);
    return found ? found->minute : 0;
}
