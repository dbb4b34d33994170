#include "sim/CSeriesTimeline.h"

#include <algorithm>

CSeriesTimeline::CSeriesTimeline(const CSeriesSettings& settings)
    : m_settings(settings)
{}

void CSeriesTimeline::powerOn(const QDateTime& now)
{
    if (!m_poweredOn.isValid())
        m_poweredOn = now;
}

CSeriesInk CSeriesTimeline::ink(const QDateTime& now) const
{
    CSeriesInk ink{m_settings.inkStatus, m_settings.remaining};
    const qint64 sinceLow = m_poweredOn.secsTo(now) - m_settings.inkLowAfter;
    if (m_settings.inkLowAfter < 0 || sinceLow < 0)
        return ink;
    ink.remaining = int(std::max<qint64>(0, m_settings.remaining - sinceLow));
    ink.status = ink.remaining == 0 ? 3 : std::max(ink.status, 1);
    return ink;
}

std::optional<QDateTime> CSeriesTimeline::timedError(const QDateTime& now) const
{
    const qint64 since = m_poweredOn.secsTo(now) - m_settings.errorAfter;
    if (m_settings.errorAfter < 0 || since < 0 ||
        (m_settings.errorFor > 0 && since >= m_settings.errorFor))
        return std::nullopt;
    return m_poweredOn.addSecs(m_settings.errorAfter);
}
