#include "services/HeadlessOutput.h"

#include <QRegularExpression>

void WriteHeadlessLine(FILE* stream, const QString& text)
{
    static const QRegularExpression lineBreaks(QStringLiteral("[\r\n]+"));
    QString line = text;
    line.replace(lineBreaks, QStringLiteral(" "));
    line.append(QLatin1Char('\n'));
    std::fputs(line.toLocal8Bit().constData(), stream);
    std::fflush(stream);
}
