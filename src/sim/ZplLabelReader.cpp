#include "sim/ZplLabelReader.h"

QList<QStringList> ZplLabelReader::read(const QByteArray& bytes)
{
    QList<QStringList> labels;
    qsizetype at = 0;
    while (at < bytes.size()) {
        if (m_bInCommand) {
            takeCommandByte(bytes.at(at++), labels);
            continue;
        }
        const qsizetype caret = bytes.indexOf(kCaret, at);
        const qsizetype textEnd = caret < 0 ? bytes.size() : caret;
        takeText(bytes, at, textEnd);
        at = textEnd;
        if (caret >= 0) {
            closeField();
            m_bInCommand = true;
            m_command.clear();
            ++at;
        }
    }
    return labels;
}

void ZplLabelReader::takeText(const QByteArray& bytes, qsizetype from, qsizetype to)
{
    // Outside a field, text is what other commands take as arguments: nothing to keep.
    if (m_bInField)
        m_field.append(bytes.constData() + from, std::min(to - from, room()));
}

void ZplLabelReader::takeCommandByte(char byte, QList<QStringList>& labels)
{
    // A caret where a command's name should be starts that name again.
    if (byte == kCaret) {
        m_command.clear();
        return;
    }
    m_command.append(byte);
    if (m_command.size() < kCommandLength)
        return;
    m_bInCommand = false;
    const QByteArray name = m_command.toUpper();
    if (name == "XA") {
        m_fields.clear();
        m_kept = 0;
    } else if (name == "XZ") {
        labels.append(m_fields);
        m_fields.clear();
        m_kept = 0;
    } else if (name == "FD") {
        m_bInField = true;
        m_field.clear();
    }
}

void ZplLabelReader::closeField()
{
    if (!m_bInField)
        return;
    m_bInField = false;
    if (m_kept >= kKeptLimit)
        return;
    m_kept += m_field.size() + 1;
    m_fields.append(QString::fromUtf8(m_field));
    m_field.clear();
}

qsizetype ZplLabelReader::room() const
{
    return std::max<qsizetype>(0, kKeptLimit - m_kept - 1 - m_field.size());
}
