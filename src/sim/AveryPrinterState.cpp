#include "sim/AveryPrinterState.h"

#include <algorithm>

AveryPrinterState::AveryPrinterState(const AverySettings& settings)
    : m_format(settings.format)
    , m_bPrinting(settings.bPrinting)
    , m_labels(settings.labels)
{}

void AveryPrinterState::powerOn(const QDateTime& now)
{
    m_since = now;
}

void AveryPrinterState::start(const QDateTime& now)
{
    m_format = 1;
    // Started again while it prints, it goes on counting as before.
    if (m_bPrinting)
        return;
    m_bPrinting = true;
    m_since = now;
}

void AveryPrinterState::stop(const QDateTime& now)
{
    m_labels = labels(now);
    m_bPrinting = false;
    m_format = 0;
}

void AveryPrinterState::clear()
{
    m_labels = 0;
    m_bPrinting = false;
    m_format = 0;
}

qint64 AveryPrinterState::labels(const QDateTime& now) const
{
    if (!m_bPrinting)
        return m_labels;
    // A host clock set back prints nothing back.
    const qint64 printed = std::max<qint64>(0, m_since.secsTo(now));
    return std::max<qint64>(0, m_labels - printed);
}
