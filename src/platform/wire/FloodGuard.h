#pragma once

#include <QByteArray>

// Caps what one printer may send: a printer that floods (megabytes without end) has the
// bytes beyond the cap of each second dropped, so that nothing downstream grows without
// bound. A flood is reported once, when it begins.
class FloodGuard
{
public:
    static constexpr qint64 BytesPerSecond = 1 << 20;
    static constexpr qint64 WindowMs = 1000;

    // The part of the bytes arriving at `nowMs` (of a steady clock) that may pass; sets
    // `floodBegan` when this call starts a flood.
    QByteArray admit(const QByteArray& bytes, qint64 nowMs, bool& floodBegan);

private:
    qint64 m_windowStart = 0;
    qint64 m_bytesInWindow = 0;
    bool m_bFlooding = false;
};
