#include "sim/SimOutputLimit.h"

void SimOutputLimit::add(const QByteArray& reply)
{
    if (reply.isEmpty())
        return;
    m_size += reply.size();
    if (m_size <= kCapacity)
        m_replies.append(reply);
}
