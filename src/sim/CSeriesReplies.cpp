#include "sim/CSeriesReplies.h"

#include "sim/CSeriesCommand.h"
#include "sim/CSeriesErrorLog.h"

#include <utility>

namespace {
const QByteArray kLetters = QByteArrayLiteral("abc");

QByteArray twoDigits(int number)
{
    return QByteArray::number(number).rightJustified(2, '0');
}

QByteArray timeText(const QTime& time)
{
    return twoDigits(time.hour()) + ':' + twoDigits(time.minute()) + ':' + twoDigits(time.second());
}

QByteArray nameList(const QList<QByteArray>& names)
{
    if (names.isEmpty())
        return QByteArray(1, CSeriesCommand::Return);
    QByteArray list;
    for (const QByteArray& name : names)
        list += name + CSeriesCommand::Return;
    return list;
}
} // namespace

CSeriesReplies::CSeriesReplies(const CSeriesSettings& settings, const CSeriesPrinterState& state,
                               const CSeriesTimeline& timeline)
    : m_settings(settings)
    , m_state(state)
    , m_timeline(timeline)
{}

QByteArray CSeriesReplies::status(const QDateTime& now, bool bGarbled) const
{
    const QDateTime clock = m_state.clockAt(now);
    const CSeriesInk ink = m_timeline.ink(now);
    QList<std::pair<QByteArray, QByteArray>> fields{
        {"Date : ", dateText(clock.date())},
        {"Time : ", timeText(clock.time())},
        {"Language : ", bGarbled ? kLetters : QByteArray("1")},
        {"Shaft encoder : ", "0"},
        {"Photocell : ", "0"},
        {"Fpga status : ", "0"},
        {"Ink status : ", QByteArray::number(ink.status) + QByteArray::number(ink.remaining)},
        {"Available drivespace : ", "2048"},
    };
    // One type digit and two of a number, told apart from head to head.
    for (int head = 1; head <= m_settings.heads; ++head)
        fields.append({"Head " + QByteArray::number(head) + " : ", "1" + twoDigits(11 * head)});
    fields.append({"Merlin version : ", m_settings.version});
    fields.append({"Apprentice version : ", m_settings.app});
    fields.append({"FPGA version : = ", m_settings.fpga});

    QByteArray reply;
    for (const auto& [key, value] : fields)
        reply += key + value + CSeriesCommand::Return;
    return reply + CSeriesCommand::End;
}

QByteArray CSeriesReplies::setup(bool bGarbled) const
{
    QList<QByteArray> tokens{"1",   "0", "0", bGarbled ? kLetters : QByteArray("150"),
                             "100", "0", "16"};
    const QByteArray direction = QByteArray::number(m_state.direction);
    const QByteArray orientation = QByteArray::number(m_state.orientation);
    // Packed, tokens 8 to 11 are one token of five digits: 1, 07, direction, orientation.
    if (m_settings.bPacked)
        tokens.append("107" + direction + orientation);
    else
        tokens += QList<QByteArray>{"1", "7", direction, orientation};
    return tokens.join(',') + CSeriesCommand::End;
}

QByteArray CSeriesReplies::errorLog(const QDateTime& now, bool bGarbled) const
{
    const QList<CSeriesLogEntry> lines = CSeriesErrorLog::lines(
        m_settings.errors, m_settings.wrap, m_timeline.poweredOn(), m_timeline.timedError(now));
    if (lines.isEmpty())
        return QByteArray(1, CSeriesCommand::Nak);
    QByteArray reply;
    for (const CSeriesLogEntry& line : lines) {
        const QDateTime at = m_state.clockAt(line.at);
        const QByteArray date = bGarbled && reply.isEmpty() ? kLetters : dateText(at.date());
        reply += line.text + ' ' + date + ' ' + timeText(at.time()) + CSeriesCommand::LineFeed;
    }
    return reply + CSeriesCommand::End;
}

QByteArray CSeriesReplies::logoList() const
{
    return nameList(m_settings.logos);
}

QByteArray CSeriesReplies::fileList() const
{
    QList<QByteArray> names;
    for (const QByteArray& name : m_settings.files)
        names.append(asSent(name));
    return nameList(names);
}

QByteArray CSeriesReplies::currentFile() const
{
    return asSent(m_state.currentFile) + CSeriesCommand::Return;
}

QByteArray CSeriesReplies::printCount() const
{
    QByteArray count(2, '\0');
    count[0] = char(m_state.printCount & 0xFF);
    count[1] = char(m_state.printCount >> 8);
    return count;
}

QByteArray CSeriesReplies::dateText(const QDate& date) const
{
    const QByteArray day = twoDigits(date.day());
    const QByteArray month = twoDigits(date.month());
    const char separator = m_settings.dateSeparator;
    return (m_settings.bMonthFirst ? month + separator + day : day + separator + month) +
           separator + QByteArray::number(date.year()).rightJustified(4, '0');
}

QByteArray CSeriesReplies::asSent(const QByteArray& name) const
{
    QByteArray sent = name;
    if (m_settings.bHighBit && !sent.isEmpty())
        sent[0] = char(sent.at(0) | 0x80);
    return sent;
}
