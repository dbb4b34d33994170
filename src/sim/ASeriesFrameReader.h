#pragma once

#include <QByteArray>
#include <QDateTime>
#include <QList>
#include <optional>

struct ASeriesRequest
{
    quint8 id = 0;
    int type = 0;
    QByteArray data;
};

// Finds the request frames in the bytes as they come, in fragments of any size:
// - What stands in front of a frame's beginning (02 00 00 00 00, then a length of 2 to 1023)
//   is noise and is dropped.
// - A frame whose checksum is wrong is ignored, unanswered. The search goes on from the byte
//   behind its start byte, not behind its end: a garbled length must not swallow the good
//   frames that follow.
// - A frame left unfinished for 2 seconds is forgotten, as the printer's input times out.
// Between reads it holds at most one unfinished frame, so never as much as 4 KiB.
class ASeriesFrameReader
{
public:
    static constexpr qint64 kForgetAfterMs = 2000;

    QList<ASeriesRequest> read(const QByteArray& bytes, const QDateTime& now);
    qsizetype buffered() const { return m_buffer.size(); }

private:
    // How long the frame beginning at `at` is, as far as the bytes so far tell (at least its
    // header while its length hasn't come); none if they aren't a frame's beginning.
    std::optional<qsizetype> frameSizeAt(qsizetype at) const;
    bool checksumFits(qsizetype at, qsizetype size) const;
    ASeriesRequest requestAt(qsizetype at, qsizetype size) const;

    QByteArray m_buffer;
    QDateTime m_lastInput;
};
