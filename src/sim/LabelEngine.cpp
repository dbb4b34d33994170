#include "sim/LabelEngine.h"

std::unique_ptr<SimEngine> LabelEngine::create(const SimKnobs&, QString&)
{
    return std::make_unique<LabelEngine>();
}

QList<QByteArray> LabelEngine::receive(const QByteArray& bytes, const QDateTime&)
{
    m_printed.read(bytes);
    return {};
}
