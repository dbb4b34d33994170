#pragma once

#include "sim/SimEngine.h"
#include "sim/SimKnobs.h"

#include <QStringList>
#include <functional>
#include <memory>

// The kinds of simulated printer, by name ("echo", "c-series", ...).
class SimRegistry
{
public:
    // Reads its knobs; on a bad one it sets `error` and answers none.
    using Factory = std::function<std::unique_ptr<SimEngine>(const SimKnobs&, QString& error)>;

    static void registerKind(const QString& kind, Factory factory);
    static QStringList kinds();
    // None with `error` set for an unknown kind or bad knobs.
    static std::unique_ptr<SimEngine> create(const QString& kind, const SimKnobs& knobs,
                                             QString& error);
};
