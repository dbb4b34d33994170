#include "platform/lbx/Transport.h"

void Transport::setState(State state, const QString& problem)
{
    if (m_state == state && m_problem == problem)
        return;
    m_state = state;
    m_problem = problem;
    emit stateChanged(state);
}
