#pragma once

#include <QList>
#include <QString>

// Takes a delimited text apart and builds one up. Note the two ways of splitting:
// GetNext and GetAt search for the separator without regard to case, while the token
// count compares exactly and counts overlapping separators; callers rely on both.
class clsTokenParser
{
public:
    clsTokenParser() = default;
    clsTokenParser(const QString& text, const QString& separator) { Create(text, separator); }

    void Create(const QString& text, const QString& separator);
    const QString& GetString() const { return m_sText; }

    // The next token from the current position; false when there is none.
    bool GetNext(QString& token);
    // Token number `index`, from 1; the next GetNext goes on after it.
    bool GetAt(qint32 index, QString& token);
    qint32 GetNumTokens();
    void AppendToken(const QString& token);
    void InsertAt(qint32 index, const QString& token);
    void ReplaceToken(qint32 index, const QString& token);
    // The number of the first token equal to `token`, with case; 0 when absent.
    qint32 Find(const QString& token);

private:
    void textChanged() { m_lTokenCount = -1; }

    QString m_sText;
    QString m_sSeparator;
    qsizetype m_nPosition = 1;
    qint32 m_lTokenCount = -1;
    QList<qsizetype> m_alTokenStarts{1};
};
