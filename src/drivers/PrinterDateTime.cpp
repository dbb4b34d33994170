#include "drivers/PrinterDateTime.h"

#include <QLocale>
#include <QRegularExpression>

namespace PrinterDateTime {
namespace {
int fullYear(const QString& digits)
{
    const int year = digits.toInt();
    if (digits.size() > 2)
        return year;
    return year < 70 ? 2000 + year : 1900 + year;
}
} // namespace

std::optional<QDate> parseDate(const QString& text, bool monthFirst)
{
    static const QRegularExpression pattern(
        QStringLiteral("^\\s*(\\d{1,4})[/.-](\\d{1,2})[/.-](\\d{1,4})\\s*$"));
    const QRegularExpressionMatch match = pattern.match(text);
    if (!match.hasMatch())
        return std::nullopt;
    const QString first = match.captured(1);
    const int second = match.captured(2).toInt();
    if (first.size() == 4) {
        const QDate date(first.toInt(), second, match.captured(3).toInt());
        return date.isValid() ? std::optional<QDate>(date) : std::nullopt;
    }
    if (first.size() > 2)
        return std::nullopt;
    const int year = fullYear(match.captured(3));
    const QDate dayFirst(year, second, first.toInt());
    const QDate monthFirstDate(year, first.toInt(), second);
    const QDate& preferred = monthFirst ? monthFirstDate : dayFirst;
    const QDate& other = monthFirst ? dayFirst : monthFirstDate;
    if (preferred.isValid())
        return preferred;
    if (other.isValid())
        return other;
    return std::nullopt;
}

std::optional<QTime> parseTime(const QString& text)
{
    static const QRegularExpression pattern(
        QStringLiteral("^\\s*(\\d{1,2}):(\\d{2})(?::(\\d{2}))?\\s*$"));
    const QRegularExpressionMatch match = pattern.match(text);
    if (!match.hasMatch())
        return std::nullopt;
    const QTime time(match.captured(1).toInt(), match.captured(2).toInt(),
                     match.captured(3).isEmpty() ? 0 : match.captured(3).toInt());
    return time.isValid() ? std::optional<QTime>(time) : std::nullopt;
}

bool localeWritesMonthFirst()
{
    const QString format = QLocale::system().dateFormat(QLocale::ShortFormat);
    const qsizetype month = format.indexOf(QLatin1Char('M'));
    const qsizetype day = format.indexOf(QLatin1Char('d'));
    return month >= 0 && day >= 0 && month < day;
}
} // namespace PrinterDateTime
