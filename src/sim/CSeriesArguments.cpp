#include "sim/CSeriesArguments.h"

#include "sim/CSeriesCommand.h"

#include <algorithm>

namespace {
using CSeriesArguments::isDigit;

// The decimal number of `length` bytes at `at`, or none if any of them isn't a digit.
std::optional<int> numberAt(const QByteArray& bytes, qsizetype at, qsizetype length)
{
    if (at < 0 || at + length > bytes.size())
        return std::nullopt;
    int number = 0;
    for (qsizetype index = at; index < at + length; ++index) {
        if (!isDigit(bytes.at(index)))
            return std::nullopt;
        number = number * 10 + (bytes.at(index) - '0');
    }
    return number;
}
} // namespace

namespace CSeriesArguments {
bool isDigit(char c)
{
    return c >= '0' && c <= '9';
}

bool isTimeAt(const QByteArray& bytes, qsizetype at)
{
    return numberAt(bytes, at, 2) && at + 2 < bytes.size() && bytes.at(at + 2) == ':' &&
           numberAt(bytes, at + 3, 2);
}

std::optional<QDateTime> clockOf(const QByteArray& argument, const QDateTime& now)
{
    if (argument.size() != kClockLength || !std::all_of(argument.begin(), argument.end(), isDigit))
        return std::nullopt;
    const QDate date(*numberAt(argument, 5, 4), *numberAt(argument, 1, 2),
                     *numberAt(argument, 3, 2));
    const QTime time(*numberAt(argument, 9, 2), *numberAt(argument, 11, 2));
    if (!date.isValid() || !time.isValid() || date.dayOfWeek() != *numberAt(argument, 0, 1))
        return std::nullopt;
    QDateTime clock = now;
    clock.setDate(date);
    clock.setTime(time);
    return clock;
}

std::optional<int> countOf(const QByteArray& argument)
{
    if (argument.size() != kCountsLength || argument.at(0) != 0)
        return std::nullopt;
    return quint8(argument.at(1));
}

std::optional<int> digitOf(const QByteArray& argument)
{
    if (argument.isEmpty() || argument.size() > kLongestDigits)
        return std::nullopt;
    const std::optional<int> value = numberAt(argument, 0, argument.size());
    if (!value || *value > 9)
        return std::nullopt;
    return value;
}

std::optional<QList<CSeriesShift>> shiftsOf(const QByteArray& argument)
{
    QList<CSeriesShift> shifts;
    qsizetype from = 0;
    while (shifts.size() < kShifts) {
        qsizetype at = from;
        while (at + kTimeLength <= argument.size() && !isTimeAt(argument, at))
            ++at;
        if (at + kTimeLength > argument.size())
            return std::nullopt;
        const int hour = *numberAt(argument, at, 2);
        const int minute = *numberAt(argument, at + 3, 2);
        if (hour > 23 || minute > 59)
            return std::nullopt;
        shifts.append({argument.mid(from, at - from), hour, minute});
        from = at + kTimeLength;
    }
    if (from != argument.size())
        return std::nullopt;
    return shifts;
}

QByteArray messageNameOf(const QByteArray& argument)
{
    QByteArray name = argument;
    if (name.endsWith(CSeriesCommand::Return))
        name.chop(1);
    if (!name.isEmpty())
        name[0] = char(name.at(0) & 0x7F);
    return name;
}
} // namespace CSeriesArguments
