#include "MakeScenarioCommand.h"

#include "Scenario.h"
#include "sim/SimKnobs.h"
#include "sim/SimPrinter.h"

#include <QHostAddress>
#include <cstdlib>

namespace {
// Consecutive addresses of 127.0.0.0/8, carrying from one octet to the next: 127.0.0.255 is
// followed by 127.0.1.0, both ordinary hosts of the /8 that Linux answers on. Left out are
// the network's own first and last addresses, and 127.0.0.1, which the machine's own
// services may be listening on.
constexpr quint32 FirstAddress = 0x7F000002; // 127.0.0.2
constexpr quint32 LastAddress = 0x7FFFFFFE;  // 127.255.255.254
constexpr quint16 DefaultPort = 9100;
// JSON numbers are doubles: whole numbers beyond this would not come back the same.
constexpr qint64 LargestExactNumber = qint64(1) << 53;

constexpr qint64 Capacity = qint64(LastAddress) - FirstAddress + 1;

QString loopbackAddress(qint64 index)
{
    return QHostAddress(quint32(FirstAddress + index)).toString();
}
} // namespace

MakeScenarioCommand::MakeScenarioCommand(const Console& console)
    : m_console(console)
{}

int MakeScenarioCommand::run(const QString& countText, const QString& kind, const QString& portText,
                             const QString& knobsQuery)
{
    bool ok = false;
    const qint64 count = countText.toLongLong(&ok);
    if (!ok || count < 1 || count > Capacity)
        return m_console.fail(QStringLiteral("the number of printers must be from 1 to %1, not "
                                             "\"%2\"")
                                  .arg(Capacity)
                                  .arg(countText),
                              ExitBadInput);
    const quint16 port = portText.isEmpty() ? DefaultPort : portText.toUShort(&ok);
    if (!ok)
        return m_console.fail(
            QStringLiteral("the port must be from 0 to 65535, not \"%1\"").arg(portText),
            ExitBadInput);
    QString error;
    const std::optional<SimKnobs> knobs = SimKnobs::fromQuery(knobsQuery, error);
    // A printer made once finds an unknown kind or a knob it can't have, before a thousand
    // copies of the mistake are written.
    if (!knobs || !SimPrinter::create(kind, *knobs, error))
        return m_console.fail(error, ExitBadInput);

    const QJsonObject knobsJson = knobsToJson(*knobs);
    Scenario::write(m_console.out, count, [&](qint64 index) {
        return ScenarioPrinter{QStringLiteral("%1 %2").arg(kind).arg(index + 1), kind,
                               QStringLiteral("%1:%2").arg(loopbackAddress(index)).arg(port),
                               knobsJson};
    });
    return ExitDone;
}

QJsonObject MakeScenarioCommand::knobsToJson(const SimKnobs& knobs)
{
    // Numbers and Booleans as such, for a file that reads naturally; only where reading the
    // file back gives exactly the same text, since a kind may take a knob as text.
    QJsonObject object;
    for (auto it = knobs.values().begin(); it != knobs.values().end(); ++it) {
        bool isNumber = false;
        const qint64 number = it.value().toLongLong(&isNumber);
        if (isNumber && QString::number(number) == it.value() &&
            std::abs(number) <= LargestExactNumber)
            object.insert(it.key(), number);
        else if (it.value() == QLatin1String("true") || it.value() == QLatin1String("false"))
            object.insert(it.key(), it.value() == QLatin1String("true"));
        else
            object.insert(it.key(), it.value());
    }
    return object;
}
