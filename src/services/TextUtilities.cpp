#include "services/TextUtilities.h"

#include "services/Conversions.h"
#include "services/VigilError.h"

#include <QStringList>

namespace {
constexpr QChar Separator = QLatin1Char('/');

QString trimmedOf(const QString& text, const QString& characters)
{
    qsizetype start = 0;
    qsizetype end = text.size();
    while (start < end && characters.contains(text.at(start)))
        ++start;
    while (end > start && characters.contains(text.at(end - 1)))
        --end;
    return text.mid(start, end - start);
}
} // namespace

QString GetFileName(const QString& path)
{
    return path.mid(path.lastIndexOf(Separator) + 1);
}

QString GetSafePath(const QString& path)
{
    if (path.isEmpty() || path.endsWith(Separator))
        return path;
    return path + Separator;
}

void ReplaceTokens(QString& text, const QString& find, const QString& with)
{
    if (find.isEmpty())
        return;
    for (qsizetype at = text.indexOf(find, 0, Qt::CaseInsensitive); at >= 0;
         at = text.indexOf(find, at + with.size(), Qt::CaseInsensitive))
        text.replace(at, find.size(), with);
}

QString PadLeft(const QString& text, const QString& pad, qint16 width)
{
    const qsizetype missing = width - text.size();
    return missing > 0 ? pad.repeated(missing) + text : text;
}

QString MidRange(const QString& text, qint32 first, qint32 last, bool inclusive)
{
    const qint32 length = last - first + (inclusive ? 1 : 0);
    if (first < 1 || length <= 0)
        return {};
    return text.mid(first - 1, length);
}

QString TrimCrLf(const QString& text)
{
    return trimmedOf(text, QStringLiteral("\r\n"));
}

QString TrimNul(const QString& text)
{
    return trimmedOf(text, QString(QChar(0)));
}

QString TrimControl(const QString& text)
{
    QString current = text;
    for (QString next = TrimNul(TrimCrLf(current)); next != current;
         next = TrimNul(TrimCrLf(current)))
        current = next;
    return current;
}

QString FindFormatName(const QString& statusText)
{
    static const QString Key = QStringLiteral("FMT=");
    qsizetype start = 0;
    for (qsizetype end = statusText.indexOf(QLatin1Char('\n')); end >= 0;
         start = end + 1, end = statusText.indexOf(QLatin1Char('\n'), start)) {
        const QStringView line = QStringView(statusText).mid(start, end - start);
        if (line.startsWith(Key) && line.size() > Key.size())
            return line.mid(Key.size()).toString();
    }
    return {};
}

bool ParseDottedQuad(const QString& text, std::array<qint32, 4>& parts)
{
    const QStringList fields = text.split(QLatin1Char('.'));
    for (qsizetype i = 0; i < 4; ++i) {
        if (i >= fields.size())
            return false;
        const QString field = fields.at(i).trimmed();
        if (!IsNumeric(field))
            return false;
        try {
            parts[size_t(i)] = ToLong(field);
        } catch (const VigilError&) {
            return false;
        }
    }
    return true;
}

bool IsGroupId(const QString& id)
{
    return id.startsWith(QLatin1String("GP"));
}

bool IsPrinterId(const QString& id)
{
    return id.startsWith(QLatin1String("ID"));
}
