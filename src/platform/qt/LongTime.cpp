#include "platform/qt/LongTime.h"

#include "drivers/PrinterDateTime.h"

#include <QLocale>

namespace {
// The locale's long time without its time zone: a printer's clock has none, and a zone
// in the text would keep it from reading back.
QString longTimeFormat(const QLocale& locale)
{
    const QString withZone = locale.timeFormat(QLocale::LongFormat);
    QString format;
    bool quoted = false;
    for (const QChar c : withZone) {
        if (c == QLatin1Char('\''))
            quoted = !quoted;
        if (quoted || c != QLatin1Char('t'))
            format += c;
    }
    return format.trimmed();
}
} // namespace

QString LongTime::text(const QDateTime& when)
{
    if (!when.isValid())
        return {};
    const QLocale locale;
    return locale.toString(when.time(), longTimeFormat(locale));
}

std::optional<QTime> LongTime::parse(const QString& typed)
{
    const QLocale locale;
    const QString trimmed = typed.trimmed();
    const QTime written = locale.toTime(trimmed, longTimeFormat(locale));
    if (written.isValid())
        return written;
    return PrinterDateTime::parseTime(trimmed);
}
