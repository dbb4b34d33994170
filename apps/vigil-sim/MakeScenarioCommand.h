#pragma once

#include "Console.h"

#include <QJsonObject>

class SimKnobs;

// Writes a scenario of N printers of one kind to stdout, each at its own loopback address,
// all on the same port: a load test's fleet without a file to keep by hand.
class MakeScenarioCommand
{
public:
    explicit MakeScenarioCommand(const Console& console);

    // `portText` and `knobsQuery` may be empty: port 9100, no knobs.
    int run(const QString& countText, const QString& kind, const QString& portText,
            const QString& knobsQuery);

private:
    static QJsonObject knobsToJson(const SimKnobs& knobs);

    const Console& m_console;
};
