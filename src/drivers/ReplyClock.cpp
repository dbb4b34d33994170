#include "drivers/ReplyClock.h"

#include "core/PresentTime.h"
#include "services/MessageCatalogue.h"

namespace {
constexpr qint32 MsgTimedOut = 9;
}

void ReplyClock::start()
{
    m_bRunning = true;
    m_dtLastSend = PresentTime();
}

void ReplyClock::dataArrived()
{
    m_bRunning = false;
    m_bTimedOut = false;
}

bool ReplyClock::expire(qint16 seconds, qint32 stage)
{
    if (!m_bRunning || m_dtLastSend.secsTo(PresentTime()) < seconds)
        return false;
    m_bRunning = false;
    markLost(stage);
    return true;
}

void ReplyClock::markLost(qint32 stage)
{
    m_bTimedOut = true;
    m_nLostStage = stage;
    m_dtLostSend = m_dtLastSend;
}

QString ReplyClock::timeoutMessage() const
{
    if (!m_bTimedOut)
        return {};
    const QString stage = m_nLostStage == NoStage ? QString() : QString::number(m_nLostStage);
    return FormatMessage(MsgTimedOut, {stage, m_dtLostSend.toString(QStringLiteral("HH:mm:ss"))});
}
