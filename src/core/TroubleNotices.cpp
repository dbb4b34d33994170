#include "core/TroubleNotices.h"

bool TroubleNotices::isTrouble(ErrorState state)
{
    return state == StateFault || state == StateNoAnswer || state == StatePortBusy;
}

TroubleNotices::Watch& TroubleNotices::follow(const QString& printerId, ErrorState state,
                                              const QDateTime& now)
{
    auto watch = m_watches.find(printerId);
    if (watch == m_watches.end() || watch->state != state)
        watch = m_watches.insert(printerId, Watch{state, now});
    return *watch;
}

void TroubleNotices::seen(const QString& printerId, ErrorState state, const QDateTime& now)
{
    Watch& watch = follow(printerId, state, now);
    ++watch.walks;
    watch.seenThisWalk = true;
}

QStringList TroubleNotices::walkEnded(const QDateTime& now)
{
    QStringList tell;
    for (auto watch = m_watches.begin(); watch != m_watches.end();) {
        if (!watch->seenThisWalk) {
            watch = m_watches.erase(watch);
            continue;
        }
        watch->seenThisWalk = false;
        if (due(*watch, now)) {
            watch->told = true;
            tell.append(watch.key());
        }
        ++watch;
    }
    tell.sort();
    return tell;
}

bool TroubleNotices::due(const Watch& watch, const QDateTime& now) const
{
    return m_settings.enabled && isTrouble(watch.state) && watch.walks > 1 && !watch.told &&
           !watch.acknowledged && watch.since.secsTo(now) >= m_settings.delaySeconds;
}

bool TroubleNotices::acknowledge(const QString& printerId, ErrorState state, const QDateTime& now)
{
    if (!isTrouble(state))
        return false;
    follow(printerId, state, now).acknowledged = true;
    return true;
}

bool TroubleNotices::acknowledged(const QString& printerId) const
{
    const auto watch = m_watches.constFind(printerId);
    return watch != m_watches.constEnd() && watch->acknowledged;
}
