#pragma once

#include "sim/AveryCommandReader.h"
#include "sim/AveryPrinterState.h"
#include "sim/AverySettings.h"
#include "sim/PrintedLabels.h"
#include "sim/SimEngine.h"
#include "sim/SimKnobs.h"
#include "sim/SimUptime.h"

#include <memory>

// An Avery label printer: answers the status request with its status frame, and takes start,
// stop and clear, which nobody answers. While it prints, its labels to print run down by one
// a second. The labels a job sends it in ZPL are kept as a label printer keeps them. Knobs (all optional):
//   model=LETTER (H: the long frame)  code=TEXT  flag=BOOL  format=0..9  labels=N  free=N
//   version=TEXT  printing=BOOL
//   badmarker=BOOL (a marker letter wrong)  nondigit=BOOL (letters in the labels to print)
class AveryEngine : public SimEngine
{
public:
    static std::unique_ptr<SimEngine> create(const SimKnobs& knobs, QString& error);

    explicit AveryEngine(const AverySettings& settings);

    QList<QByteArray> receive(const QByteArray& bytes, const QDateTime& now) override;
    QStringList takeNotices() override { return m_printed.takeNotices(); }

    const PrintedLabels& printed() const { return m_printed; }

private:
    const AverySettings m_settings;
    SimUptime m_uptime;
    AveryPrinterState m_state;
    AveryCommandReader m_reader;
    PrintedLabels m_printed;
};
