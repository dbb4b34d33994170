#pragma once

#include "sim/SimEngine.h"
#include "sim/SimKnobs.h"

#include <memory>

// A device that sends back every byte it gets, as it gets them: for trying out transports.
class EchoEngine : public SimEngine
{
public:
    static std::unique_ptr<SimEngine> create(const SimKnobs& knobs, QString& error);

    QList<QByteArray> receive(const QByteArray& bytes, const QDateTime& now) override;
};
