#include "sim/AverySettings.h"

#include "sim/SimKnobReaders.h"

namespace {
// Any letter names a model; only the "H" models send the long frame.
bool sendsLongFrame(const SimKnobs& knobs, QString& error)
{
    const QString model = knobs.text(QStringLiteral("model"), QStringLiteral("D")).toUpper();
    if (model.size() != 1 || model.at(0) < QLatin1Char('A') || model.at(0) > QLatin1Char('Z'))
        SimKnobReaders::refuse(error, QStringLiteral("model"),
                               QStringLiteral("must be one letter"));
    return model == QLatin1String("H");
}
} // namespace

std::optional<AverySettings> AverySettings::read(const SimKnobs& knobs, QString& error)
{
    AverySettings settings;
    const bool bLong = sendsLongFrame(knobs, error);
    settings.layout = bLong ? AveryLayout::longForm() : AveryLayout::shortForm();
    settings.code = SimKnobReaders::text(knobs, QStringLiteral("code"),
                                         QString(settings.layout.codeWidth, QLatin1Char('0')), 1,
                                         settings.layout.codeWidth, error);
    settings.version = SimKnobReaders::text(knobs, QStringLiteral("version"),
                                            bLong ? QStringLiteral("V1.23") : QStringLiteral("12"),
                                            1, settings.layout.versionWidth, error);
    settings.bFlagged = knobs.flag(QStringLiteral("flag"), false, error);
    settings.bPrinting = knobs.flag(QStringLiteral("printing"), false, error);
    // The digit follows the printing state unless it is set.
    settings.format =
        int(knobs.number(QStringLiteral("format"), settings.bPrinting ? 1 : 0, 0, 9, error));
    settings.labels = knobs.number(QStringLiteral("labels"), 0, 0, kLargestNumber, error);
    settings.freeBytes = knobs.number(QStringLiteral("free"), 32768, 0, kLargestNumber, error);
    settings.bBadMarker = knobs.flag(QStringLiteral("badmarker"), false, error);
    settings.bNonDigit = knobs.flag(QStringLiteral("nondigit"), false, error);
    if (!error.isEmpty())
        return std::nullopt;
    return settings;
}
