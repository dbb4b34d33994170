#include "services/clsTokenParser.h"

void clsTokenParser::Create(const QString& text, const QString& separator)
{
    m_sText = text;
    m_sSeparator = separator;
    m_nPosition = 1;
    textChanged();
}

bool clsTokenParser::GetNext(QString& token)
{
    if (m_sText.isEmpty() || m_sSeparator.isEmpty())
        return false;
    const qsizetype found =
        m_nPosition > m_sText.size()
            ? -1
            : m_sText.indexOf(m_sSeparator, m_nPosition - 1, Qt::CaseInsensitive);
    if (found >= 0) {
        token = m_sText.mid(m_nPosition - 1, found - (m_nPosition - 1));
        m_nPosition = found + 1 + m_sSeparator.size();
        return true;
    }
    if (m_nPosition <= m_sText.size()) {
        token = m_sText.mid(m_nPosition - 1);
        m_nPosition = m_sText.size() + 1;
        return true;
    }
    return false;
}

bool clsTokenParser::GetAt(qint32 index, QString& token)
{
    if (index < 1 || index > GetNumTokens())
        return false;
    m_nPosition = m_alTokenStarts.at(index - 1);
    return GetNext(token);
}

qint32 clsTokenParser::GetNumTokens()
{
    if (m_lTokenCount >= 0)
        return m_lTokenCount;
    qint32 count = 0;
    m_alTokenStarts = {1};
    const qsizetype width = m_sSeparator.size();
    for (qsizetype i = 0; i < m_sText.size(); ++i) {
        if (QStringView(m_sText).mid(i, width) == m_sSeparator) {
            ++count;
            m_alTokenStarts.append(i + 1 + width);
        }
    }
    if (!m_sText.isEmpty())
        ++count;
    m_lTokenCount = count;
    return count;
}

void clsTokenParser::AppendToken(const QString& token)
{
    if (m_sText.isEmpty())
        m_sText = token;
    else
        m_sText += m_sSeparator + token;
    textChanged();
}

void clsTokenParser::InsertAt(qint32 index, const QString& token)
{
    const qint32 count = GetNumTokens();
    if (index > count) {
        for (qint32 blank = count + 1; blank < index; ++blank)
            AppendToken(QStringLiteral(" "));
        AppendToken(token);
        return;
    }
    const qsizetype start = m_alTokenStarts.at(qMax(index, 1) - 1);
    m_sText.insert(start - 1, token + m_sSeparator);
    textChanged();
}

void clsTokenParser::ReplaceToken(qint32 index, const QString& token)
{
    const qint32 count = GetNumTokens();
    if (index > count) {
        InsertAt(index, token);
        return;
    }
    clsTokenParser copy(m_sText, m_sSeparator);
    Create(QString(), m_sSeparator);
    for (qint32 i = 1; i <= count; ++i) {
        QString existing;
        copy.GetAt(i, existing);
        AppendToken(i == index ? token : existing);
    }
}

qint32 clsTokenParser::Find(const QString& token)
{
    m_nPosition = 1;
    QString candidate;
    for (qint32 number = 1; GetNext(candidate); ++number) {
        if (candidate == token)
            return number;
    }
    return 0;
}
