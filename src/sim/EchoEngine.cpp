#include "sim/EchoEngine.h"

std::unique_ptr<SimEngine> EchoEngine::create(const SimKnobs&, QString&)
{
    return std::make_unique<EchoEngine>();
}

QList<QByteArray> EchoEngine::receive(const QByteArray& bytes, const QDateTime&)
{
    return {bytes};
}
