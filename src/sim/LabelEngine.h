#pragma once

#include "sim/PrintedLabels.h"
#include "sim/SimEngine.h"
#include "sim/SimKnobs.h"

#include <memory>

// A label printer on a raw port, fed ZPL: it answers nothing, and keeps what it has printed.
// No knobs of its own.
class LabelEngine : public SimEngine
{
public:
    static std::unique_ptr<SimEngine> create(const SimKnobs& knobs, QString& error);

    QList<QByteArray> receive(const QByteArray& bytes, const QDateTime& now) override;
    QStringList takeNotices() override { return m_printed.takeNotices(); }

    const PrintedLabels& printed() const { return m_printed; }

private:
    PrintedLabels m_printed;
};
