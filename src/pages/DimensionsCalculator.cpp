#include "pages/DimensionsCalculator.h"

#include "services/Conversions.h"
#include "services/TextUtilities.h"

#include <cmath>
#include <limits>
#include <optional>

namespace DimensionsCalculator {
namespace {
constexpr double MillimetresPerInch = 25.4;
constexpr double CentimetresPerInch = 2.54;
constexpr double InchesPerFoot = 12;
constexpr double CentimetresPerMetre = 100;
constexpr double SecondsPerMinute = 60;
constexpr qint32 DotsPerThousand = 1000;
constexpr double LongestPrintDots = 65535;
constexpr qint16 HeadDigits = 3;

// A figure that came of a division by zero, or of none at all, shows as 0.
double finiteOrZero(double value)
{
    return std::isfinite(value) ? value : 0;
}

std::optional<qint32> digitsValue(const QString& digits)
{
    bool ok = false;
    const qint32 value = digits.toInt(&ok);
    return ok ? std::optional<qint32>(value) : std::nullopt;
}
} // namespace

double ConvertUnits(double value, qint32 mode)
{
    switch (mode) {
    case FeetToMetres:
        return value * InchesPerFoot * CentimetresPerInch / CentimetresPerMetre;
    case MetresToFeet:
        return value * CentimetresPerMetre / CentimetresPerInch / InchesPerFoot;
    case InchesToMillimetres:
        return value * MillimetresPerInch;
    default:
        return value;
    }
}

double Speed(double frequencyHz, qint32 dpi, bool metric)
{
    // A whole-number product in the coder's own figures; one beyond 32 bits gives no figure.
    const qint64 dotsPerThousandInches = qint64(dpi) * DotsPerThousand;
    if (dotsPerThousandInches > std::numeric_limits<qint32>::max() ||
        dotsPerThousandInches < std::numeric_limits<qint32>::min())
        return 0;
    const double metresPerMinute = finiteOrZero(frequencyHz * MillimetresPerInch *
                                                SecondsPerMinute / double(dotsPerThousandInches));
    return metric ? metresPerMinute : ConvertUnits(metresPerMinute, MetresToFeet);
}

double PhotocellDistance(qint32 delay, qint32 dpi, bool metric)
{
    const double inches = finiteOrZero(double(delay) / double(dpi));
    return metric ? ConvertUnits(inches, InchesToMillimetres) : inches;
}

double Width(qint32 dpi, bool metric)
{
    const double inches = finiteOrZero(LongestPrintDots / double(dpi));
    return metric ? ConvertUnits(inches, InchesToMillimetres) : inches;
}

HeadSetting ParseHead(const QString& text)
{
    const QString digits = PadLeft(text, QStringLiteral("0"), HeadDigits);
    const auto type = digitsValue(digits.left(1));
    const auto frequency = digitsValue(digits.right(2));
    if (!type || !frequency)
        return {};
    return {*type, *frequency};
}

QString GeneralFormat(double value)
{
    return TextOf(value);
}

QString FourDecimals(double value)
{
    return QString::number(value, 'f', 4);
}
} // namespace DimensionsCalculator
