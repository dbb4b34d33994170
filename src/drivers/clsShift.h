#pragma once

#include <QString>
#include <array>

// The four work shifts of a C-series printer, each with its identifier and start time, on
// their way from the screen to the printer. Slots are indexed 0 to 3; an index outside is
// ignored by the setters and reads as empty.
class clsShift
{
public:
    static constexpr int Slots = 4;

    void SetID(const QString& id, qint32 index);
    void SetHour(qint32 hour, qint32 index);
    void SetMinute(qint32 minute, qint32 index);
    QString GetID(qint32 index) const;
    qint32 GetHour(qint32 index) const;
    qint32 GetMinute(qint32 index) const;

private:
    struct Slot
    {
        QString id;
        qint32 hour = 0;
        qint32 minute = 0;
    };

    const Slot* slot(qint32 index) const;
    Slot* slot(qint32 index);

    std::array<Slot, Slots> m_slots;
};
