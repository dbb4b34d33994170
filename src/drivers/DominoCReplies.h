#pragma once

#include <QByteArray>
#include <QDateTime>
#include <QStringList>
#include <array>

// What a C-series coder has told of itself, reply by reply. Lists keep position 0 empty, so
// that names stand at positions 1 upwards.
struct DominoCValues
{
    struct Head
    {
        qint32 first = 0;
        qint32 second = 0;
    };
    static constexpr int Heads = 6;
    static constexpr int LogSlots = 9;

    // The printer's clock, kept as its two parts: the report gives them apart, and a local
    // date and time would cost a time-zone lookup at each report.
    QDate date;
    QTime time{0, 0};
    qint32 language = 0;
    qint32 shaftEncoder = 0;
    qint32 photocell = 0;
    qint32 fpga = 0;
    qint32 inkStatus = 0;
    qint32 printsRemaining = 0;
    qint32 drivespace = 0;
    std::array<Head, Heads> heads;
    QString versionFirst;
    QString versionSecond;
    QString appVersion;
    QString firmwareVersion;

    qint32 dpi = 0;
    qint32 delay = 0;
    qint32 raster = 0;
    qint32 packedFirst = 0;
    qint32 packedSecond = 0;
    qint32 printDirection = 0;
    qint32 printOrientation = 0;

    QString currentFile;
    qint32 printCount = 0;
    QStringList fileList{QString()};
    QStringList rawFileList{QString()};
    QStringList logoList{QString()};

    // Newest first.
    std::array<QString, LogSlots> errorLog;
    qint32 errorLogCount = 0;
};

// The replies of a C-series coder, read into DominoCValues. Values are stored as they are
// found; a number that doesn't convert raises VigilError (type mismatch) and leaves what was
// stored before it.
namespace DominoCReplies {
// How complete a status report or set-up list was.
enum Judgement { NothingFound = 0, SomeMissing = 2, Whole = 3, WholeWithRest = 4 };
// How an error log fared.
enum LogOutcome { LogStored, LogFailed = 1, LogIncomplete = 2 };

Judgement parseStatusReport(const QByteArray& reply, DominoCValues& values, bool monthFirst);
Judgement parseSetupList(const QByteArray& reply, DominoCValues& values);
LogOutcome parseErrorLog(const QByteArray& reply, DominoCValues& values, bool monthFirst);
// Names separated by Cr, at positions 1 upwards; an empty name keeps its position.
QStringList parseNames(const QByteArray& reply);
// The name with its first byte's top bit masked off, and a trailing Cr dropped.
QString cleanName(const QByteArray& name);
// A count is exactly two bytes, low byte first; any other reply leaves it alone.
bool parsePrintCount(const QByteArray& reply, qint32& count);
} // namespace DominoCReplies
