#include "drivers/PrinterDateTime.h"

#include <QLocale>

namespace PrinterDateTime {
namespace {
// The runs of 1 to 4 digits between single separators, blanks around the whole allowed; empty
// when the text is anything else.
QStringList numberFields(const QString& text, const QString& separators, int least)
{
    const QString trimmed = text.trimmed();
    QStringList fields{QString()};
    for (const QChar c : trimmed) {
        if (c.isDigit() && c.unicode() < 128) {
            if (fields.last().size() == 4)
                return {};
            fields.last().append(c);
        } else if (separators.contains(c) && !fields.last().isEmpty()) {
            fields.append(QString());
        } else {
            return {};
        }
    }
    if (fields.last().isEmpty() || fields.size() < least)
        return {};
    return fields;
}

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
    const QStringList parts = numberFields(text, QStringLiteral("/.-"), 3);
    if (parts.size() != 3 || parts.at(1).size() > 2)
        return std::nullopt;
    const QString& first = parts.at(0);
    const int second = parts.at(1).toInt();
    if (first.size() == 4) {
        const QDate date(first.toInt(), second, parts.at(2).toInt());
        return date.isValid() ? std::optional<QDate>(date) : std::nullopt;
    }
    if (first.size() > 2 || parts.at(2).size() == 3)
        return std::nullopt;
    const int year = fullYear(parts.at(2));
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
    const QStringList parts = numberFields(text, QStringLiteral(":"), 2);
    if (parts.size() < 2 || parts.size() > 3 || parts.at(0).size() > 2 || parts.at(1).size() != 2 ||
        (parts.size() == 3 && parts.at(2).size() != 2))
        return std::nullopt;
    const QTime time(parts.at(0).toInt(), parts.at(1).toInt(),
                     parts.size() == 3 ? parts.at(2).toInt() : 0);
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
