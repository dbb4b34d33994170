#include "drivers/DominoCCommands.h"

#include "drivers/clsShift.h"

namespace DominoC {
namespace {
QByteArray twoDigits(int value)
{
    return QByteArray::number(value).rightJustified(2, '0');
}
} // namespace

QByteArray SetShifts(const clsShift& shifts)
{
    QByteArray command(1, CmdSetShifts);
    for (int index = 0; index < clsShift::Slots; ++index)
        command += shifts.GetID(index).toLatin1() + twoDigits(shifts.GetHour(index)) + ':' +
                   twoDigits(shifts.GetMinute(index));
    return command;
}

QByteArray SetDirection(qint32 direction)
{
    return CmdSetDirection + QByteArray::number(direction);
}

QByteArray SetOrientation(qint32 orientation)
{
    return CmdSetOrientation + QByteArray::number(orientation);
}

QByteArray SetClock(const QDateTime& when)
{
    const QDate date = when.date();
    const QTime time = when.time();
    // Qt's weekday already counts from Monday as 1.
    return CmdSetClock + QByteArray::number(date.dayOfWeek()) + twoDigits(date.month()) +
           twoDigits(date.day()) + QByteArray::number(date.year()).rightJustified(4, '0') +
           twoDigits(time.hour()) + twoDigits(time.minute());
}

QByteArray SetCounts(qint32 count)
{
    return QByteArray(1, CmdSetCounts) + '\0' + char(count & 0xFF);
}

QByteArray SelectMessage(const QByteArray& name)
{
    QByteArray command = CmdSelectMessage + name;
    if (name.size() < LongMessageName)
        command += Cr;
    return command;
}
} // namespace DominoC
