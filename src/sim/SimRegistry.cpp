#include "sim/SimRegistry.h"

#include "sim/ASeriesEngine.h"
#include "sim/AveryEngine.h"
#include "sim/CSeriesEngine.h"
#include "sim/EchoEngine.h"
#include "sim/LabelEngine.h"

#include <QMap>

namespace {
QMap<QString, SimRegistry::Factory>& factories()
{
    // The kinds built in come first; a program may add its own.
    static QMap<QString, SimRegistry::Factory> table{
        {QStringLiteral("echo"), &EchoEngine::create},
        {QStringLiteral("c-series"), &CSeriesEngine::create},
        {QStringLiteral("a-series"), &ASeriesEngine::create},
        {QStringLiteral("avery"), &AveryEngine::create},
        {QStringLiteral("label"), &LabelEngine::create},
    };
    return table;
}
} // namespace

void SimRegistry::registerKind(const QString& kind, Factory factory)
{
    factories().insert(kind, std::move(factory));
}

QStringList SimRegistry::kinds()
{
    return factories().keys();
}

std::unique_ptr<SimEngine> SimRegistry::create(const QString& kind, const SimKnobs& knobs,
                                               QString& error)
{
    const auto factory = factories().constFind(kind);
    if (factory == factories().constEnd()) {
        error = QStringLiteral("no simulated printer of the kind \"%1\" (there are: %2)")
                    .arg(kind, kinds().join(QStringLiteral(", ")));
        return nullptr;
    }
    return (*factory)(knobs, error);
}
