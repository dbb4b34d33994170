#pragma once

#include <QByteArray>
#include <QDateTime>
#include <QList>
#include <optional>

struct CSeriesRequest
{
    quint8 code = 0;
    QByteArray argument;
    // Its argument grew beyond the limit without ending.
    bool bTooLong = false;
};

// Finds the commands in the bytes as they come. Nothing frames them, so each command's own
// shape tells where it ends, as it would for the printer:
//   set clock        13 bytes
//   set counts       2 bytes
//   select message   up to byte 13, or 8 bytes
//   set direction,   the digits that follow, up to 3: they end at the first byte that isn't
//   set orientation  one (which starts the next command) or where a fragment ends once a
//                    digit has come, since the handler sends the number in one piece
//   set shifts       4 times an id and "HH:MM"; an id is whatever stands before its time
//   the others       no argument
// An unknown byte comes out alone, for the printer to refuse, and the rest of its fragment is
// dropped, since nobody can tell where its arguments end. A command left unfinished for 2 seconds
// is forgotten, as the printer's input times out, and one that grows beyond 4 KiB is refused.
class CSeriesCommandReader
{
public:
    static constexpr qsizetype kLongestArgument = 4096;
    static constexpr qint64 kForgetAfterMs = 2000;

    QList<CSeriesRequest> read(const QByteArray& bytes, const QDateTime& now);

private:
    enum class Progress { More, Done, DoneBeforeLast };

    struct Pending
    {
        quint8 code = 0;
        QByteArray argument;
        // Of set shifts: the times found, and where the last one ended.
        int times = 0;
        qsizetype afterLastTime = 0;
    };

    Progress progress();
    CSeriesRequest take();

    std::optional<Pending> m_pending;
    QDateTime m_lastInput;
};
