#include "drivers/DominoCReplies.h"

#include "drivers/DominoCCommands.h"
#include "drivers/PrinterDateTime.h"
#include "services/Conversions.h"

namespace DominoCReplies {
namespace {
// Cuts the field of `key` out of the working copy and gives its value: from behind the last
// occurrence of the key to the next Cr, or to one byte short of the end without one.
// False when the key isn't there; the value stays as it was when the key ends the copy.
bool takeField(QByteArray& working, QByteArrayView key, QByteArray& value)
{
    const qsizetype at = working.lastIndexOf(key);
    if (at < 0)
        return false;
    qsizetype end = working.indexOf(DominoC::Cr, at);
    if (end < 0)
        end = working.size() - 1;
    const qsizetype start = at + key.size();
    if (start <= end)
        value = working.mid(start, end - start);
    working.remove(at, end - at + 1);
    return true;
}

qint32 number(const QByteArray& text)
{
    // Plain digits are what printers send; anything else is read as the run-time reads it.
    bool ok = false;
    const qint32 value = text.toInt(&ok);
    return ok ? value : ToLong(QString::fromLatin1(text));
}

// A number that may be unreadable without failing the reply.
std::optional<qint32> lenientNumber(const QByteArray& text)
{
    bool ok = false;
    const qint32 value = text.trimmed().toInt(&ok);
    return ok ? std::optional<qint32>(value) : std::nullopt;
}

Judgement judge(int tried, int missing, bool restLeft)
{
    if (missing == tried)
        return NothingFound;
    if (missing > 0)
        return SomeMissing;
    return restLeft ? WholeWithRest : Whole;
}

// Ink status: the first digit the state, the rest the prints remaining.
void storeInkStatus(const QByteArray& text, DominoCValues& values)
{
    if (const auto state = lenientNumber(text.left(1)))
        values.inkStatus = *state;
    if (const auto remaining = lenientNumber(text.mid(1)))
        values.printsRemaining = *remaining;
}

void storeHead(const QByteArray& text, DominoCValues::Head& head)
{
    const QByteArray padded = text.rightJustified(3, '0');
    head.first = lenientNumber(padded.left(1)).value_or(0);
    head.second = lenientNumber(padded.right(2)).value_or(0);
}

std::optional<QDateTime> lineDateTime(const QByteArray& line, bool monthFirst)
{
    const QList<QByteArray> words = line.simplified().split(' ');
    if (words.size() < 2)
        return std::nullopt;
    const auto date =
        PrinterDateTime::parseDate(QString::fromLatin1(words.at(words.size() - 2)), monthFirst);
    const auto time = PrinterDateTime::parseTime(QString::fromLatin1(words.last()));
    if (!date || !time)
        return std::nullopt;
    return QDateTime(*date, *time);
}
} // namespace

Judgement parseStatusReport(const QByteArray& reply, DominoCValues& values, bool monthFirst)
{
    QByteArray working = reply;
    QByteArray value;
    int tried = 0;
    int missing = 0;
    // Each field, in order; a key not found counts as missing.
    const auto field = [&](QByteArrayView key) {
        ++tried;
        value.clear();
        const bool found = takeField(working, key, value);
        missing += found ? 0 : 1;
        return found;
    };

    if (field("Date : ") && value.size() > 1)
        if (const auto date = PrinterDateTime::parseDate(QString::fromLatin1(value), monthFirst))
            values.date = *date;
    if (field("Time : "))
        if (const auto time = PrinterDateTime::parseTime(QString::fromLatin1(value)))
            values.time = *time;
    if (field("Language : "))
        values.language = number(value);
    if (field("Shaft encoder : "))
        values.shaftEncoder = number(value);
    if (field("Photocell : "))
        values.photocell = number(value);
    if (field("Fpga status : "))
        values.fpga = number(value);
    if (field("Ink status : "))
        storeInkStatus(value, values);
    if (field("Available drivespace : "))
        values.drivespace = number(value);
    static const QByteArray headKeys[DominoCValues::Heads] = {
        "Head 1 : ", "Head 2 : ", "Head 3 : ", "Head 4 : ", "Head 5 : ", "Head 6 : "};
    for (int head = 0; head < DominoCValues::Heads; ++head)
        if (field(headKeys[head]))
            storeHead(value, values.heads[size_t(head)]);
    if (field("Merlin version : ")) {
        values.versionFirst = QString::fromLatin1(value.left(1));
        values.versionSecond = QString::fromLatin1(value.right(3));
    }
    if (field("Apprentice version : "))
        values.appVersion = QString::fromLatin1(value);
    if (field("FPGA version : = "))
        values.firmwareVersion = QString::fromLatin1(value);
    const char terminator = DominoC::Terminator;
    field(QByteArrayView(&terminator, 1));
    return judge(tried, missing, !working.isEmpty());
}

Judgement parseSetupList(const QByteArray& reply, DominoCValues& values)
{
    const qsizetype end = reply.indexOf(DominoC::Terminator);
    QList<QByteArray> tokens = reply.left(end < 0 ? reply.size() : end).split(',');
    // Token 8 of five characters packs the four values of tokens 8 to 11.
    if (tokens.size() >= 8 && tokens.at(7).size() == 5) {
        const QByteArray packed = tokens.takeAt(7);
        tokens.insert(7, packed.mid(4, 1));
        tokens.insert(7, packed.mid(3, 1));
        tokens.insert(7, packed.mid(1, 2));
        tokens.insert(7, packed.left(1));
    }
    const std::pair<int, qint32*> read[] = {
        {4, &values.dpi},
        {5, &values.delay},
        {7, &values.raster},
        {8, &values.packedFirst},
        {9, &values.packedSecond},
        {10, &values.printDirection},
        {11, &values.printOrientation},
    };
    int missing = 0;
    for (const auto& [token, target] : read) {
        if (token > tokens.size())
            ++missing;
        else
            *target = number(tokens.at(token - 1));
    }
    if (end < 0)
        ++missing;
    return judge(int(std::size(read)) + 1, missing, false);
}

LogOutcome parseErrorLog(const QByteArray& reply, DominoCValues& values, bool monthFirst)
{
    if (reply.startsWith(DominoC::Nak)) {
        values.errorLogCount = 0;
        return LogStored;
    }
    if (reply.size() < 2)
        return LogIncomplete;
    QList<QByteArray> lines;
    for (const QByteArray& line : reply.split(DominoC::Lf)) {
        if (line.startsWith(DominoC::Terminator))
            break;
        lines.append(line);
    }
    // Dates rise along the lines until the log wraps and they fall back to older ones. Only
    // the dates that find the wrap are read: the first line's, and from the second line up to
    // the wrap when there are three lines or more.
    if (lines.isEmpty()) {
        values.errorLogCount = 0;
        return LogStored;
    }
    const auto first = lineDateTime(lines.first(), monthFirst);
    if (!first)
        return LogFailed;
    qsizetype wrap = 0;
    for (qsizetype line = 1; lines.size() >= 3 && line < lines.size(); ++line) {
        const auto stamp = lineDateTime(lines.at(line), monthFirst);
        if (!stamp)
            return LogFailed;
        if (*stamp < *first) {
            wrap = line;
            break;
        }
    }
    QList<qsizetype> newestFirst;
    for (qsizetype line = wrap - 1; line >= 0; --line)
        newestFirst.append(line);
    for (qsizetype line = lines.size() - 1; line >= wrap; --line)
        newestFirst.append(line);
    for (qsizetype slot = 0; slot < newestFirst.size(); ++slot) {
        if (slot >= DominoCValues::LogSlots)
            return LogFailed;
        values.errorLog[size_t(slot)] = QString::fromLatin1(lines.at(newestFirst.at(slot)));
    }
    values.errorLogCount = qint32(newestFirst.size());
    return LogStored;
}

QStringList parseNames(const QByteArray& reply)
{
    QStringList names{QString()};
    for (const QByteArray& name : reply.split(DominoC::Cr))
        names.append(QString::fromLatin1(name));
    return names;
}

QString cleanName(const QByteArray& name)
{
    QByteArray clean = name;
    if (!clean.isEmpty())
        clean[0] = char(clean.at(0) & 0x7F);
    if (clean.endsWith(DominoC::Cr))
        clean.chop(1);
    return QString::fromLatin1(clean);
}

bool parsePrintCount(const QByteArray& reply, qint32& count)
{
    if (reply.size() != 2)
        return false;
    count = quint8(reply.at(0)) + 256 * quint8(reply.at(1));
    return true;
}
} // namespace DominoCReplies
