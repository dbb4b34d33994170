#include "platform/wire/Transport.h"

void Transport::setState(State state, const QString& problem)
{
    if (m_state == state && m_problem == problem)
        return;
    m_state = state;
    m_problem = problem;
    emit stateChanged(state);
}

void Transport::reportError(WireError error, const QString& text)
{
    m_error = error;
    emit errorOccurred(error, text);
}
