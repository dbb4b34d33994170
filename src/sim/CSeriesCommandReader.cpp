#include "sim/CSeriesCommandReader.h"

#include "sim/CSeriesArguments.h"
#include "sim/CSeriesCommand.h"

namespace {
bool isNumberCommand(quint8 code)
{
    return code == CSeriesCommand::SetDirection || code == CSeriesCommand::SetOrientation;
}
} // namespace

QList<CSeriesRequest> CSeriesCommandReader::read(const QByteArray& bytes, const QDateTime& now)
{
    if (m_pending && m_lastInput.msecsTo(now) > kForgetAfterMs)
        m_pending.reset();
    m_lastInput = now;

    QList<CSeriesRequest> requests;
    for (qsizetype at = 0; at < bytes.size(); ++at) {
        const auto byte = quint8(bytes.at(at));
        if (m_pending) {
            m_pending->argument.append(char(byte));
        } else if (CSeriesCommand::isKnown(byte)) {
            m_pending = Pending{byte, {}};
        } else {
            requests.append({byte, {}, false});
            return requests;
        }
        switch (progress()) {
        case Progress::More:
            if (m_pending->argument.size() >= kLongestArgument) {
                requests.append({m_pending->code, {}, true});
                m_pending.reset();
            }
            break;
        case Progress::Done:
            requests.append(take());
            break;
        case Progress::DoneBeforeLast:
            m_pending->argument.chop(1);
            requests.append(take());
            --at;
            break;
        }
    }
    if (m_pending && isNumberCommand(m_pending->code) && !m_pending->argument.isEmpty())
        requests.append(take());
    return requests;
}

CSeriesCommandReader::Progress CSeriesCommandReader::progress()
{
    using namespace CSeriesArguments;
    const QByteArray& argument = m_pending->argument;
    switch (m_pending->code) {
    case CSeriesCommand::SetClock:
        return argument.size() == kClockLength ? Progress::Done : Progress::More;
    case CSeriesCommand::SetCounts:
        return argument.size() == kCountsLength ? Progress::Done : Progress::More;
    case CSeriesCommand::SelectMessage:
        return argument.endsWith(CSeriesCommand::Return) || argument.size() == kLongestName
                   ? Progress::Done
                   : Progress::More;
    case CSeriesCommand::SetDirection:
    case CSeriesCommand::SetOrientation:
        if (!argument.isEmpty() && !isDigit(argument.back()))
            return Progress::DoneBeforeLast;
        return argument.size() == kLongestDigits ? Progress::Done : Progress::More;
    case CSeriesCommand::SetShifts: {
        // Times don't overlap: the next one starts behind the last.
        const qsizetype start = argument.size() - kTimeLength;
        if (start >= m_pending->afterLastTime && isTimeAt(argument, start)) {
            ++m_pending->times;
            m_pending->afterLastTime = argument.size();
        }
        return m_pending->times == kShifts ? Progress::Done : Progress::More;
    }
    default:
        return Progress::Done;
    }
}

CSeriesRequest CSeriesCommandReader::take()
{
    CSeriesRequest request{m_pending->code, m_pending->argument, false};
    m_pending.reset();
    return request;
}
