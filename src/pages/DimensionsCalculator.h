#pragma once

#include <QString>

// What a C-series coder's set-up means on the conveyor: line speed, photocell distance and
// the widest print, in metric or imperial units. A figure that can't be worked out (no
// resolution, a division by zero) is 0.
namespace DimensionsCalculator {
// The modes of ConvertUnits; any other mode leaves the value as it is.
enum Conversion : qint32 { FeetToMetres = 0, MetresToFeet = 1, InchesToMillimetres = 2 };

// The factors apply in the order the coder's makers wrote them, so the figures agree with
// theirs to the last digit.
double ConvertUnits(double value, qint32 mode);

// Metres a minute, or feet a minute, at the head frequency in hertz.
double Speed(double frequencyHz, qint32 dpi, bool metric);
// Millimetres, or inches, for the photocell delay in dots.
double PhotocellDistance(qint32 delay, qint32 dpi, bool metric);
// Millimetres, or inches: the longest print the coder can count, 65535 dots.
double Width(qint32 dpi, bool metric);

// A head as the coder reports it, three digits: the type, then the frequency in hundreds of
// hertz. Shorter texts are padded with "0" on the left; a text that doesn't read gives 0, 0.
struct HeadSetting
{
    qint32 type = 0;
    qint32 frequencyHundreds = 0;
};
HeadSetting ParseHead(const QString& text);

// Up to 15 significant digits and no trailing zeros: 45.72, 150, 0.
QString GeneralFormat(double value);
// Always four decimals, no thousands separator: 254.0000.
QString FourDecimals(double value);
} // namespace DimensionsCalculator
