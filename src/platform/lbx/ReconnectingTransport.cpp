#include "platform/lbx/ReconnectingTransport.h"

ReconnectingTransport::ReconnectingTransport(QObject* parent)
    : Transport(parent)
{
    m_retry.setSingleShot(true);
    connect(&m_retry, &QTimer::timeout, this, &ReconnectingTransport::retry);
}

void ReconnectingTransport::open()
{
    m_delay.reset();
    retry();
}

void ReconnectingTransport::retry()
{
    m_retry.stop();
    setState(State::Connecting);
    tryToConnect();
}

void ReconnectingTransport::up()
{
    m_delay.reset();
    setState(State::Connected);
}

void ReconnectingTransport::lost(const QString& problem)
{
    // An error and the disconnection that follows it are one loss, retried once.
    if (m_retry.isActive())
        return;
    release();
    setState(State::Closed, problem);
    m_retry.start(m_delay.next());
}
