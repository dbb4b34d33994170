#include "sim/AveryStatusFrame.h"

#include <algorithm>

namespace {
// No reader looks at it. At "1", a reader that takes it for the flag sees an error on every
// healthy printer.
constexpr char kUnread = '1';

QByteArray numberText(qint64 value, qsizetype width)
{
    qint64 largest = 1;
    for (qsizetype digit = 0; digit < width; ++digit)
        largest *= 10;
    return QByteArray::number(std::clamp<qint64>(value, 0, largest - 1)).rightJustified(width, '0');
}

// Each digit d becomes the letter d places from "A": "00123" reads "AABCD".
QByteArray inLetters(QByteArray digits)
{
    for (char& c : digits)
        c = char('A' + (c - '0'));
    return digits;
}
} // namespace

namespace AveryStatusFrame {
QByteArray build(const AverySettings& settings, int format, qint64 labels)
{
    const AveryLayout& layout = settings.layout;
    const QByteArray labelsText = numberText(labels, layout.numberWidth);
    return 'S' + settings.code.rightJustified(layout.codeWidth, '0') + 'A' + kUnread +
           (settings.bFlagged ? '1' : '0') + char('0' + std::clamp(format, 0, 9)) +
           (settings.bBadMarker ? 'm' : 'M') +
           (settings.bNonDigit ? inLetters(labelsText) : labelsText) + 'F' +
           numberText(settings.freeBytes, layout.numberWidth) + 'K' +
           settings.version.leftJustified(layout.versionWidth);
}
} // namespace AveryStatusFrame
