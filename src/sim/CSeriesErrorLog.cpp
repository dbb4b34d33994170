#include "sim/CSeriesErrorLog.h"

#include <array>

namespace {
const std::array<const char*, CSeriesErrorLog::kCapacity> kFaults{
    "Ink pressure low",
    "Solvent level low",
    "Ink level low",
    "Phase detect failed",
    "Charge fault",
    "Gutter fault",
    "EHT trip",
    "Nozzle blocked",
    "Head cover off",
    "Ink temperature high",
    "Viscosity high",
    "Viscosity low",
    "Photocell fault",
    "Shaft encoder fault",
    "Head heater fault",
    "Pump speed high",
    "Message overrun",
    "Print go too fast",
    "Cabinet fan failure",
    "Service due",
};
const char* const kTimedFault = "Head not ready";
// Uneven, so that entries differ in day, hour, minute and second.
constexpr qint64 kIntervalSeconds = 6 * 3600 + 47 * 60 + 13;
} // namespace

QList<CSeriesLogEntry> CSeriesErrorLog::lines(int entries, int wrap, const QDateTime& poweredOn,
                                              const std::optional<QDateTime>& timedError)
{
    // Oldest first.
    QList<CSeriesLogEntry> history;
    for (int index = 0; index < entries; ++index)
        history.append(
            {kFaults.at(index), poweredOn.addSecs(-kIntervalSeconds * (entries - index))});
    // The newest entries stand before the wrap line.
    qsizetype newer = wrap > 1 ? wrap - 1 : 0;
    if (timedError) {
        history.append({kTimedFault, *timedError});
        if (newer > 0)
            ++newer;
        if (history.size() > kCapacity)
            history.removeFirst();
    }
    return history.mid(history.size() - newer) + history.first(history.size() - newer);
}
