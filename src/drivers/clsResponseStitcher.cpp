#include "drivers/clsResponseStitcher.h"

#include <algorithm>
#include <utility>

namespace {
const QByteArray kSeparator = QByteArrayLiteral(";;");

void WriteList(QByteArray& text, QByteArrayView key, const QList<QByteArray>& list)
{
    text += key;
    text += '{';
    text += QByteArray::number(list.size() - 1); // the upper bound of a list counted from 0
    text += '}';
    for (const QByteArray& element : list) {
        text += element;
        text += kSeparator;
    }
}

void ReadList(const QByteArray& text, QByteArrayView key, QList<QByteArray>& list)
{
    const qsizetype keyAt = text.indexOf(key);
    if (keyAt < 0)
        return;
    const qsizetype open = text.indexOf('{', keyAt + key.size());
    if (open < 0)
        return;
    const qsizetype close = text.indexOf('}', open);
    if (close < 0)
        return;
    // A damaged count can't ask for more elements than the text has separators: the rest
    // would stay empty anyway.
    const qsizetype upper = std::min<qsizetype>(text.sliced(open + 1, close - open - 1).toInt(),
                                                text.count(kSeparator));
    list = QList<QByteArray>(qMax<qsizetype>(upper + 1, 0));
    qsizetype at = close + 1;
    for (QByteArray& element : list) {
        const qsizetype end = text.indexOf(kSeparator, at);
        // Reading stands still at an empty element, so it and all behind it stay empty.
        if (end <= at)
            break;
        element = text.sliced(at, end - at);
        at = end + kSeparator.size();
    }
}

// Empty when the key is missing or holds nothing; the caller then keeps what it had.
QByteArray ReadValue(const QByteArray& text, QByteArrayView key)
{
    const qsizetype keyAt = text.indexOf(key);
    if (keyAt < 0)
        return {};
    const qsizetype start = keyAt + key.size();
    const qsizetype end = text.indexOf(kSeparator, start);
    return end > start ? text.sliced(start, end - start) : QByteArray();
}
} // namespace

clsResponseStitcher::clsResponseStitcher()
    : m_terminators{QByteArray()}
    , m_savedTerminators{QByteArray()}
{}

void clsResponseStitcher::FixedLength(qint32 length)
{
    m_fixedLength = length;
}

void clsResponseStitcher::AcceptAnything(bool flag)
{
    m_acceptAnything = flag;
}

void clsResponseStitcher::SetErrorStrings(const QList<QByteArray>& errors)
{
    m_errors = errors;
}

void clsResponseStitcher::SetTempErrorStrings(const QList<QByteArray>& errors)
{
    // A temporary set replaces an earlier one instead of stacking on it.
    ClearTempErrors();
    m_savedErrors = m_errors;
    m_errors = errors;
    m_tempErrors = true;
}

void clsResponseStitcher::ClearTempErrors()
{
    if (m_tempErrors) {
        m_errors = m_savedErrors;
        m_tempErrors = false;
    }
    m_fixedLength = -1;
}

void clsResponseStitcher::SetTerminiatingSequences(const QList<QByteArray>& terminators)
{
    m_terminators = terminators;
    m_fixedLength = -1;
}

void clsResponseStitcher::SetTempTerminiatingSequences(const QList<QByteArray>& terminators)
{
    ClearTempTerminiatingSequences();
    m_savedTerminators = m_terminators;
    m_terminators = terminators;
    m_tempTerminators = true;
}

void clsResponseStitcher::ClearTempTerminiatingSequences()
{
    if (m_tempTerminators) {
        m_terminators = m_savedTerminators;
        m_tempTerminators = false;
    }
    m_fixedLength = -1;
}

void clsResponseStitcher::SetNextResponseType(qint32 type)
{
    if (type != m_replyType)
        m_reply.clear();
}

clsResponseStitcher::StitchStatus clsResponseStitcher::StitchResponse(const QByteArray& data,
                                                                      qint32 type)
{
    // A piece for another command never joins the leftovers of an earlier one.
    SetNextResponseType(type);
    m_replyType = type;
    m_reply += data;

    StitchStatus status = m_fixedLength == -1 ? StitchIncomplete : LengthStatus();
    // A reply still short of its fixed length can end early on a terminator.
    if (status == StitchIncomplete)
        status = TerminatorStatus();
    // Only the newest fragment is searched: earlier ones had their turn when they came.
    for (const QByteArray& error : std::as_const(m_errors)) {
        if (data.contains(error)) {
            m_lastError = error;
            status = StitchError;
            break;
        }
    }
    return m_acceptAnything ? StitchComplete : status;
}

QByteArray clsResponseStitcher::GetCompleteResponse(bool clear)
{
    const QByteArray reply = m_reply;
    if (clear)
        m_reply.clear();
    return reply;
}

const QByteArray& clsResponseStitcher::LastError() const
{
    return m_lastError;
}

qsizetype clsResponseStitcher::heldBytes() const
{
    return m_reply.size();
}

QByteArray clsResponseStitcher::MakePortable() const
{
    QByteArray text;
    WriteList(text, "[1]", m_errors);
    WriteList(text, "[2]", m_terminators);
    WriteList(text, "[3]", m_savedTerminators);
    text += "[4]";
    text += m_tempTerminators ? "True" : "False";
    text += kSeparator;
    text += "[5]";
    text += m_lastError;
    text += kSeparator;
    return text;
}

void clsResponseStitcher::FromPortable(const QByteArray& text)
{
    ReadList(text, "[1]", m_errors);
    ReadList(text, "[2]", m_terminators);
    ReadList(text, "[3]", m_savedTerminators);
    if (const QByteArray flag = ReadValue(text, "[4]"); !flag.isEmpty())
        m_tempTerminators = flag == "True";
    if (const QByteArray error = ReadValue(text, "[5]"); !error.isEmpty())
        m_lastError = error;
}

clsResponseStitcher::StitchStatus clsResponseStitcher::LengthStatus() const
{
    if (m_reply.size() < m_fixedLength)
        return StitchIncomplete;
    return m_reply.size() == m_fixedLength ? StitchComplete : StitchSurplus;
}

// The first terminator in list order that occurs anywhere decides, by its last occurrence.
clsResponseStitcher::StitchStatus clsResponseStitcher::TerminatorStatus() const
{
    for (const QByteArray& terminator : m_terminators) {
        const qsizetype at = m_reply.lastIndexOf(terminator);
        if (at >= 0)
            return at + terminator.size() == m_reply.size() ? StitchComplete : StitchSurplus;
    }
    return StitchIncomplete;
}
