#include "platform/wire/FloodGuard.h"

#include <algorithm>

QByteArray FloodGuard::admit(const QByteArray& bytes, qint64 nowMs, bool& floodBegan)
{
    floodBegan = false;
    if (nowMs - m_windowStart >= WindowMs) {
        // A whole second under the cap ends a flood: the second just gone, or a quiet one
        // since. Without the second, a printer that floods again after a pause, with nothing
        // in between, would never be reported again.
        if (m_bytesInWindow <= BytesPerSecond || nowMs - m_windowStart >= 2 * WindowMs)
            m_bFlooding = false;
        m_windowStart = nowMs;
        m_bytesInWindow = 0;
    }
    const qint64 room = std::max<qint64>(0, BytesPerSecond - m_bytesInWindow);
    m_bytesInWindow += bytes.size();
    if (bytes.size() <= room)
        return bytes;
    floodBegan = !m_bFlooding;
    m_bFlooding = true;
    return bytes.left(room);
}
