#include "sim/ASeriesSettings.h"

#include "sim/ASeriesCommand.h"
#include "sim/SimKnobReaders.h"

#include <algorithm>
#include <limits>

using SimKnobReaders::refuse;

namespace {
constexpr qint64 kLongestWait = 10'000'000; // seconds, about four months

// "number" or "number:status", each 0 to 255.
std::optional<ASeriesAlarm> alarmOf(const QString& text)
{
    const QStringList parts = text.split(QLatin1Char(':'));
    if (parts.size() > 2)
        return std::nullopt;
    ASeriesAlarm alarm;
    bool ok = false;
    const uint number = parts.at(0).trimmed().toUInt(&ok);
    if (!ok || number > 255)
        return std::nullopt;
    alarm.number = quint8(number);
    if (parts.size() == 2) {
        const uint status = parts.at(1).trimmed().toUInt(&ok);
        if (!ok || status > 255)
            return std::nullopt;
        alarm.status = quint8(status);
    }
    return alarm;
}

bool isListed(const QList<ASeriesAlarm>& alarms, quint8 number)
{
    return std::any_of(alarms.begin(), alarms.end(),
                       [number](const ASeriesAlarm& alarm) { return alarm.number == number; });
}

QList<ASeriesAlarm> alarmsOf(const SimKnobs& knobs, QString& error)
{
    const QString name = QStringLiteral("alarms");
    const QString text = knobs.text(name);
    if (text.trimmed().isEmpty())
        return {};
    QList<ASeriesAlarm> alarms;
    for (const QString& part : text.split(QLatin1Char(','))) {
        const std::optional<ASeriesAlarm> alarm = alarmOf(part);
        if (!alarm || isListed(alarms, alarm->number)) {
            refuse(error, name,
                   QStringLiteral("must be different alarm numbers from 0 to 255, each maybe "
                                  "with \":status\" from 0 to 255, separated by commas"));
            return {};
        }
        alarms.append(*alarm);
    }
    return alarms;
}

void readTimedAlarm(const SimKnobs& knobs, ASeriesSettings& settings, QString& error)
{
    const QString name = QStringLiteral("timedalarm");
    const QString text = knobs.text(name);
    const bool bTimed = !text.isEmpty();
    const bool bAfter = knobs.has(QStringLiteral("alarmafter"));
    settings.alarmAfter = knobs.number(QStringLiteral("alarmafter"), -1, 0, kLongestWait, error);
    settings.alarmFor = knobs.number(QStringLiteral("alarmfor"), 0, 0, kLongestWait, error);
    // Any of them without the others would never show anything.
    if (bTimed != bAfter)
        refuse(error, name, QStringLiteral("and \"alarmafter\" go together"));
    if (knobs.has(QStringLiteral("alarmfor")) && !bAfter)
        refuse(error, QStringLiteral("alarmfor"), QStringLiteral("needs \"alarmafter\""));
    if (!bTimed)
        return;
    settings.timedAlarm = alarmOf(text);
    if (!settings.timedAlarm)
        refuse(error, name,
               QStringLiteral("must be an alarm number from 0 to 255, maybe with \":status\""));
    else if (isListed(settings.alarms, settings.timedAlarm->number))
        refuse(error, name, QStringLiteral("must not be one of \"alarms\""));
    else if (settings.alarms.size() + 1 > ASeriesSettings::kMostAlarms)
        refuse(error, name, QStringLiteral("makes too many alarms"));
}

QByteArray textOf(const SimKnobs& knobs, const QString& name, const QString& defaultText,
                  qsizetype longest, QString& error)
{
    return SimKnobReaders::text(knobs, name, defaultText, 0, longest, error);
}
} // namespace

std::optional<ASeriesSettings> ASeriesSettings::read(const SimKnobs& knobs, QString& error)
{
    constexpr qint64 kLargestCount = std::numeric_limits<quint32>::max();
    ASeriesSettings settings;
    settings.machine =
        textOf(knobs, QStringLiteral("machine"), QStringLiteral("A320i"), kLongestText, error);
    settings.ink =
        textOf(knobs, QStringLiteral("ink"), QStringLiteral("MEK Black"), kLongestText, error);
    settings.nozzle =
        textOf(knobs, QStringLiteral("nozzle"), QStringLiteral("75 micron"), kLongestText, error);
    settings.raster =
        textOf(knobs, QStringLiteral("raster"), QStringLiteral("7 High"), kRasterWidth, error);
    settings.printCount =
        quint32(knobs.number(QStringLiteral("count"), 0, 0, kLargestCount, error));
    settings.printDetected =
        quint32(knobs.number(QStringLiteral("detected"), 0, 0, kLargestCount, error));
    settings.alarms = alarmsOf(knobs, error);
    if (settings.alarms.size() > kMostAlarms)
        refuse(error, QStringLiteral("alarms"),
               QStringLiteral("may list at most %1 alarms").arg(kMostAlarms));
    readTimedAlarm(knobs, settings, error);
    settings.errorId = int(knobs.number(QStringLiteral("error"), -1, 0, 255, error));
    if (settings.errorId >= 0 && !ASeriesCommand::isKnown(settings.errorId))
        refuse(error, QStringLiteral("error"),
               QStringLiteral("must be one of the ids 97, 74, 34, 64, 233 and 69"));
    if (!error.isEmpty())
        return std::nullopt;
    return settings;
}
