#pragma once

#include <QByteArray>
#include <QDateTime>
#include <QList>
#include <optional>

struct CSeriesShift
{
    QByteArray id;
    int hour = 0;
    int minute = 0;

    bool operator==(const CSeriesShift&) const = default;
};

// The arguments of the commands that carry some, as the printer takes them: each decoder gives
// none for an argument the printer refuses.
namespace CSeriesArguments {
constexpr int kShifts = 4;
// "HH:MM", the end of each shift.
constexpr qsizetype kTimeLength = 5;
constexpr qsizetype kClockLength = 13;
// The counter's number, then its value.
constexpr qsizetype kCountsLength = 2;
constexpr qsizetype kLongestName = 8;
constexpr qsizetype kLongestDigits = 3;

bool isDigit(char c);
bool isTimeAt(const QByteArray& bytes, qsizetype at);
// "wmmddyyyyHHNN" on the clock of `now`; the weekday (1 for Monday) must be the date's.
std::optional<QDateTime> clockOf(const QByteArray& argument, const QDateTime& now);
// Only counter 0, the print count, is kept.
std::optional<int> countOf(const QByteArray& argument);
// Direction and orientation: one digit each, as the set-up list packs them.
std::optional<int> digitOf(const QByteArray& argument);
// Four shifts, each an id of any length directly followed by its "HH:MM".
std::optional<QList<CSeriesShift>> shiftsOf(const QByteArray& argument);
// The name without its terminator, and with the top bit of its first byte cleared, as the
// file list sends it with that bit set.
QByteArray messageNameOf(const QByteArray& argument);
} // namespace CSeriesArguments
