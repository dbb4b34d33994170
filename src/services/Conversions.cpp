#include "services/Conversions.h"

#include "services/VigilError.h"

#include <QRegularExpression>
#include <cmath>
#include <limits>

namespace {
const QString Source = QStringLiteral("Conversions");

[[noreturn]] void raiseTypeMismatch()
{
    throw VigilError(VigilError::TypeMismatch, Source, QStringLiteral("Type mismatch"));
}

qint32 roundToLong(double value)
{
    if (!std::isfinite(value))
        throw VigilError(VigilError::Overflow, Source, QStringLiteral("Overflow"));
    // Half to even, as the default rounding mode gives it.
    const double rounded = std::nearbyint(value);
    if (rounded < std::numeric_limits<qint32>::min() ||
        rounded > std::numeric_limits<qint32>::max())
        throw VigilError(VigilError::Overflow, Source, QStringLiteral("Overflow"));
    return static_cast<qint32>(rounded);
}
} // namespace

std::optional<double> NumericValue(const QString& text)
{
    static const QRegularExpression decimal(
        QStringLiteral("^\\s*([+-]?(?:\\d+\\.?\\d*|\\.\\d+)(?:[eEdD][+-]?\\d+)?)\\s*$"));
    static const QRegularExpression radix(QStringLiteral("^\\s*&([hHoO])([0-9a-fA-F]+)\\s*$"));

    if (const auto match = decimal.match(text); match.hasMatch()) {
        QString number = match.captured(1);
        number.replace(QLatin1Char('d'), QLatin1Char('e'))
            .replace(QLatin1Char('D'), QLatin1Char('e'));
        bool ok = false;
        const double value = number.toDouble(&ok);
        if (ok)
            return value;
        return std::nullopt;
    }
    if (const auto match = radix.match(text); match.hasMatch()) {
        const int base = match.captured(1).toLower() == QLatin1String("h") ? 16 : 8;
        bool ok = false;
        const qulonglong value = match.captured(2).toULongLong(&ok, base);
        if (ok)
            return static_cast<double>(value);
    }
    return std::nullopt;
}

bool IsNumeric(const QString& text)
{
    return NumericValue(text).has_value();
}

qint32 ToLong(const QVariant& value)
{
    switch (value.typeId()) {
    case QMetaType::UnknownType:
        return 0;
    case QMetaType::Bool:
        return value.toBool() ? -1 : 0;
    case QMetaType::QString:
    case QMetaType::QByteArray: {
        const auto number = NumericValue(value.toString());
        if (!number)
            raiseTypeMismatch();
        return roundToLong(*number);
    }
    default:
        break;
    }
    bool ok = false;
    const double number = value.toDouble(&ok);
    if (!ok)
        raiseTypeMismatch();
    return roundToLong(number);
}

QString TextOf(const QVariant& value)
{
    switch (value.typeId()) {
    case QMetaType::Bool:
        return value.toBool() ? QStringLiteral("True") : QStringLiteral("False");
    case QMetaType::Double:
    case QMetaType::Float:
        return QString::number(value.toDouble(), 'g', 15);
    default:
        return value.toString();
    }
}
