#include "core/PollingNote.h"

void PollingNote::follow(bool pollingOff, const QDateTime& now)
{
    if (!pollingOff)
        m_offSince = QDateTime();
    else if (!m_offSince.isValid())
        m_offSince = now;
}

QString PollingNote::text(const QDateTime& now) const
{
    if (!m_offSince.isValid())
        return {};
    const QString format = m_offSince.date() == now.date() ? QStringLiteral("HH:mm")
                                                           : QStringLiteral("d MMM yyyy HH:mm");
    return QStringLiteral("Polling off since %1").arg(m_offSince.toString(format));
}
