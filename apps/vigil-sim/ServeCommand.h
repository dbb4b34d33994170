#pragma once

#include "Console.h"
#include "Scenario.h"
#include "SimServer.h"

#include <memory>
#include <vector>

// Serves the printers of a scenario file until SIGINT or SIGTERM. A printer that can't be
// served is named on stderr and left out; the others go on.
class ServeCommand
{
public:
    explicit ServeCommand(const Console& console);

    int run(const QString& scenarioPath);

private:
    std::optional<Scenario> readScenario(const QString& path, QString& error) const;
    // None with `error` set when its kind, knobs or address won't do.
    std::unique_ptr<SimServer> serve(const ScenarioPrinter& printer, QString& error) const;
    void raiseOpenFileLimit() const;

    const Console& m_console;
};
